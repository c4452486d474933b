#include "batch/output_file.h"

#include <exception>
#include <functional>

#include "files/buffered_writer.h"
#include "files/csv_export.h"
#include "files/log_file.h"
#include "files/text_report.h"
#include "platform/exclusive_file.h"

namespace qvl {
namespace {

using Writing = std::function<void(BufferedWriter&)>;
using EntryWriting = std::function<void(const CEventLogEntry&, BufferedWriter&)>;

bool WriteWhole(ExclusiveFile& file, const EntryList& entries, const Writing& writeHead,
                const EntryWriting& writeEntry) {
  BufferedWriter out(file);
  writeHead(out);
  for (std::size_t i = 0; i < entries.size() && out.ok(); ++i) writeEntry(entries[i], out);
  const bool taken = out.Finish().ok() && file.Flush().ok();
  return file.Close().ok() && taken;
}

OutputResult WriteOutput(const std::string& path, ExclusiveFile::Mode mode,
                         const EntryList& entries, const Writing& writeHead,
                         const EntryWriting& writeEntry) {
  try {
    ExclusiveFile file;
    if (!file.Open(path, mode).ok()) return OutputResult::kNotOpened;
    return WriteWhole(file, entries, writeHead, writeEntry) ? OutputResult::kWritten
                                                            : OutputResult::kNotWritten;
  } catch (const std::exception&) {  // no memory
    return OutputResult::kNotWritten;
  }
}

}  // namespace

OutputResult WriteLogOutput(const std::string& path, const EntryList& entries) {
  return WriteOutput(
      path, ExclusiveFile::Mode::kReplace, entries, AppendLogHeader,
      [](const CEventLogEntry& entry, BufferedWriter& out) { AppendLogRecord(entry.raw(), out); });
}

OutputResult WriteExportOutput(const std::string& path, std::string_view machine,
                               const EntryList& entries) {
  return WriteOutput(
      path, ExclusiveFile::Mode::kOverwriteShared, entries,
      [&](BufferedWriter& out) { AppendCsvHead(machine, out); }, AppendCsvLine);
}

OutputResult WriteReportOutput(const std::string& path, std::string_view machine,
                               std::string_view lineEnd, Moment now, const EntryList& entries) {
  return WriteOutput(
      path, ExclusiveFile::Mode::kAppend, entries,
      [&](BufferedWriter& out) { AppendReportHead(machine, LongDateAndTime(now), lineEnd, out); },
      [&](const CEventLogEntry& entry, BufferedWriter& out) {
        AppendReportEntry(entry, lineEnd, out);
      });
}

}  // namespace qvl
