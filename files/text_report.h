#ifndef QVL_FILES_TEXT_REPORT_H_
#define QVL_FILES_TEXT_REPORT_H_

#include <array>
#include <string>
#include <string_view>

#include "entries/event_log_entry.h"
#include "files/buffered_writer.h"

namespace qvl {

/// Lines of an entry in a report and on a printed page.
inline constexpr int kReportLinesPerEntry = 6;

/// The description, then class, severity, count, update time and initial time behind their
/// labels; no line ends.
std::array<std::string, kReportLinesPerEntry> ReportLines(const CEventLogEntry& entry);

/// The title with the machine's name, and the date and time of the report.
void AppendReportHead(std::string_view machine, std::string_view dateAndTime,
                      std::string_view lineEnd, BufferedWriter& out);

/// The six lines of an entry, each ended by `lineEnd`.
void AppendReportEntry(const CEventLogEntry& entry, std::string_view lineEnd, BufferedWriter& out);

}  // namespace qvl

#endif  // QVL_FILES_TEXT_REPORT_H_
