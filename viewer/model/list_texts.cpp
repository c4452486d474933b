#include "viewer/model/list_texts.h"

#include <array>
#include <cstdio>
#include <utility>

#include "files/unicode_text.h"
#include "texts/filled_text.h"

namespace qvl {
namespace {

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

std::vector<EntryField> EntryFields(const CEventLogEntry& entry) {
  const RawLogEntry& raw = entry.raw();
  std::vector<EntryField> fields;
  const auto add = [&fields](StringId label, std::string value) {
    fields.push_back({FilledText(label), std::move(value)});
  };
  const auto cell = [&entry](Column column) { return Utf8FromText(entry.GetColumnText(column)); };
  add(StringId::kColumnDescription, cell(Column::kDescription));
  add(StringId::kColumnClass, NameAndNumber(entry.GetClassName(), raw.eventClass));
  add(StringId::kDetailCode, std::to_string(raw.eventCode));
  add(StringId::kColumnSeverity, NameAndNumber(entry.GetSeverityName(), raw.severity));
  add(StringId::kColumnCount, cell(Column::kCount));
  add(StringId::kColumnUpdateTime, cell(Column::kUpdateTime));
  add(StringId::kColumnInitialTime, cell(Column::kInitialTime));
  add(StringId::kDetailEntryNumber, cell(Column::kEntryNumber));
  return fields;
}

std::string DataDump(const CEventLogEntry& entry, std::size_t bytesPerLine) {
  const auto& data = entry.raw().data;
  std::string dump;
  for (std::size_t at = 0; at < data.size(); at += bytesPerLine) {
    std::array<char, 8> hex{};
    std::snprintf(hex.data(), hex.size(), "%02x ", static_cast<unsigned>(at));
    std::string line = hex.data();
    std::string characters;
    for (std::size_t i = 0; i < bytesPerLine; ++i) {
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
