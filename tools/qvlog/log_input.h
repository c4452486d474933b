#ifndef QVL_TOOLS_QVLOG_LOG_INPUT_H_
#define QVL_TOOLS_QVLOG_LOG_INPUT_H_

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "entries/event_log_entry.h"
#include "tools/qvlog/qvlog.h"

namespace qvl {

/// Takes the next entries of a log. Called once without entries when a file proved to be a log,
/// so that an empty log is one too. Returns false to stop reading.
using TakeEntries = std::function<bool(std::span<const CEventLogEntry>)>;

/// Reads log files one after the other, in constant memory. A file that fails is reported on the
/// console and the next one goes on.
/// Returns true when every file was read to its end (or `take` stopped).
bool ReadLogs(const std::vector<std::string>& files, Console& console, const TakeEntries& take);

/// Reports on the console: "qvlog: MESSAGE", control characters made visible. An empty message
/// (a reader that went away) is not reported.
void Report(Console& console, const std::string& message);

}  // namespace qvl

#endif  // QVL_TOOLS_QVLOG_LOG_INPUT_H_
