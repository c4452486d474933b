// How fast a machine's log is read, and how little a batch run needs before its first call: on the
// substitute service, beside what Samba's library does with bare calls through the same pipe.
//
//   qvl_remote_bench read MACHINE            reads the log, against bare calls of the same sizes
//   qvl_remote_bench start MACHINE PROGRAM   starts batch mode; the service must refuse the user,
//                                            so that the run ends with its first call
#include <sys/resource.h>
#include <sys/wait.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "access/log_walk.h"
#include "access/remote_call_helper/samba_connection.h"
#include "access/remote_monitor_client.h"
#include "bench/measuring.h"

namespace qvl::bench {
namespace {

constexpr int kRounds = 9;
constexpr double kLeastShare = 0.5;
constexpr double kMostStartSeconds = 0.050;
constexpr std::uint32_t kReadLogEntry = 1;
constexpr std::size_t kReadReplySize = 268;

// Entries a second through the program's own client; 0 after a failure.
double ReadRate(const std::string& machine, std::size_t& entries) {
  RemoteMonitorClient& client = ProcessRemoteMonitorClient();
  std::int32_t isAdministrator = 0;
  if (client.Connect(machine, isAdministrator) != kRemoteOk) return 0;
  entries = 0;
  const auto begun = Clock::now();
  const WalkResult result = WalkLog(client, [&entries](const RawLogEntry&) {
    ++entries;
    return true;
  });
  const double seconds = SecondsSince(begun);
  client.Disconnect();
  if (result.end != WalkEnd::kEndOfLog) return 0;
  return static_cast<double>(entries) / seconds;
}

// Calls a second of one request, over and over, with nothing around it; 0 after a failure.
double BareRate(const std::string& machine, std::size_t calls) {
  SambaConnection connection;
  if (connection.Connect(machine) != kRemoteOk) return 0;
  const std::array<std::uint8_t, 8> request{};  // entry 0, reserved 0
  const auto begun = Clock::now();
  for (std::size_t i = 0; i < calls; ++i) {
    const CallResult result = connection.Call(kReadLogEntry, request);
    if (result.end != CallEnd::kReturned || result.reply.size() != kReadReplySize) return 0;
  }
  return static_cast<double>(calls) / SecondsSince(begun);
}

int Read(const std::string& machine) {
  std::vector<double> shares;
  std::vector<double> reads;
  std::vector<double> bares;
  for (int round = 0; round < kRounds; ++round) {
    std::size_t entries = 0;
    const double read = ReadRate(machine, entries);
    const double bare = BareRate(machine, entries);
    if (read <= 0 || bare <= 0) {
      std::fprintf(stderr, "the machine %s cannot be read\n", machine.c_str());
      return 1;
    }
    reads.push_back(read);
    bares.push_back(bare);
    shares.push_back(read / bare);
  }
  const double share = Median(shares);
  std::printf("\n%-46s %12s %12s %8s %8s\n", "a machine's log : bare calls, a second", "figure",
              "limit", "ratio", "at least");
  std::printf("%-46s %12.0f %12.0f %8.2f %8.2f  %s\n", "entries read : calls", Median(reads),
              Median(bares), share, kLeastShare, Verdict(share >= kLeastShare));
  return 0;
}

// Processor time of one batch run and of what it started; below 0 after a failure.
double StartSeconds(const std::string& machine, const std::string& program) {
  const std::optional<pid_t> process = StartProgram({program, "/f:start.log", "/m:" + machine});
  if (!process) return -1;
  int status = 0;
  rusage usage = {};
  if (::wait4(*process, &status, 0, &usage) != *process || !WIFEXITED(status) ||
      WEXITSTATUS(status) != 1) {
    return -1;
  }
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

int Start(const std::string& machine, const std::string& program) {
  std::vector<double> values;
  for (int round = 0; round < 2 * kRounds; ++round) {
    const double value = StartSeconds(machine, program);
    if (value < 0) {
      std::fprintf(stderr, "%s did not end as expected\n", program.c_str());
      return 1;
    }
    values.push_back(value);
  }
  const double median = Median(values);
  std::printf("\n%-46s %12s %12s\n", "own processor time, milliseconds", "figure", "at most");
  std::printf("%-46s %12.1f %12.1f  %s\n", "batch mode, from start to the first call's end",
              median * 1e3, kMostStartSeconds * 1e3, Verdict(median <= kMostStartSeconds));
  return 0;
}

int Main(const std::vector<std::string>& arguments) {
  if (arguments.size() == 2 && arguments[0] == "read") return Read(arguments[1]);
  if (arguments.size() == 3 && arguments[0] == "start") return Start(arguments[1], arguments[2]);
  std::fputs("usage: qvl_remote_bench read MACHINE | start MACHINE PROGRAM\n", stderr);
  return 2;
}

}  // namespace
}  // namespace qvl::bench

int main(int argc, char** argv) {
  return qvl::bench::Main({argv + 1, argv + argc});
}
