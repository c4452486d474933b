#include "tools/qvlog/parsing.h"

#include <array>
#include <cstring>

namespace qvl {
namespace {

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

// Exactly `digits` decimal digits at the front of `text`, taken off it.
std::optional<int> TakeNumber(std::string_view& text, std::size_t digits) {
  if (text.size() < digits) return std::nullopt;
  int value = 0;
  for (const char c : text.substr(0, digits)) {
    if (c < '0' || c > '9') return std::nullopt;
    value = value * 10 + (c - '0');
  }
  text.remove_prefix(digits);
  return value;
}

bool TakeCharacter(std::string_view& text, std::string_view oneOf) {
  if (text.empty() || oneOf.find(text.front()) == std::string_view::npos) return false;
  text.remove_prefix(1);
  return true;
}

struct ColumnName {
  std::string_view name;
  Column column;
};

constexpr ColumnName kColumnNames[] = {
    {"number",      Column::kEntryNumber},
    {"description", Column::kDescription},
    {"class",       Column::kClass      },
    {"severity",    Column::kSeverity   },
    {"count",       Column::kCount      },
    {"updated",     Column::kUpdateTime },
    {"initial",     Column::kInitialTime},
};

}  // namespace

std::optional<RawLogEntry> ParseHexRecord(std::string_view digits) {
  std::array<std::uint8_t, sizeof(RawLogEntry)> bytes;
  if (digits.size() != bytes.size() * 2) return std::nullopt;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const int high = HexDigit(digits[2 * i]);
    const int low = HexDigit(digits[2 * i + 1]);
    if (high < 0 || low < 0) return std::nullopt;
    bytes[i] = static_cast<std::uint8_t>(high * 16 + low);
  }
  RawLogEntry entry;
  std::memcpy(&entry, bytes.data(), sizeof entry);
  return entry;
}

std::optional<LogTime> ParseTime(std::string_view text, bool endOfDay) {
  const std::optional<int> year = TakeNumber(text, 4);
  if (!year || !TakeCharacter(text, "-")) return std::nullopt;
  const std::optional<int> month = TakeNumber(text, 2);
  if (!month || !TakeCharacter(text, "-")) return std::nullopt;
  const std::optional<int> day = TakeNumber(text, 2);
  if (!day) return std::nullopt;
  int hour = endOfDay ? 23 : 0;
  int minute = endOfDay ? 59 : 0;
  if (!text.empty()) {
    if (!TakeCharacter(text, "T ")) return std::nullopt;
    const std::optional<int> hours = TakeNumber(text, 2);
    if (!hours || !TakeCharacter(text, ":")) return std::nullopt;
    const std::optional<int> minutes = TakeNumber(text, 2);
    if (!minutes || !text.empty()) return std::nullopt;
    hour = *hours;
    minute = *minutes;
  }
  const LogTime time{static_cast<std::uint8_t>(*year / 100), static_cast<std::uint8_t>(*year % 100),
                     static_cast<std::uint8_t>(*month),      static_cast<std::uint8_t>(*day),
                     static_cast<std::uint8_t>(hour),        static_cast<std::uint8_t>(minute)};
  if (!time.HasValidDate() || !time.HasValidTimeOfDay()) return std::nullopt;
  return time;
}

std::optional<SortState> ParseSort(std::string_view text) {
  const std::size_t colon = text.find(':');
  const std::string_view direction =
      colon == std::string_view::npos ? "asc" : text.substr(colon + 1);
  if (direction != "asc" && direction != "desc") return std::nullopt;
  for (const ColumnName& candidate : kColumnNames) {
    if (candidate.name == text.substr(0, colon)) {
      return SortState{candidate.column, direction == "asc"};
    }
  }
  return std::nullopt;
}

}  // namespace qvl
