#include "tools/qvlog/log_input.h"

#include <algorithm>
#include <memory>
#include <string_view>

#include "files/log_file.h"
#include "platform/exclusive_file.h"
#include "tools/qvlog/visible_text.h"

namespace qvl {
namespace {

constexpr std::size_t kEntriesAtOnce = 256;

enum class Outcome { kRead, kFailed, kStopped };

Outcome ReadLog(ByteSource& source, const std::string& name, Console& console,
                const TakeEntries& take) {
  const auto reader = std::make_unique<LogReader>(source);
  LogFileResult result = reader->ReadHeader();
  if (result.ok()) {
    if (!take({})) return Outcome::kStopped;
    std::vector<CEventLogEntry> entries(kEntriesAtOnce);
    std::size_t got = kEntriesAtOnce;
    while (got == kEntriesAtOnce && result.ok()) {
      result = reader->ReadRecords(entries, got);
      if (!take(std::span(entries).first(got))) return Outcome::kStopped;
    }
  }
  if (result.ok()) return Outcome::kRead;
  Report(console, name + ": " + result.message);
  return Outcome::kFailed;
}

}  // namespace

bool ReadLogs(const std::vector<std::string>& files, Console& console, const TakeEntries& take) {
  bool allRead = true;
  for (const std::string& name : files) {
    Outcome outcome = Outcome::kFailed;
    if (name == "-") {
      outcome = ReadLog(console.input, "standard input", console, take);
    } else {
      ExclusiveFile file;
      const Status status = file.Open(name, ExclusiveFile::Mode::kRead);
      if (status.ok()) {
        outcome = ReadLog(file, name, console, take);
      } else {
        Report(console, status.message());
      }
    }
    if (outcome == Outcome::kStopped) break;
    if (outcome == Outcome::kFailed) allRead = false;
  }
  return allRead;
}

void Report(Console& console, const std::string& message) {
  // A reader that has seen enough, `head` for one, is nothing to report.
  if (message.empty()) return;
  std::string line = "qvlog: ";
  for (std::size_t begin = 0; begin < message.size();) {
    const std::size_t end = std::min(message.find('\n', begin), message.size());
    line += VisibleText(std::string_view(message).substr(begin, end - begin)) + "\n";
    begin = end + 1;
  }
  // When even the error stream fails there is nobody left to tell.
  static_cast<void>(console.error.Write(line));
}

}  // namespace qvl
