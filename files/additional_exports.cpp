#include "files/additional_exports.h"

#include <array>
#include <nlohmann/json.hpp>
#include <string_view>

#include "entries/event_class.h"
#include "entries/severity.h"
#include "files/unicode_text.h"

namespace qvl {
namespace {

std::string Description(const CEventLogEntry& entry) {
  return Utf8FromText(entry.GetColumnText(Column::kDescription));
}

void AppendTwoDigits(int value, std::string& out) {
  out += static_cast<char>('0' + value / 10 % 10);
  out += static_cast<char>('0' + value % 10);
}

bool BeginsFormula(std::string_view text) {
  return !text.empty() && std::string_view("=+-@\t\r").find(text.front()) != std::string_view::npos;
}

std::string HexDigits(std::span<const std::uint8_t> bytes) {
  static constexpr std::string_view kDigits = "0123456789abcdef";
  std::string text;
  text.reserve(bytes.size() * 2);
  for (const std::uint8_t byte : bytes) {
    text += kDigits[byte >> 4U];
    text += kDigits[byte & 15U];
  }
  return text;
}

nlohmann::ordered_json TimeOrNull(LogTime time) {
  const std::string text = IsoTime(time);
  return text.empty() ? nlohmann::ordered_json() : nlohmann::ordered_json(text);
}

nlohmann::ordered_json NameOrNull(std::string_view name) {
  return name.empty() ? nlohmann::ordered_json() : nlohmann::ordered_json(name);
}

}  // namespace

std::string IsoTime(LogTime time) {
  std::string text;
  // Later years take a notation that both sides would have to agree on first; no log has them.
  constexpr int kLastIsoYear = 9999;
  if (!time.HasValidDate() || !time.HasValidTimeOfDay()) return text;
  if (time.FullYear() > kLastIsoYear) return text;
  text = std::to_string(time.FullYear());
  text += '-';
  AppendTwoDigits(time.month, text);
  text += '-';
  AppendTwoDigits(time.day, text);
  text += 'T';
  AppendTwoDigits(time.hour, text);
  text += ':';
  AppendTwoDigits(time.minute, text);
  return text;
}

void AppendStrictCsvField(std::string_view text, BufferedWriter& out) {
  const bool formula = BeginsFormula(text);
  if (!formula && text.find_first_of(",\"\r\n") == std::string_view::npos) {
    out.Append(text);
    return;
  }
  out.Append("\"");
  if (formula) out.Append("'");
  for (const char c : text)
    out.Append(c == '"' ? std::string_view("\"\"") : std::string_view(&c, 1));
  out.Append("\"");
}

void AppendStrictCsvHead(BufferedWriter& out) {
  out.Append("Number,Description,Class,Code,Severity,Count,Update Time,Initial Time\r\n");
}

void AppendStrictCsvLine(const CEventLogEntry& entry, BufferedWriter& out) {
  const RawLogEntry& raw = entry.raw();
  out.Append(std::to_string(raw.entryNumber));
  out.Append(",");
  AppendStrictCsvField(Description(entry), out);
  out.Append(",");
  AppendStrictCsvField(EventClassName(raw.eventClass, Language::kEnglish), out);
  out.Append(",");
  out.Append(std::to_string(raw.eventCode));
  out.Append(",");
  AppendStrictCsvField(SeverityName(raw.severity, Language::kEnglish), out);
  out.Append(",");
  out.Append(std::to_string(raw.count));
  out.Append(",");
  out.Append(IsoTime(raw.updateTime));
  out.Append(",");
  out.Append(IsoTime(raw.initialTime));
  out.Append("\r\n");
}

void AppendJsonLine(const CEventLogEntry& entry, BufferedWriter& out) {
  const RawLogEntry& raw = entry.raw();
  nlohmann::ordered_json object;
  object["number"] = std::uint32_t{raw.entryNumber};
  object["description"] = Description(entry);
  object["class"] = std::uint16_t{raw.eventClass};
  object["className"] = NameOrNull(EventClassName(raw.eventClass, Language::kEnglish));
  object["code"] = std::uint16_t{raw.eventCode};
  object["severity"] = raw.severity;
  object["severityName"] = NameOrNull(SeverityName(raw.severity, Language::kEnglish));
  object["count"] = std::uint32_t{raw.count};
  object["updateTime"] = TimeOrNull(raw.updateTime);
  object["initialTime"] = TimeOrNull(raw.initialTime);
  object["data"] = HexDigits(raw.data);
  object["reserved"] = HexDigits(raw.reserved0) + HexDigits(std::span(&raw.reserved6, 1));
  out.Append(object.dump());
  out.Append("\n");
}

}  // namespace qvl
