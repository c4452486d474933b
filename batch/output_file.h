#ifndef QVL_BATCH_OUTPUT_FILE_H_
#define QVL_BATCH_OUTPUT_FILE_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "entries/entry_list.h"
#include "platform/local_time.h"

namespace qvl {

/// What became of a file that a switch asked for. Only a file that the system has taken whole, put
/// on its storage and closed is written: a log may be cleared on its machine because of it.
enum class OutputResult : std::uint8_t { kWritten, kNotOpened, kNotWritten };

/// Writes a log file. An existing file is replaced.
OutputResult WriteLogOutput(const std::string& path, const EntryList& entries);

/// Writes the comma-separated export. An existing file is written over without being truncated.
OutputResult WriteExportOutput(const std::string& path, std::string_view machine,
                               const EntryList& entries);

/// Appends a report.
OutputResult WriteReportOutput(const std::string& path, std::string_view machine,
                               std::string_view lineEnd, Moment now, const EntryList& entries);

}  // namespace qvl

#endif  // QVL_BATCH_OUTPUT_FILE_H_
