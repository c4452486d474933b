// What the machine allows, measured in the same run as the figures it is held against.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <random>
#include <vector>

#include "bench/scratch.h"
#include "files/log_file.h"

namespace qvl::bench {
namespace {

constexpr std::size_t kRows = 1000000;
constexpr std::size_t kBlock = std::size_t{1} << 20U;

// One line of sixty characters with four values.
void SnprintfLine(benchmark::State& state) {
  std::array<char, 128> line;
  unsigned value = 0;
  for (auto _ : state) {
    ++value;
    std::snprintf(line.data(), line.size(),
                  "PCI slot %u function %u bus error, device 0x%02X vendor 0x%02X", value & 63U,
                  value & 7U, value & 255U, (value >> 4U) & 255U);
    benchmark::DoNotOptimize(line);
    benchmark::ClobberMemory();
  }
}
BENCHMARK(SnprintfLine)->Name("limit/snprintf");

struct Pair {
  std::uint64_t key;
  std::uint64_t row;
};

// Eight-bit digits over the 32 bits that vary, into memory of its own.
void RadixSortPairs(const std::vector<std::uint32_t>& keys) {
  std::vector<Pair> from(keys.size());
  std::vector<Pair> to(keys.size());
  for (std::size_t i = 0; i < keys.size(); ++i) from[i] = {keys[i], i};
  constexpr unsigned kDigitBits = 11;
  for (unsigned shift = 0; shift < 32; shift += kDigitBits) {
    std::array<std::uint32_t, 1U << kDigitBits> places{};
    constexpr std::uint64_t kMask = places.size() - 1;
    for (const Pair& pair : from) ++places[pair.key >> shift & kMask];
    std::uint32_t sum = 0;
    for (std::uint32_t& place : places) sum += std::exchange(place, sum);
    for (const Pair& pair : from) to[places[pair.key >> shift & kMask]++] = pair;
    from.swap(to);
  }
  benchmark::DoNotOptimize(from.data());
}

const std::vector<std::uint32_t>& RandomKeys() {
  static const std::vector<std::uint32_t> keys = [] {
    std::mt19937 random(7);
    std::vector<std::uint32_t> values(kRows);
    for (std::uint32_t& value : values) value = static_cast<std::uint32_t>(random());
    return values;
  }();
  return keys;
}

void RadixSort(benchmark::State& state) {
  const std::vector<std::uint32_t>& keys = RandomKeys();
  for (auto _ : state) RadixSortPairs(keys);
}
BENCHMARK(RadixSort)->Name("limit/radix sort")->Unit(benchmark::kMillisecond);

// The records of the log's file, once from the page cache into memory of their own.
void CopyRecords() {
  const int file = ::open(TheScratch().logFile.c_str(), O_RDONLY | O_CLOEXEC);
  std::vector<char> block(kBlock);
  const std::size_t records =
      (std::filesystem::file_size(TheScratch().logFile) - kLogFileHeaderSize) / kLogFileRecordSize;
  const auto copy = std::make_unique_for_overwrite<char[]>(records * sizeof(RawLogEntry));
  ::lseek(file, kLogFileHeaderSize, SEEK_SET);
  char* to = copy.get();
  for (ssize_t got = 0; (got = ::read(file, block.data(), block.size())) > 0;) {
    for (std::size_t at = 0; at + kLogFileRecordSize <= static_cast<std::size_t>(got);
         at += kLogFileRecordSize, to += sizeof(RawLogEntry)) {
      std::memcpy(to, block.data() + at, sizeof(RawLogEntry));
    }
  }
  benchmark::DoNotOptimize(copy.get());
  ::close(file);
}

void CopyAndRadixSort(benchmark::State& state) {
  const std::vector<std::uint32_t>& keys = RandomKeys();
  for (auto _ : state) {
    CopyRecords();
    RadixSortPairs(keys);
  }
}
BENCHMARK(CopyAndRadixSort)->Name("limit/copy and radix sort")->Unit(benchmark::kMillisecond);

void SortStringPointers(benchmark::State& state) {
  struct Text {
    std::array<char, 60> bytes;
  };
  std::mt19937 random(7);
  std::vector<Text> texts(kRows);
  for (Text& text : texts) {
    text.bytes.fill('.');
    const int length = std::snprintf(
        text.bytes.data(), text.bytes.size(), "Fan %u speed below minimum in zone %u, 0x%08X",
        static_cast<unsigned>(random() & 63U), static_cast<unsigned>(random() & 7U),
        static_cast<unsigned>(random()));
    text.bytes[static_cast<std::size_t>(length)] = '.';
  }
  std::vector<const Text*> pointers(kRows);
  for (auto _ : state) {
    state.PauseTiming();
    for (std::size_t i = 0; i < kRows; ++i) pointers[i] = &texts[i];
    state.ResumeTiming();
    std::sort(pointers.begin(), pointers.end(), [](const Text* a, const Text* b) {
      return std::memcmp(a->bytes.data(), b->bytes.data(), a->bytes.size()) < 0;
    });
  }
}
BENCHMARK(SortStringPointers)->Name("limit/sort strings")->Unit(benchmark::kMillisecond);

// As many bytes as the export writes, in large blocks, to a new file.
void WriteFile(benchmark::State& state) {
  const std::string path = TheScratch().folder + "/limit.out";
  const std::vector<char> block(kBlock, 'x');
  constexpr std::size_t kBlocks = 136;
  for (auto _ : state) {
    state.PauseTiming();
    std::filesystem::remove(path);
    state.ResumeTiming();
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
    for (std::size_t i = 0; i < kBlocks; ++i) {
      if (::write(file, block.data(), block.size()) < 0) state.SkipWithError("cannot write");
    }
    ::close(file);
  }
  state.counters["bytes"] = benchmark::Counter(static_cast<double>(kBlocks * kBlock),
                                               benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK(WriteFile)->Name("limit/write")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace qvl::bench
