#ifndef QVL_BATCH_BATCH_RUNNER_H_
#define QVL_BATCH_BATCH_RUNNER_H_

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "access/remote_monitor_client.h"
#include "platform/local_time.h"
#include "platform/printer.h"

namespace qvl {

/// Exit statuses of a batch run.
inline constexpr int kBatchExitFinished = 0;
inline constexpr int kBatchExitDidNothing = 1;    ///< mistaken arguments, or no log to work on
inline constexpr int kBatchExitSwitchFailed = 2;  ///< finished; not all of it was done or read
inline constexpr int kBatchExitNoRunLog = 3;      ///< without a run log nothing is done

/// What a batch run works with; a test gives its own.
struct BatchEnvironment {
  RemoteMonitorClient& client;
  std::string computerName;
  std::function<std::string()> userName;  ///< empty when the system does not tell
  std::string commandLine;                ///< the whole command line, for the run log
  std::string lineEnd;                    ///< of the run log and the report
  std::function<Moment()> now;
  std::function<std::unique_ptr<Printer>()> openDefaultPrinter;
};

/// The environment of this process, with the process's client.
BatchEnvironment ProcessBatchEnvironment(int argc, const char* const* argv);

/// True when the arguments (without the program's name) ask for batch mode: the first one begins
/// with '-' or '/'.
bool IsBatchCommandLine(const std::vector<std::string>& arguments);

/// The program without a window: connects to one machine, reads its log, carries out the switches
/// and writes what it did into a run log (docs/batch.md).
class BatchRunner {
 public:
  explicit BatchRunner(BatchEnvironment environment) : environment_(std::move(environment)) {}

  /// arguments  without the program's name.
  /// Returns the exit status. Shows nothing on any screen, and throws nothing.
  int Run(const std::vector<std::string>& arguments);

 private:
  BatchEnvironment environment_;
};

}  // namespace qvl

#endif  // QVL_BATCH_BATCH_RUNNER_H_
