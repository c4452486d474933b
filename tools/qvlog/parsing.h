#ifndef QVL_TOOLS_QVLOG_PARSING_H_
#define QVL_TOOLS_QVLOG_PARSING_H_

#include <charconv>
#include <optional>
#include <string_view>
#include <system_error>

#include "entries/raw_log_entry.h"
#include "viewer/model/list_model.h"

namespace qvl {

/// A decimal number without a sign that fits the type; `value` stays as it is when it is none.
template <typename Number>
bool ParseNumber(std::string_view text, Number& value) {
  Number parsed = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), parsed);
  if (text.empty() || error != std::errc() || end != text.data() + text.size()) return false;
  value = parsed;
  return true;
}

/// A record from exactly 512 hexadecimal digits of either case, or nothing.
std::optional<RawLogEntry> ParseHexRecord(std::string_view digits);

/// "2026-11-20", "2026-11-20T13:05" or "2026-11-20 13:05", a day that the calendar has. A bare
/// date stands for its first minute, or with `endOfDay` for its last.
std::optional<LogTime> ParseTime(std::string_view text, bool endOfDay);

/// "COLUMN", "COLUMN:asc" or "COLUMN:desc" with a column's name: number, description, class,
/// severity, count, updated or initial. Ascending when no direction is given.
std::optional<SortState> ParseSort(std::string_view text);

}  // namespace qvl

#endif  // QVL_TOOLS_QVLOG_PARSING_H_
