#include <filesystem>
#include <memory>
#include <string>
#include <system_error>

#include "files/additional_exports.h"
#include "files/csv_export.h"
#include "files/log_file.h"
#include "files/text_report.h"
#include "platform/exclusive_file.h"
#include "platform/local_time.h"
#include "tools/qvlog/commands.h"
#include "tools/qvlog/log_input.h"
#include "tools/sample/sample_log.h"

namespace qvl {
namespace {

constexpr std::string_view kReportLineEnd = "\n";

// Where a command writes: standard output, or a file that is opened only when there is something
// to write, so that a mistyped input harms no older output.
class Output {
 public:
  Output(std::string path, ExclusiveFile::Mode mode, Console& console)
      : path_(std::move(path)), mode_(mode), console_(console) {}

  /// False, and reported, when the file cannot be opened.
  bool Open() {
    if (path_ == "-") {
      writer_ = std::make_unique<BufferedWriter>(console_.output);
      return true;
    }
    const Status status = file_.Open(path_, mode_);
    if (status.ok()) {
      writer_ = std::make_unique<BufferedWriter>(file_);
    } else {
      Report(console_, status.message());
    }
    return status.ok();
  }

  BufferedWriter& writer() { return *writer_; }

  /// True, and nothing reported, when every byte has reached the system.
  bool Finish() {
    if (writer_ == nullptr) return false;
    Status status = writer_->Finish();
    if (status.ok()) ReportStaleTail();
    const Status closed = file_.Close();
    if (status.ok()) status = closed;
    if (!status.ok()) Report(console_, status.message());
    return status.ok();
  }

 private:
  void ReportStaleTail() {
    std::uint64_t size = 0;
    if (path_ == "-" || !file_.Size(size).ok() || size <= writer_->written()) return;
    Report(console_, "warning: '" + path_ + "' was longer; its last " +
                         std::to_string(size - writer_->written()) + " bytes remain");
  }

  std::string path_;
  ExclusiveFile::Mode mode_;
  Console& console_;
  ExclusiveFile file_;
  std::unique_ptr<BufferedWriter> writer_;
};

void AppendHead(const CommandLine& line, Moment now, BufferedWriter& out) {
  switch (line.format) {
    case ExportFormat::kCsv:
      AppendCsvHead(line.machine, out);
      break;
    case ExportFormat::kStrictCsv:
      AppendStrictCsvHead(out);
      break;
    case ExportFormat::kReport:
      if (!line.machine.empty()) {
        AppendReportHead(line.machine, LongDateAndTime(now), kReportLineEnd, out);
      }
      break;
    case ExportFormat::kJsonLines:
      break;
  }
}

void AppendEntry(ExportFormat format, const CEventLogEntry& entry, BufferedWriter& out) {
  switch (format) {
    case ExportFormat::kCsv:
      AppendCsvLine(entry, out);
      break;
    case ExportFormat::kStrictCsv:
      AppendStrictCsvLine(entry, out);
      break;
    case ExportFormat::kReport:
      AppendReportEntry(entry, kReportLineEnd, out);
      break;
    case ExportFormat::kJsonLines:
      AppendJsonLine(entry, out);
      break;
  }
}

// True, and reported, when the output is one of the logs that are still to be read.
bool OverwritesInput(const CommandLine& line, Console& console) {
  std::error_code error;
  const std::filesystem::path output(std::u8string(line.output.begin(), line.output.end()));
  if (line.output == "-" || !std::filesystem::is_regular_file(output, error)) return false;
  for (const std::string& file : line.files) {
    // Where the system names standard input like a file, a redirected log is recognised too.
    const std::string name = file == "-" ? "/dev/stdin" : file;
    const std::filesystem::path input(std::u8string(name.begin(), name.end()));
    if (!std::filesystem::equivalent(output, input, error)) continue;
    Report(console, "'" + line.output + "' is a log to be read; write to another file");
    return true;
  }
  return false;
}

}  // namespace

int RunExport(const CommandLine& line, Console& console) {
  if (OverwritesInput(line, console)) return kExitFailure;
  // The comma-separated export has never truncated the file that it is written over.
  const ExclusiveFile::Mode mode = line.format == ExportFormat::kCsv
                                       ? ExclusiveFile::Mode::kOverwrite
                                       : ExclusiveFile::Mode::kReplace;
  Output output(line.output, mode, console);
  bool opened = false;
  const bool allRead = WriteSelected(
      line, console,
      [&] {
        opened = output.Open();
        if (opened) AppendHead(line, console.now, output.writer());
        return opened;
      },
      [&](const CEventLogEntry& entry) {
        AppendEntry(line.format, entry, output.writer());
        return output.writer().ok();
      });
  const bool written = opened && output.Finish();
  return allRead && written ? kExitDone : kExitFailure;
}

int RunSample(const CommandLine& line, Console& console) {
  Output output(line.output, ExclusiveFile::Mode::kReplace, console);
  if (!output.Open()) return kExitFailure;
  BufferedWriter& out = output.writer();
  AppendLogHeader(out);
  SampleLog log(line.seed, line.entries);
  RawLogEntry entry;
  while (out.ok() && log.Next(entry)) AppendLogRecord(entry, out);
  return output.Finish() ? kExitDone : kExitFailure;
}

}  // namespace qvl
