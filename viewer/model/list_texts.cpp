#include "viewer/model/list_texts.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "entries/ascii_case.h"
#include "entries/event_description.h"
#include "files/unicode_text.h"

namespace qvl {
namespace {

constexpr std::size_t kBytesPerLine = 16;

bool RowHolds(const CEventLogEntry& entry, std::string_view part) {
  std::array<char, kDescriptionSize> buffer;
  for (const ListColumn& column : ListColumns()) {
    TextSink cell(buffer);
    entry.GetColumnText(column.column, cell);
    const std::string_view text = cell.view();
    const bool holds =
        IsUtf8(text) ? HoldsIgnoringCase(text, part) : HoldsIgnoringCase(Utf8FromText(text), part);
    if (holds) return true;
  }
  return false;
}

// The six cells of a line, whose text `cellOf` gives.
template <typename CellOf>
void AppendLine(CellOf cellOf, std::string_view lineEnd, std::string& text) {
  bool first = true;
  for (const ListColumn& column : ListColumns()) {
    if (!first) text += '\t';
    first = false;
    const std::string cell(cellOf(column));
    for (const char c : cell) text += c == '\t' || c == '\r' || c == '\n' ? ' ' : c;
  }
  text += lineEnd;
}

// A name with its number behind it; the number alone where there is no name.
std::string NameAndNumber(std::string_view name, unsigned number) {
  const std::string digits = std::to_string(number);
  return name.empty() ? digits : std::string(name) + " (" + digits + ")";
}

char Printable(std::uint8_t byte) {
  return byte >= 0x20 && byte < 0x7F ? static_cast<char>(byte) : '.';
}

}  // namespace

std::string CellText(const ListModel& model, std::size_t row, Column column) {
  return Utf8FromText(model.EntryAt(row).GetColumnText(column));
}

std::string SelectedRowsText(const ListControl& control, const ListModel& model,
                             std::string_view lineEnd) {
  std::string text;
  for (std::size_t row = control.NextSelectedRow(0); row < model.rowCount();
       row = control.NextSelectedRow(row + 1)) {
    if (text.empty()) {
      AppendLine([](const ListColumn& column) { return GetString(column.heading); }, lineEnd, text);
    }
    AppendLine([&](const ListColumn& column) { return CellText(model, row, column.column); },
               lineEnd, text);
  }
  return text;
}

std::optional<std::size_t> SearchRows(const ListModel& model, std::string_view text,
                                      std::size_t start, SearchDirection direction) {
  const std::size_t rows = model.rowCount();
  if (rows == 0 || text.empty()) return std::nullopt;
  std::size_t row = start % rows;
  for (std::size_t i = 0; i < rows; ++i) {
    if (RowHolds(model.EntryAt(row), text)) return row;
    row = direction == SearchDirection::kForward ? (row + 1) % rows : (row + rows - 1) % rows;
  }
  return std::nullopt;
}

std::vector<EntryField> EntryFields(const CEventLogEntry& entry) {
  const RawLogEntry& raw = entry.raw();
  const auto label = [](StringId id) { return std::string(GetString(id)); };
  const auto cell = [&entry](Column column) { return Utf8FromText(entry.GetColumnText(column)); };
  return {
      {label(StringId::kColumnDescription), cell(Column::kDescription)        },
      {label(StringId::kColumnClass),       NameAndNumber(entry.GetClassName(), raw.eventClass)},
      {label(StringId::kDetailCode),                                   std::to_string(raw.eventCode)                                         },
      {label(StringId::kColumnSeverity),                                   NameAndNumber(entry.GetSeverityName(),raw.severity)},
      {label(StringId::kColumnCount),                      cell(Column::kCount)                                                           },
      {label(StringId::kColumnUpdateTime),cell(Column::kUpdateTime)},
      {label(StringId::kColumnInitialTime),                 cell(Column::kInitialTime)                                                                                  },
      {label(StringId::kDetailEntryNumber),cell(Column::kEntryNumber)},
  };
}

std::string DataDump(const CEventLogEntry& entry) {
  const auto& data = entry.raw().data;
  std::string dump;
  for (std::size_t at = 0; at < data.size(); at += kBytesPerLine) {
    std::array<char, 8> hex{};
    std::snprintf(hex.data(), hex.size(), "%02x ", static_cast<unsigned>(at));
    std::string line = hex.data();
    std::string characters;
    for (std::size_t i = 0; i < kBytesPerLine; ++i) {
      if (at + i >= data.size()) {
        line += "   ";
        continue;
      }
      std::snprintf(hex.data(), hex.size(), " %02x", static_cast<unsigned>(data[at + i]));
      line += hex.data();
      characters += Printable(data[at + i]);
    }
    line += "  ";
    line += characters;
    line += "\n";
    dump += line;
  }
  return dump;
}

}  // namespace qvl
