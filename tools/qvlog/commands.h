#ifndef QVL_TOOLS_QVLOG_COMMANDS_H_
#define QVL_TOOLS_QVLOG_COMMANDS_H_

#include <functional>

#include "entries/event_log_entry.h"
#include "files/buffered_writer.h"
#include "tools/qvlog/command_line.h"
#include "tools/qvlog/qvlog.h"

namespace qvl {

// Each command returns its exit status.
int RunList(const CommandLine& line, Console& console);
int RunShow(const CommandLine& line, Console& console);
int RunInfo(const CommandLine& line, Console& console);
int RunExport(const CommandLine& line, Console& console);
int RunDescribe(Console& console);
int RunSample(const CommandLine& line, Console& console);

/// Reads the files and gives the selected entries to `write`, in the order of the files or of the
/// sort; without a sort in constant memory.
/// begin  called once, before the first entry, when at least one file proved to be a log.
/// write  returns false when writing failed, which ends the reading.
/// Returns true when every file was read.
bool WriteSelected(const CommandLine& line, Console& console, const std::function<bool()>& begin,
                   const std::function<bool(const CEventLogEntry&)>& write);

/// Finishes the console's output and tells the exit status of a command that read `allRead`.
int FinishOutput(BufferedWriter& out, bool allRead, Console& console);

}  // namespace qvl

#endif  // QVL_TOOLS_QVLOG_COMMANDS_H_
