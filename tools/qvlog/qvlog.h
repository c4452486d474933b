#ifndef QVL_TOOLS_QVLOG_QVLOG_H_
#define QVL_TOOLS_QVLOG_QVLOG_H_

#include <functional>
#include <string>
#include <vector>

#include "access/remote_monitor_client.h"
#include "platform/byte_stream.h"
#include "platform/local_time.h"

namespace qvl {

/// What a run of qvlog reads and writes beside files, and the time it takes for now.
struct Console {
  ByteSource& input;
  ByteSink& output;
  ByteSink& error;
  Moment now;

  /// The client that machines are read through, asked for only when one is to be read. Without it
  /// no machine is ever called.
  std::function<RemoteMonitorClient&()> client = {};

  /// True when a person reads along.
  bool outputIsTerminal = false;
  bool errorIsTerminal = false;
};

/// Exit statuses.
inline constexpr int kExitDone = 0;
inline constexpr int kExitFailure = 1;
inline constexpr int kExitUsage = 2;
inline constexpr int kExitInterrupted = 130;  // as shells tell of Ctrl+C

/// Runs qvlog. Data goes to the console's output, messages to its error stream.
/// arguments  without the program's name.
/// Returns the exit status.
int RunQvlog(const std::vector<std::string>& arguments, Console& console);

}  // namespace qvl

#endif  // QVL_TOOLS_QVLOG_QVLOG_H_
