#ifndef QVL_TOOLS_QVLOG_PARSING_H_
#define QVL_TOOLS_QVLOG_PARSING_H_

#include <optional>
#include <string_view>

#include "entries/raw_log_entry.h"
#include "viewer/model/list_model.h"

namespace qvl {

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
