#include <algorithm>
#include <array>
#include <string>

#include "entries/event_class.h"
#include "entries/severity.h"
#include "entries/text_sink.h"
#include "tools/qvlog/commands.h"
#include "tools/qvlog/log_input.h"
#include "tools/qvlog/visible_text.h"

namespace qvl {
namespace {

constexpr std::size_t kBytesPerLine = 16;
constexpr std::size_t kLabelWidth = 14;

void AppendLine(std::string_view label, std::string_view value, std::string& out) {
  out += label;
  out.append(kLabelWidth - label.size(), ' ');
  out += ": ";
  out += value;
  out += '\n';
}

std::string CellText(const CEventLogEntry& entry, Column column) {
  return VisibleText(entry.GetColumnText(column));
}

std::string NumberAndName(unsigned number, std::string_view name) {
  std::string text = std::to_string(number);
  if (!name.empty()) text.append(" (").append(name).append(")");
  return text;
}

std::string HexBytes(std::span<const std::uint8_t> bytes) {
  std::string text;
  for (const std::uint8_t byte : bytes) {
    std::array<char, 3> digits;
    TextSink hex(digits);
    hex.AppendHex(byte, 2);
    if (!text.empty()) text += ' ';
    text += hex.view();
  }
  return text;
}

void AppendDataLine(std::span<const std::uint8_t> data, std::size_t offset, std::string& out) {
  const std::span<const std::uint8_t> bytes =
      data.subspan(offset, std::min(kBytesPerLine, data.size() - offset));
  const std::string decimal = std::to_string(offset);
  std::string hex = HexBytes(bytes);
  hex.resize(kBytesPerLine * 3 - 1, ' ');
  out.append("  ").append(3 - decimal.size(), ' ').append(decimal).append("  ").append(hex);
  out += "  |";
  for (const std::uint8_t byte : bytes) {
    out += byte >= 0x20 && byte < 0x7F ? static_cast<char>(byte) : '.';
  }
  out += "|\n";
}

std::string EntryText(const CEventLogEntry& entry) {
  const RawLogEntry& raw = entry.raw();
  std::string out;
  AppendLine("Number", std::to_string(raw.entryNumber), out);
  AppendLine("Description", CellText(entry, Column::kDescription), out);
  AppendLine("Class", NumberAndName(raw.eventClass, entry.GetClassName()), out);
  AppendLine("Code", std::to_string(raw.eventCode), out);
  AppendLine("Severity", NumberAndName(raw.severity, entry.GetSeverityName()), out);
  AppendLine("Count", CellText(entry, Column::kCount), out);
  AppendLine("Update Time", CellText(entry, Column::kUpdateTime), out);
  AppendLine("Initial Time", CellText(entry, Column::kInitialTime), out);
  AppendLine("Reserved 0-1", HexBytes(raw.reserved0), out);
  AppendLine("Reserved 6", HexBytes(std::span(&raw.reserved6, 1)), out);
  out += "Data\n";
  for (std::size_t offset = 0; offset < raw.data.size(); offset += kBytesPerLine) {
    AppendDataLine(raw.data, offset, out);
  }
  return out;
}

}  // namespace

int RunShow(const CommandLine& line, Console& console) {
  BufferedWriter out(console.output);
  bool found = false;
  const bool allRead = ReadLogs(line.files, console, [&](std::span<const CEventLogEntry> entries) {
    for (const CEventLogEntry& entry : entries) {
      if (entry.GetEntryNumber() != line.entryNumber) continue;
      // A number that repeats, in several files or in an older log's tail, shows each entry.
      if (found) out.Append("\n");
      found = true;
      out.Append(EntryText(entry));
    }
    return out.ok();
  });
  const int status = FinishOutput(out, allRead, console);
  if (!found && allRead) {
    Report(console, "no entry has the number " + std::to_string(line.entryNumber));
    return kExitFailure;
  }
  return status;
}

}  // namespace qvl
