#include "bench/scratch.h"

#include <malloc.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>

#include "files/log_file.h"

namespace qvl::bench {

Scratch& TheScratch() {
  static Scratch scratch;
  return scratch;
}

const EntryList& TheEntries() {
  static const EntryList* const entries = [] {
    auto* const list = new EntryList;
    const LogFileResult result = LoadLogFile(TheScratch().logFile, *list);
    if (!result.ok()) {
      std::fprintf(stderr, "%s\n", result.message.c_str());
      std::exit(1);
    }
    return list;
  }();
  return *entries;
}

namespace {

// A line "NAME:   1234 kB" of the process's status.
std::size_t StatusBytes(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with(name + ":")) return std::stoul(line.substr(name.size() + 1)) * 1024;
  }
  return 0;
}

}  // namespace

std::size_t ResidentNow() {
  malloc_trim(0);
  return StatusBytes("VmRSS");
}
std::size_t ResidentPeak() {
  return StatusBytes("VmHWM");
}
void ResetResidentPeak() {
  malloc_trim(0);
  std::ofstream("/proc/self/clear_refs") << 5;
}

}  // namespace qvl::bench
