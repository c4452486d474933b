#ifndef QVL_BENCH_MEASURING_H_
#define QVL_BENCH_MEASURING_H_

#include <sys/types.h>

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace qvl::bench {

using Clock = std::chrono::steady_clock;

double Seconds(Clock::duration duration);
double SecondsSince(Clock::time_point begun);

/// Of at least one value; of an even number the upper of the two in the middle.
double Median(std::vector<double> values);

/// What stands behind a figure and its limit.
const char* Verdict(bool met);

/// Starts the program words[0] with the words as its arguments, in the same folder and environment.
/// output  becomes its standard output; below 0 it has this process's.
/// Returns the process, which the caller waits for, or nothing when it cannot be started.
std::optional<pid_t> StartProgram(std::vector<std::string> words, int output = -1);

}  // namespace qvl::bench

#endif  // QVL_BENCH_MEASURING_H_
