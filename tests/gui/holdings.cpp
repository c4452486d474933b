// What a running program holds, for tests that watch it over a long time:
//
//   holdings PROGRAM.exe
//
// prints its memory in KiB, its handles, with those of windows and drawing, and the processes that
// it started.
#include <windows.h>
// After windows.h, which they need.
#include <psapi.h>
#include <tlhelp32.h>

#include <cstdio>
#include <string>
#include <vector>

#include "tests/e2e/handle_count_windows.h"

namespace {

std::vector<PROCESSENTRY32> Processes() {
  std::vector<PROCESSENTRY32> processes;
  const HANDLE snapshot = ::CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
  PROCESSENTRY32 entry = {};
  entry.dwSize = sizeof entry;
  for (BOOL more = ::Process32First(snapshot, &entry); more != 0;
       more = ::Process32Next(snapshot, &entry)) {
    processes.push_back(entry);
  }
  ::CloseHandle(snapshot);
  return processes;
}

int Print(DWORD id, int children) {
  const HANDLE process = ::OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, id);
  if (process == nullptr) return 1;
  PROCESS_MEMORY_COUNTERS memory = {};
  DWORD handles = qvl::test::HandlesOf(id);
  const bool known = ::GetProcessMemoryInfo(process, &memory, sizeof memory) != 0 && handles > 0;
  handles += ::GetGuiResources(process, GR_GDIOBJECTS) + ::GetGuiResources(process, GR_USEROBJECTS);
  ::CloseHandle(process);
  if (!known) return 1;
  std::printf("%lu %lu %d\n", static_cast<unsigned long>(memory.WorkingSetSize / 1024),
              static_cast<unsigned long>(handles), children);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: holdings PROGRAM.exe\n", stderr);
    return 2;
  }
  const std::vector<PROCESSENTRY32> processes = Processes();
  for (const PROCESSENTRY32& process : processes) {
    if (std::string(argv[1]) != process.szExeFile) continue;
    int children = 0;
    for (const PROCESSENTRY32& other : processes) {
      if (other.th32ParentProcessID == process.th32ProcessID) ++children;
    }
    return Print(process.th32ProcessID, children);
  }
  std::fprintf(stderr, "%s does not run\n", argv[1]);
  return 1;
}
