#ifndef QVL_FILES_ADDITIONAL_EXPORTS_H_
#define QVL_FILES_ADDITIONAL_EXPORTS_H_

#include <string>
#include <string_view>

#include "entries/event_log_entry.h"
#include "files/buffered_writer.h"

namespace qvl {

// Export formats for other programs: always English, UTF-8, times as ISO 8601 ("2026-11-20T13:05",
// the machine's local time; empty or null for a time that does not exist).

/// A time stamp as ISO 8601, or an empty text for one that no calendar has.
std::string IsoTime(LogTime time);

/// Comma-separated values after RFC 4180: a heading line, every field quoted where it must be,
/// quotes doubled, lines ended with CR LF. A text that a spreadsheet would run as a formula (one
/// that begins with = + - @, a tab or a carriage return) gets an apostrophe in front
/// (https://owasp.org/www-community/attacks/CSV_Injection).
void AppendStrictCsvHead(BufferedWriter& out);
void AppendStrictCsvLine(const CEventLogEntry& entry, BufferedWriter& out);

/// One field after these rules.
void AppendStrictCsvField(std::string_view text, BufferedWriter& out);

/// One JSON object a line (https://jsonlines.org), with every field of the record; the data and the
/// reserved bytes as hexadecimal digits.
void AppendJsonLine(const CEventLogEntry& entry, BufferedWriter& out);

}  // namespace qvl

#endif  // QVL_FILES_ADDITIONAL_EXPORTS_H_
