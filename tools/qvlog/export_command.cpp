#include <filesystem>
#include <string>
#include <system_error>

#include "files/log_file.h"
#include "tools/qvlog/commands.h"
#include "tools/qvlog/log_input.h"
#include "tools/qvlog/output.h"
#include "tools/sample/sample_log.h"

namespace qvl {
namespace {

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
  const EntryFormat format = line.format.value_or(EntryFormat::kCsv);
  Output output(line.output, FileMode(format), Output::Safety::kTaken, console);
  bool opened = false;
  const bool allRead = WriteSelected(
      line, console,
      [&] {
        opened = output.Open();
        if (!opened) return false;
        AppendHead(format, {.machine = line.machine, .now = console.now}, output.writer());
        return true;
      },
      [&](const CEventLogEntry& entry) {
        AppendEntry(format, entry, output.writer());
        return output.writer().ok();
      });
  const bool written = opened && output.Finish();
  return allRead && written ? kExitDone : kExitFailure;
}

int RunSample(const CommandLine& line, Console& console) {
  Output output(line.output, ExclusiveFile::Mode::kReplace, Output::Safety::kTaken, console);
  if (!output.Open()) return kExitFailure;
  BufferedWriter& out = output.writer();
  AppendLogHeader(out);
  SampleLog log(line.seed, line.entries);
  RawLogEntry entry;
  while (out.ok() && log.Next(entry)) AppendLogRecord(entry, out);
  return output.Finish() ? kExitDone : kExitFailure;
}

}  // namespace qvl
