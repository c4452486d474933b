#include "tools/qvlog/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <limits>
#include <span>
#include <sstream>
#include <string_view>
#include <utility>

#include "access/machine_name.h"
#include "tools/qvlog/parsing.h"
#include "tools/qvlog/qvlog.h"

namespace qvl {
namespace {

constexpr const char* kDescription =
    "Reads Quarvel Logs, saved ones and those of machines: every entry in English, filtered, "
    "sorted, exported.";

constexpr const char* kExamples =
    "Each command has its own help: qvlog list --help\n"
    "Exit status: 0 done, 1 failure, 2 usage, 130 interrupted.\n"
    "\n"
    "Examples:\n"
    "  qvlog list server1.qvx\n"
    "  qvlog list --severity Critical --sort updated:desc server1.qvx server2.qvx\n"
    "  qvlog list --class \"Main Memory\" --since 2026-11-01 server1.qvx\n"
    "  qvlog show 42 server1.qvx\n"
    "  qvlog info server1.qvx\n"
    "  qvlog export --format csv --machine SERVER1 -o server1.csv server1.qvx\n"
    "  qvlog export --format jsonl server1.qvx | jq .description\n"
    "  qvlog read -o server1.qvx SERVER1\n"
    "  qvlog sample --entries 1000 --seed 7 -o trial.qvx";

constexpr const char* kVersionLine = "qvlog " QVL_VERSION "\n";

constexpr const char* kSortColumns =
    "number, description, class, severity, count, updated or initial";

std::string Joined(const std::vector<std::string_view>& choices) {
  std::string text;
  for (const std::string_view choice : choices) {
    if (!text.empty()) text += ", ";
    text += choice;
  }
  return text;
}

// An option whose value is a text of a choice list, in any case.
void AddChoice(CLI::App& app, const char* name, std::string& value, const char* help,
               const std::vector<std::string_view>& choices) {
  app.add_option_function<std::string>(
         name,
         [&value, choices](const std::string& given) {
           const std::size_t index = FindChoice(choices, given);
           if (index == kNoChoice || choices[index].size() != given.size()) {
             throw CLI::ValidationError("'" + given + "' is not one of: " + Joined(choices));
           }
           value = std::string(choices[index]);
         },
         std::string(help) + ": " + Joined(choices))
      ->type_name("CHOICE");
}

void AddTime(CLI::App& app, const char* name, std::optional<LogTime>& value, const char* help,
             bool endOfDay) {
  app.add_option_function<std::string>(
         name,
         [&value, endOfDay](const std::string& given) {
           value = ParseTime(given, endOfDay);
           if (!value) {
             throw CLI::ValidationError("'" + given +
                                        "' is not a date: write 2026-11-20 or 2026-11-20T13:05");
           }
         },
         help)
      ->type_name("DATE");
}

// An option whose value is a decimal number; CLI11's own would take octal and negative ones.
template <typename Number>
CLI::Option* AddNumber(CLI::App& app, const char* name, Number& value, const char* help) {
  const auto parse = [&value](const std::string& given) {
    if (!ParseNumber(given, value)) {
      throw CLI::ValidationError("'" + given + "' is no whole number from 0 to " +
                                 std::to_string(std::numeric_limits<Number>::max()));
    }
  };
  return app.add_option_function<std::string>(name, parse, help)->type_name("NUMBER");
}

void AddSelection(CLI::App& app, CommandLine& line) {
  SelectionOptions& selection = line.selection;
  AddChoice(app, "--class", selection.choices.eventClass, "Only entries of this class",
            ClassChoices());
  AddChoice(app, "--severity", selection.choices.severity, "Only entries of this severity",
            SeverityChoices());
  AddChoice(app, "--updated", selection.choices.updateTime, "Only entries updated in this time",
            TimeChoices());
  AddChoice(app, "--initial", selection.choices.initialTime,
            "Only entries that first occurred in this time", TimeChoices());
  AddTime(app, "--since", selection.since, "Only entries updated at or after this time", false);
  AddTime(app, "--until", selection.until, "Only entries updated at or before this time", true);
  app.add_option("--text", selection.text, "Only entries whose description holds this text");
  app.add_option_function<std::string>(
         "--sort",
         [&line](const std::string& given) {
           line.sort = ParseSort(given);
           if (line.sort) return;
           throw CLI::ValidationError("'" + given + "' is no order: write " + kSortColumns +
                                      ", and :asc or :desc behind it");
         },
         std::string("Order by ") + kSortColumns + "; :asc (default) or :desc")
      ->type_name("COLUMN[:asc|desc]");
}

void AddFiles(CLI::App& app, CommandLine& line) {
  app.add_option("FILE", line.files, "Log files; - is standard input")->required();
}

void AddShow(CLI::App& app, CommandLine& line) {
  AddNumber(app, "NUMBER", line.entryNumber, "The entry's number")->required();
  AddFiles(app, line);
}

struct FormatName {
  std::string_view name;
  EntryFormat format;
};

// What `export` writes, and what `read` writes beside it.
constexpr FormatName kExportFormats[] = {
    {"csv",        EntryFormat::kCsv      },
    {"strict-csv", EntryFormat::kStrictCsv},
    {"jsonl",      EntryFormat::kJsonLines},
    {"report",     EntryFormat::kReport   },
};
constexpr FormatName kReadFormats[] = {
    {"list",       EntryFormat::kList     },
    {"qvx",        EntryFormat::kQvx      },
    {"csv",        EntryFormat::kCsv      },
    {"strict-csv", EntryFormat::kStrictCsv},
    {"jsonl",      EntryFormat::kJsonLines},
    {"report",     EntryFormat::kReport   },
};

void AddFormat(CLI::App& app, CommandLine& line, std::span<const FormatName> formats,
               const char* help) {
  const auto parse = [&line, formats](const std::string& given) {
    std::vector<std::string_view> names;
    for (const FormatName& candidate : formats) {
      names.push_back(candidate.name);
      if (candidate.name != given) continue;
      line.format = candidate.format;
      return;
    }
    throw CLI::ValidationError("'" + given + "' is not one of: " + Joined(names));
  };
  app.add_option_function<std::string>("--format", parse, help)->type_name("FORMAT");
}

void AddOutput(CLI::App& app, CommandLine& line) {
  app.add_option("-o,--output", line.output, "The file to write; - is standard output (default)");
}

void AddHeader(CLI::App& app, CommandLine& line) {
  app.add_flag_callback(
      "--no-header", [&line] { line.header = false; }, "Leave the heading line out");
}

void AddList(CLI::App& app, CommandLine& line) {
  AddSelection(app, line);
  AddHeader(app, line);
  AddFiles(app, line);
}

void AddExport(CLI::App& app, CommandLine& line) {
  AddFormat(app, line, kExportFormats,
            "csv as the viewer exports it (default), strict-csv (RFC 4180), jsonl (an object a "
            "line), report (labelled blocks)");
  app.add_option("--machine", line.machine, "The machine named in the title of csv and report");
  AddOutput(app, line);
  AddSelection(app, line);
  AddFiles(app, line);
}

void AddRead(CLI::App& app, CommandLine& line) {
  AddFormat(app, line, kReadFormats,
            "list (default), qvx (a log file; default for an output named *.qvx), csv, strict-csv, "
            "jsonl, report");
  AddOutput(app, line);
  AddSelection(app, line);
  AddHeader(app, line);
  const auto parse = [&line](const std::string& given) {
    // Any name for this computer will do here.
    if (NormaliseMachineName(given, "HERE").empty()) {
      throw CLI::ValidationError("'" + given + "' names no machine");
    }
    line.machine = given;
  };
  app.add_option_function<std::string>("MACHINE", parse, "The machine; . is this computer")
      ->required();
}

void AddSample(CLI::App& app, CommandLine& line) {
  AddNumber(app, "--entries", line.entries, "How many entries (default 200)");
  AddNumber(app, "--seed", line.seed, "The same seed gives the same log (default 1)");
  app.add_option("-o,--output", line.output, "The log file; - is standard output (default)");
}

void AddNothing(CLI::App& /*app*/, CommandLine& /*line*/) {}
void AddInfo(CLI::App& app, CommandLine& line) {
  AddFiles(app, line);
}

constexpr const char* kDescribeHelp =
    "Describe records from standard input, 512 hexadecimal digits a line. A line that is no record "
    "is reported and has no line in the output.";

struct CommandRow {
  const char* name;
  Command command;
  const char* help;
  void (*addOptions)(CLI::App&, CommandLine&);
};

constexpr CommandRow kCommands[] = {
    {"list",     Command::kList,     "List the entries, one a line",              AddList   },
    {"show",     Command::kShow,     "Show every field of one entry",             AddShow   },
    {"info",     Command::kInfo,     "Count the entries and check their numbers", AddInfo   },
    {"export",   Command::kExport,   "Write the entries for another program",     AddExport },
    {"describe", Command::kDescribe, kDescribeHelp,                               AddNothing},
    {"sample",   Command::kSample,   "Make a log for trials",                     AddSample },
    {"read",     Command::kRead,     "Read the log of a machine",                 AddRead   },
};

// The command that the arguments call, or nothing.
const CLI::App* CalledCommand(const CLI::App& app, const std::vector<std::string>& arguments) {
  for (const std::string& argument : arguments) {
    const std::vector<const CLI::App*> called = app.get_subcommands(
        [&argument](const CLI::App* command) { return command->get_name() == argument; });
    if (!called.empty()) return called.front();
  }
  return nullptr;
}

// True for an option whose value is the next argument.
bool TakesNext(const CLI::App& command, const std::string& argument) {
  if (!argument.starts_with("-")) return false;
  const CLI::Option* const option = command.get_option_no_throw(argument);
  return option != nullptr && option->get_items_expected_max() > 0;
}

// What CLI11 would read otherwise than a user means it.
std::vector<std::string> Prepared(const CLI::App& app, const std::vector<std::string>& arguments) {
  std::vector<std::string> prepared = arguments;
  const CLI::App* const command = CalledCommand(app, arguments);
  const bool takesFiles = command != nullptr && command->get_option_no_throw("FILE") != nullptr;
  bool isValue = false;
  bool optionsEnded = false;
  for (std::string& argument : prepared) {
    const bool isFile = takesFiles && !std::exchange(isValue, false);
    // Brackets would be a list of names, and this is the name of a file.
    if (isFile && argument.starts_with("[")) argument.insert(0, "./");
    // The next argument would become the value.
    if (argument.starts_with("--") && argument.find('=') == argument.size() - 1) {
      throw CLI::ValidationError("'" + argument + "' has no value");
    }
    if (argument == "--") optionsEnded = true;
    isValue = isFile && !optionsEnded && TakesNext(*command, argument);
  }
  return prepared;
}

void AddCommands(CLI::App& app, const std::vector<std::string>& arguments, CommandLine& line,
                 bool& version) {
  for (const CommandRow& row : kCommands) {
    CLI::App* const command = app.add_subcommand(row.name, row.help);
    command->callback([&line, &row] { line.command = row.command; });
    // Only the command that is called gets its options: a start takes no longer than it must.
    if (std::find(arguments.begin(), arguments.end(), row.name) == arguments.end()) continue;
    row.addOptions(*command, line);
    // It works behind a command too; its place in the help is in front.
    command->add_flag("--version", version)->group("");
  }
}

void Explain(const CLI::App& app, const CLI::ParseError& error, ParsedCommandLine& parsed) {
  std::ostringstream out;
  std::ostringstream err;
  const bool asked = app.exit(error, out, err) == 0;
  parsed.output = out.str();
  parsed.error = err.str();
  parsed.exitStatus = asked ? kExitDone : kExitUsage;
}

}  // namespace

ParsedCommandLine ParseCommandLine(const std::vector<std::string>& arguments) {
  CommandLine line;
  CLI::App app(kDescription, "qvlog");
  app.allow_windows_style_options(false);  // a path may begin with a slash
  bool version = false;
  app.add_flag("--version", version, "Print the version and exit");
  app.require_subcommand(0, 1);
  AddCommands(app, arguments, line, version);
  app.footer(kExamples);  // now, so that the commands do not repeat it
  ParsedCommandLine parsed;
  try {
    std::vector<std::string> reversed = Prepared(app, arguments);
    std::reverse(reversed.begin(), reversed.end());
    app.parse(reversed);
    if (version) {
      // Not CLI11's own version flag: that one throws, and the first exception of a statically
      // linked program costs more than the rest of its life.
      parsed.output = kVersionLine;
      return parsed;
    }
    if (app.get_subcommands().empty()) throw CLI::RequiredError("A command");
    if (std::count(line.files.begin(), line.files.end(), "-") > 1) {
      throw CLI::ValidationError("standard input (-) can be read only once");
    }
    parsed.run = std::move(line);
  } catch (const CLI::RequiredError& error) {
    // Who asks a command for the version has nothing for it to do.
    if (version) {
      parsed.output = kVersionLine;
    } else {
      Explain(app, error, parsed);
    }
  } catch (const CLI::ParseError& error) {
    Explain(app, error, parsed);
  }
  return parsed;
}

}  // namespace qvl
