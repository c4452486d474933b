#include "tools/qvlog/qvlog.h"

#include <new>

#include "tools/qvlog/command_line.h"
#include "tools/qvlog/commands.h"
#include "tools/qvlog/log_input.h"

namespace qvl {
namespace {

int Run(const CommandLine& line, Console& console) {
  switch (line.command) {
    case Command::kList:
      return RunList(line, console);
    case Command::kShow:
      return RunShow(line, console);
    case Command::kInfo:
      return RunInfo(line, console);
    case Command::kExport:
      return RunExport(line, console);
    case Command::kDescribe:
      return RunDescribe(console);
    case Command::kRead:
      return RunRead(line, console);
    case Command::kSample:
      break;
  }
  return RunSample(line, console);
}

}  // namespace

int RunQvlog(const std::vector<std::string>& arguments, Console& console) {
  const ParsedCommandLine parsed = ParseCommandLine(arguments);
  if (parsed.run) {
    try {
      return Run(*parsed.run, console);
    } catch (const std::bad_alloc&) {
      // Only a sort holds a log in memory.
      Report(console, "the log is too large to be sorted in this machine's memory");
      return kExitFailure;
    }
  }
  const Status output = console.output.Write(parsed.output);
  if (!parsed.error.empty()) Report(console, parsed.error);
  if (!output.ok()) Report(console, output.message());
  return output.ok() ? parsed.exitStatus : kExitFailure;
}

}  // namespace qvl
