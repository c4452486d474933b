// What the program does, on a log of 1,000,000 generated entries.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

#include <array>
#include <filesystem>
#include <numeric>

#include "bench/scratch.h"
#include "entries/event_description.h"
#include "files/csv_export.h"
#include "files/log_file.h"
#include "viewer/model/filter.h"
#include "viewer/model/list_model.h"
#include "viewer/model/sort.h"

extern char** environ;

namespace qvl::bench {
namespace {

constexpr Moment kNow = 1795176000;  // 2026-11-20 12:00 UTC, where the generated year ends

void Describe(benchmark::State& state) {
  const EntryList& entries = TheEntries();
  std::array<char, kDescriptionSize> buffer;
  std::size_t i = 0;
  for (auto _ : state) {
    FormatEntryDescription(entries[i].raw(), buffer.data(), buffer.size());
    benchmark::DoNotOptimize(buffer);
    benchmark::ClobberMemory();
    if (++i == entries.size()) i = 0;
  }
}
BENCHMARK(Describe)->Name("figure/describe");

void OpenLog(benchmark::State& state) {
  for (auto _ : state) {
    EntryList entries;
    if (!LoadLogFile(TheScratch().logFile, entries).ok()) state.SkipWithError("cannot load");
    ListModel model(entries);
    model.Refill(kNow);
    benchmark::DoNotOptimize(model.EntryIndexAt(0));
  }
}
BENCHMARK(OpenLog)->Name("figure/open")->Unit(benchmark::kMillisecond);

void SortBy(benchmark::State& state, Column column) {
  const EntryList& entries = TheEntries();
  std::vector<EntryIndex> rows(entries.size());
  std::iota(rows.begin(), rows.end(), EntryIndex{0});
  for (auto _ : state) {
    const std::vector<EntryIndex> sorted = SortedRows(entries, rows, column, true);
    benchmark::DoNotOptimize(sorted.data());
  }
}
BENCHMARK_CAPTURE(SortBy, description, Column::kDescription)
    ->Name("figure/sort by description")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(SortBy, class, Column::kClass)
    ->Name("figure/sort by class")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(SortBy, severity, Column::kSeverity)
    ->Name("figure/sort by severity")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(SortBy, count, Column::kCount)
    ->Name("figure/sort by count")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(SortBy, update, Column::kUpdateTime)
    ->Name("figure/sort by update time")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(SortBy, initial, Column::kInitialTime)
    ->Name("figure/sort by initial time")
    ->Unit(benchmark::kMillisecond);

void Filter(benchmark::State& state, StringId eventClass, StringId severity, StringId updateTime) {
  const EntryList& entries = TheEntries();
  FilterChoices choices;
  choices.eventClass = GetString(eventClass);
  choices.severity = GetString(severity);
  choices.updateTime = GetString(updateTime);
  for (auto _ : state) {
    const std::vector<EntryIndex> rows = FilterEntries(entries, choices, kNow);
    benchmark::DoNotOptimize(rows.data());
  }
}
BENCHMARK_CAPTURE(Filter, class, StringId::kClassMainMemory, StringId::kAll, StringId::kAll)
    ->Name("figure/filter by class")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Filter, severity, StringId::kAll, StringId::kSeverityCaution, StringId::kAll)
    ->Name("figure/filter by severity")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Filter, time, StringId::kAll, StringId::kAll, StringId::kSinceLastMonth)
    ->Name("figure/filter by update time")
    ->Unit(benchmark::kMillisecond);

void Export(benchmark::State& state) {
  const EntryList& entries = TheEntries();
  const std::string path = TheScratch().folder + "/export.csv";
  for (auto _ : state) {
    state.PauseTiming();
    std::filesystem::remove(path);
    state.ResumeTiming();
    if (!ExportCsvFile(path, "SRV1", entries).ok()) state.SkipWithError("cannot export");
  }
  state.counters["bytes"] =
      benchmark::Counter(static_cast<double>(std::filesystem::file_size(path)),
                         benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK(Export)->Name("figure/export")->Unit(benchmark::kMillisecond);

// From spawn to exit, the output thrown away.
void Start(benchmark::State& state, const char* program) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
  std::string version = "--version";
  std::string name = program;
  std::array<char*, 3> arguments = {name.data(), version.data(), nullptr};
  for (auto _ : state) {
    pid_t child = 0;
    int status = 0;
    if (posix_spawn(&child, program, &actions, nullptr, arguments.data(), environ) != 0 ||
        ::waitpid(child, &status, 0) != child || status != 0) {
      state.SkipWithError("cannot start");
    }
  }
  posix_spawn_file_actions_destroy(&actions);
}
BENCHMARK_CAPTURE(Start, qvlog, QVLOG_PATH)->Name("figure/start")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Start, one_line, ONE_LINE_PROGRAM_PATH)
    ->Name("limit/start")
    ->Unit(benchmark::kMicrosecond);

// Not a time: memory at its largest while a log is loaded, sorted by each column and filtered.
void Memory(benchmark::State& state) {
  TheEntries();
  for (auto _ : state) {
    ResetResidentPeak();
    const std::size_t before = ResidentNow();
    EntryList entries;
    if (!LoadLogFile(TheScratch().logFile, entries).ok()) state.SkipWithError("cannot load");
    ListModel model(entries);
    model.Refill(kNow);
    for (const ListColumn& column : ListColumns()) model.ClickHeader(column.column);
    const auto held = static_cast<double>(ResidentNow() - before);
    FilterChoices choices;
    choices.severity = GetString(StringId::kSeverityInformational);
    model.SetFilter(choices);
    model.Refill(kNow);
    const auto perEntry = static_cast<double>(entries.size());
    state.counters["held"] = held / perEntry;
    state.counters["peak"] = static_cast<double>(ResidentPeak() - before) / perEntry;
  }
}
BENCHMARK(Memory)->Name("figure/memory")->Iterations(1);

}  // namespace
}  // namespace qvl::bench
