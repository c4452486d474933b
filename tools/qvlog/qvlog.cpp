#include "tools/qvlog/qvlog.h"

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
    case Command::kSample:
      break;
  }
  return RunSample(line, console);
}

}  // namespace

int RunQvlog(const std::vector<std::string>& arguments, Console& console) {
  const ParsedCommandLine parsed = ParseCommandLine(arguments);
  if (parsed.run) return Run(*parsed.run, console);
  const Status output = console.output.Write(parsed.output);
  if (!parsed.error.empty()) Report(console, parsed.error);
  if (!output.ok()) Report(console, output.message());
  return output.ok() ? parsed.exitStatus : kExitFailure;
}

}  // namespace qvl
