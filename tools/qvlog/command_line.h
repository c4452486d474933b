#ifndef QVL_TOOLS_QVLOG_COMMAND_LINE_H_
#define QVL_TOOLS_QVLOG_COMMAND_LINE_H_

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tools/qvlog/entry_formats.h"
#include "tools/qvlog/selection.h"
#include "viewer/model/list_model.h"

namespace qvl {

enum class Command : std::uint8_t { kList, kShow, kInfo, kExport, kDescribe, kSample, kRead };

/// A command line taken apart. Names of files are "-" for standard input and output.
struct CommandLine {
  Command command = Command::kList;
  std::vector<std::string> files;
  SelectionOptions selection;
  std::optional<SortState> sort;
  bool header = true;
  std::uint32_t entryNumber = 0;
  std::optional<EntryFormat> format;  // none when the command is to choose
  std::string machine;
  std::string output = "-";
  std::uint32_t entries = 200;
  std::uint64_t seed = 1;
};

/// What becomes of a command line: something to do, or a text to print and an exit status.
struct ParsedCommandLine {
  std::optional<CommandLine> run;
  std::string output;  // help or version
  std::string error;   // what is wrong with the arguments
  int exitStatus = 0;
};

ParsedCommandLine ParseCommandLine(const std::vector<std::string>& arguments);

}  // namespace qvl

#endif  // QVL_TOOLS_QVLOG_COMMAND_LINE_H_
