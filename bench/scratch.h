#ifndef QVL_BENCH_SCRATCH_H_
#define QVL_BENCH_SCRATCH_H_

#include <cstddef>
#include <string>

#include "entries/entry_list.h"

namespace qvl::bench {

/// The log that every figure is measured on, and a folder beside it for what is written.
struct Scratch {
  std::string logFile;
  std::string folder;
};
Scratch& TheScratch();

/// The log, loaded once.
const EntryList& TheEntries();

/// Memory that this process holds now, and its highest since the reset, in bytes. What programs
/// share, the page cache for one, does not change between the two.
std::size_t ResidentNow();
std::size_t ResidentPeak();
void ResetResidentPeak();

}  // namespace qvl::bench

#endif  // QVL_BENCH_SCRATCH_H_
