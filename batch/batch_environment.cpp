#include "batch/batch_runner.h"
#include "platform/system_names.h"

namespace qvl {
namespace {

// What a machine's service keeps of a name, its terminating zero included.
constexpr std::size_t kUserNameCapacity = 32;

}  // namespace

BatchEnvironment ProcessBatchEnvironment(int argc, const char* const* argv) {
  return {.client = ProcessRemoteMonitorClient(),
          .computerName = ComputerName(),
          .userName =
              [] {
                std::string name;
                LoggedOnUserName(kUserNameCapacity, name);
                return name;
              },
          .commandLine = ProcessCommandLine(argc, argv),
          .lineEnd = kSystemLineEnd,
          .now = Now,
          .openDefaultPrinter = OpenDefaultPrinter};
}

}  // namespace qvl
