// Holds the client to its room: a thousand connections and a long walk on a live machine must leave
// no memory and no handle behind, in this process or in one that it started.
//
//   endurance MACHINE CONNECTIONS ENTRIES
//
// Prints what it measured. Exit status 0 when all is flat.

#ifdef _WIN32
#include <windows.h>
// After windows.h, which it needs.
#include <psapi.h>
#include <tlhelp32.h>

#include "tests/e2e/handle_count_windows.h"
#else
#include <unistd.h>
#endif

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "access/log_walk.h"
#include "access/remote_monitor_client.h"

namespace qvl {
namespace {

constexpr int kWarmUp = 20;
constexpr std::int64_t kSlackKiB = 1024;

struct Holdings {
  std::int64_t memoryKiB = 0;
  std::int64_t handles = 0;
  std::int64_t children = 0;
};

#ifdef _WIN32

std::int64_t CountChildren() {
  const HANDLE snapshot = ::CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
  PROCESSENTRY32 entry = {};
  entry.dwSize = sizeof entry;
  std::int64_t count = 0;
  for (BOOL more = ::Process32First(snapshot, &entry); more != 0;
       more = ::Process32Next(snapshot, &entry)) {
    if (entry.th32ParentProcessID == ::GetCurrentProcessId()) ++count;
  }
  ::CloseHandle(snapshot);
  return count;
}

Holdings Measure() {
  PROCESS_MEMORY_COUNTERS memory = {};
  ::GetProcessMemoryInfo(::GetCurrentProcess(), &memory, sizeof memory);
  const DWORD handles = test::HandlesOf(::GetCurrentProcessId());
  return {.memoryKiB = static_cast<std::int64_t>(memory.WorkingSetSize / 1024),
          .handles = static_cast<std::int64_t>(handles),
          .children = CountChildren()};
}

#else

std::int64_t CountChildren() {
  std::int64_t count = 0;
  std::ifstream children("/proc/self/task/" + std::to_string(::getpid()) + "/children");
  for (std::int64_t child = 0; children >> child;) ++count;
  return count;
}

Holdings Measure() {
  std::int64_t pages = 0;
  std::int64_t resident = 0;
  std::ifstream("/proc/self/statm") >> pages >> resident;
  std::int64_t handles = 0;
  for ([[maybe_unused]] const auto& each : std::filesystem::directory_iterator("/proc/self/fd")) {
    ++handles;
  }
  return {.memoryKiB = resident * ::sysconf(_SC_PAGESIZE) / 1024,
          .handles = handles,
          .children = CountChildren()};
}

#endif

bool Connect(RemoteMonitorClient& client, const std::string& machine) {
  std::int32_t isAdministrator = 0;
  const RemoteStatus status = client.Connect(machine, isAdministrator);
  if (status != kRemoteOk) std::printf("connecting: status %u\n", static_cast<unsigned>(status));
  return status == kRemoteOk;
}

bool ConnectOften(RemoteMonitorClient& client, const std::string& machine, int times) {
  for (int i = 0; i < times; ++i) {
    if (!Connect(client, machine) || client.Disconnect() != kRemoteOk) return false;
  }
  return true;
}

bool IsFlat(const char* what, const Holdings& before, const Holdings& after) {
  std::printf("%s: memory %lld to %lld KiB, handles %lld to %lld, processes %lld to %lld\n", what,
              static_cast<long long>(before.memoryKiB), static_cast<long long>(after.memoryKiB),
              static_cast<long long>(before.handles), static_cast<long long>(after.handles),
              static_cast<long long>(before.children), static_cast<long long>(after.children));
  return after.memoryKiB <= before.memoryKiB + kSlackKiB && after.handles <= before.handles &&
         after.children <= before.children;
}

// Reads the whole log; what is held at its tenth part is held at its end, but for the walk's own
// few bytes an entry.
bool WalkIsFlat(RemoteMonitorClient& client, const std::string& machine, std::int64_t expected) {
  if (!Connect(client, machine)) return false;
  std::int64_t count = 0;
  Holdings early;
  Holdings late;
  const WalkResult result = WalkLog(client, [&](const RawLogEntry&) {
    ++count;
    if (count == expected / 10) early = Measure();
    if (count == expected) late = Measure();
    return true;
  });
  client.Disconnect();
  std::printf("walk: %lld entries\n", static_cast<long long>(count));
  return result.end == WalkEnd::kEndOfLog && count == expected && IsFlat("walk", early, late);
}

int Main(const std::string& machine, int connections, std::int64_t entries) {
  RemoteMonitorClient& client = ProcessRemoteMonitorClient();
  if (!ConnectOften(client, machine, kWarmUp)) return 1;
  const Holdings before = Measure();
  if (!ConnectOften(client, machine, connections)) return 1;
  const bool connectionsAreFlat = IsFlat("connections", before, Measure());
  return WalkIsFlat(client, machine, entries) && connectionsAreFlat ? 0 : 1;
}

}  // namespace
}  // namespace qvl

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fputs("usage: endurance MACHINE CONNECTIONS ENTRIES\n", stderr);
    return 2;
  }
  return qvl::Main(argv[1], std::atoi(argv[2]), std::atoll(argv[3]));
}
