#ifndef QVL_FILES_CSV_EXPORT_H_
#define QVL_FILES_CSV_EXPORT_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "entries/entry_list.h"
#include "files/buffered_writer.h"
#include "platform/status.h"

namespace qvl {

// The comma-separated export that spreadsheets of this log's users have always read
// (docs/formats/csv.md). Only the description is quoted, nothing is escaped, every line ends with
// CR LF on every system, and a line feed inside a description becomes CR LF too.

/// The title line, naming the machine (empty when there is none), and the column headings.
void AppendCsvHead(std::string_view machine, BufferedWriter& out);

/// One entry's line.
void AppendCsvLine(const CEventLogEntry& entry, BufferedWriter& out);

/// Writes the whole export to `path`. An existing file is written over without being truncated,
/// so a longer one keeps its tail behind the new lines.
/// Returns success only when the system has taken every byte and closed the file.
Status ExportCsvFile(const std::string& path, std::string_view machine, const EntryList& entries);

}  // namespace qvl

#endif  // QVL_FILES_CSV_EXPORT_H_
