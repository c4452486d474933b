// Prints each figure beside the limit that was measured in the same run.
//   qvl_bench LOG FOLDER [Google Benchmark's options]
#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "bench/measuring.h"
#include "bench/scratch.h"

namespace qvl::bench {
namespace {

// Collects the repetitions of each benchmark; the table is printed at the end.
class Collector : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context& /*context*/) override { return true; }

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration) continue;
      const std::string name = run.run_name.function_name;
      if (run.error_occurred) failures_.push_back(name + ": " + run.error_message);
      seconds_[name].push_back(run.real_accumulated_time / static_cast<double>(run.iterations));
      for (const auto& [counter, value] : run.counters) counters_[name + "/" + counter] = value;
      std::fprintf(stderr, "\r%-40s", name.c_str());
    }
  }

  double Seconds(const std::string& name) {
    const std::vector<double>& values = seconds_[name];
    return values.empty() ? 0 : Median(values);
  }
  double Counter(const std::string& name) { return counters_[name]; }
  const std::vector<std::string>& failures() const { return failures_; }

 private:
  std::map<std::string, std::vector<double>> seconds_;
  std::map<std::string, double> counters_;
  std::vector<std::string> failures_;
};

struct RatioRow {
  const char* what;
  const char* figure;
  const char* limit;
  double target;  // the figure's time is at most this many times the limit's
};

constexpr RatioRow kRatios[] = {
    {"describe a record : snprintf of a line",      "figure/describe",             "limit/snprintf",            2  },
    {"open, list sorted : copy and radix sort",     "figure/open",                 "limit/copy and radix sort", 3  },
    {"sort by description : std::sort of strings",  "figure/sort by description",
     "limit/sort strings",                                                                                      1.5},
    {"sort by class : radix sort",                  "figure/sort by class",        "limit/radix sort",          2  },
    {"sort by severity : radix sort",               "figure/sort by severity",     "limit/radix sort",          2  },
    {"sort by count : radix sort",                  "figure/sort by count",        "limit/radix sort",          2  },
    {"sort by update time : radix sort",            "figure/sort by update time",  "limit/radix sort",          2  },
    {"sort by initial time : radix sort",           "figure/sort by initial time", "limit/radix sort",          2  },
    {"qvlog --version : one-line static C program", "figure/start",                "limit/start",               2  },
};

void PrintRatios(Collector& results) {
  std::printf("%-46s %12s %12s %8s %8s\n", "figure : limit, one core", "figure", "limit", "ratio",
              "at most");
  for (const RatioRow& row : kRatios) {
    const double figure = results.Seconds(row.figure);
    const double limit = results.Seconds(row.limit);
    std::printf("%-46s %9.3f us %9.3f us %8.2f %8.2f  %s\n", row.what, figure * 1e6, limit * 1e6,
                figure / limit, row.target, Verdict(figure <= row.target * limit));
  }
}

void PrintRates(Collector& results) {
  const auto rows = static_cast<double>(TheEntries().size());
  std::printf("\n%-46s %12s %12s\n", "rate, one core", "a second", "at least");
  constexpr double kFilterRate = 50e6;
  for (const char* name :
       {"figure/filter by class", "figure/filter by severity", "figure/filter by update time"}) {
    const double rate = rows / results.Seconds(name);
    std::printf("%-46s %12.0f %12.0f  %s\n", name + sizeof "figure", rate, kFilterRate,
                Verdict(rate >= kFilterRate));
  }
  constexpr double kExportRate = 3e6;
  const double exported = rows / results.Seconds("figure/export");
  std::printf("%-46s %12.0f %12.0f  %s\n", "entries exported as CSV", exported, kExportRate,
              Verdict(exported >= kExportRate));
  const double bytes = results.Counter("figure/export/bytes");
  const double limit = results.Counter("limit/write/bytes");
  std::printf("%-46s %12.0f %12.0f  %s (half of write(): %.0f)\n", "bytes exported as CSV", bytes,
              limit / 2, Verdict(bytes >= limit / 2), limit);
}

void PrintMemory(Collector& results) {
  constexpr double kMemory = 320;
  const double peak = results.Counter("figure/memory/peak");
  std::printf("\n%-46s %12s %12s\n", "own memory, bytes an entry", "figure", "at most");
  std::printf("%-46s %12.1f\n", "loaded and sorted", results.Counter("figure/memory/held"));
  std::printf("%-46s %12.1f %12.0f  %s\n", "at its peak, sorting by each column, filtering", peak,
              kMemory, Verdict(peak <= kMemory));
}

int Main(int argc, char** argv) {
  if (argc < 3) {
    std::fprintf(stderr, "usage: qvl_bench LOG FOLDER [--benchmark_...]\n");
    return 2;
  }
  TheScratch() = {argv[1], argv[2]};
  argv[2] = argv[0];
  int count = argc - 2;
  benchmark::Initialize(&count, argv + 2);
  Collector results;
  benchmark::RunSpecifiedBenchmarks(&results);
  std::fprintf(stderr, "\r%-40s\r", "");
  for (const std::string& failure : results.failures()) {
    std::fprintf(stderr, "%s\n", failure.c_str());
  }
  PrintRatios(results);
  PrintRates(results);
  PrintMemory(results);
  return results.failures().empty() ? 0 : 1;
}

}  // namespace
}  // namespace qvl::bench

int main(int argc, char** argv) {
  return qvl::bench::Main(argc, argv);
}
