// What qvlog takes from outside beside files: its arguments and the lines of `describe`.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/memory_streams.h"
#include "tools/qvlog/command_line.h"
#include "tools/qvlog/parsing.h"
#include "tools/qvlog/qvlog.h"
#include "tools/qvlog/visible_text.h"

namespace {

using qvl::fuzz::MemorySource;
using qvl::fuzz::NoSink;

void Describe(std::span<const std::uint8_t> lines) {
  MemorySource input(lines);
  NoSink output;
  qvl::Console console{input, output, output, 0};
  const int status = qvl::RunQvlog({"describe"}, console);
  if (status != qvl::kExitDone && status != qvl::kExitFailure) std::abort();
}

// Only taken apart, not run: arguments name files.
void ParseArguments(std::string_view text) {
  std::vector<std::string> arguments;
  while (!text.empty() && arguments.size() < 16) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    arguments.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  const qvl::ParsedCommandLine parsed = qvl::ParseCommandLine(arguments);
  const bool usage = !parsed.run && parsed.exitStatus == qvl::kExitUsage;
  if (usage == parsed.error.empty()) std::abort();
}

void ParseValues(std::string_view text) {
  qvl::ParseSort(text);
  qvl::ParseHexRecord(text);
  for (const bool endOfDay : {false, true}) {
    const auto time = qvl::ParseTime(text, endOfDay);
    if (time && (!time->HasValidDate() || !time->HasValidTimeOfDay())) std::abort();
  }
  const std::string visible = qvl::VisibleText(text);
  for (const char c : visible) {
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string text(reinterpret_cast<const char*>(data + 1), size - 1);
  // The command line is by far the slowest; it gets a small share of the runs.
  if (data[0] == 'a') {
    ParseArguments(text);
  } else if (data[0] == 'd') {
    Describe(std::span(data + 1, size - 1));
  } else {
    ParseValues(text);
  }
  return 0;
}
