#ifndef QVL_TOOLS_QVLOG_QVLOG_H_
#define QVL_TOOLS_QVLOG_QVLOG_H_

#include <string>
#include <vector>

#include "platform/byte_stream.h"
#include "platform/local_time.h"

namespace qvl {

/// What a run of qvlog reads and writes beside files, and the time it takes for now.
struct Console {
  ByteSource& input;
  ByteSink& output;
  ByteSink& error;
  Moment now;
};

/// Exit statuses.
inline constexpr int kExitDone = 0;
inline constexpr int kExitFailure = 1;
inline constexpr int kExitUsage = 2;

/// Runs qvlog. Data goes to the console's output, messages to its error stream.
/// arguments  without the program's name.
/// Returns the exit status.
int RunQvlog(const std::vector<std::string>& arguments, Console& console);

}  // namespace qvl

#endif  // QVL_TOOLS_QVLOG_QVLOG_H_
