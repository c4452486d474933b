#include "tools/sample/sample_log.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <set>
#include <string>
#include <unordered_set>
#include <vector>

#include "entries/event_description.h"
#include "entries/severity.h"

namespace qvl {
namespace {

std::vector<RawLogEntry> ReadAll(std::uint64_t seed, std::uint64_t entries) {
  SampleLog log(seed, entries);
  std::vector<RawLogEntry> all;
  RawLogEntry entry;
  while (log.Next(entry)) all.push_back(entry);
  return all;
}

bool AreSame(const std::vector<RawLogEntry>& left, const std::vector<RawLogEntry>& right) {
  return left.size() == right.size() &&
         std::memcmp(left.data(), right.data(), left.size() * sizeof(RawLogEntry)) == 0;
}

// FNV-1a over the records' bytes.
std::uint64_t HashOf(const std::vector<RawLogEntry>& entries) {
  std::uint64_t hash = 0xCBF29CE484222325U;
  for (const RawLogEntry& entry : entries) {
    for (const std::uint8_t byte :
         std::bit_cast<std::array<std::uint8_t, sizeof(RawLogEntry)>>(entry)) {
      hash = (hash ^ byte) * 0x100000001B3U;
    }
  }
  return hash;
}

constexpr LogTime kBegin{20, 25, 11, 21, 0, 0};
constexpr LogTime kEnd{20, 26, 11, 19, 23, 59};
constexpr LogTime kRead{20, 26, 11, 20, 23, 59};

void ExpectOneYearInOrder(const std::vector<RawLogEntry>& entries) {
  std::uint32_t number = 0;
  LogTime previous = kBegin;
  for (const RawLogEntry& entry : entries) {
    const LogTime initial = entry.initialTime;
    const LogTime update = entry.updateTime;
    const std::uint32_t entryNumber = entry.entryNumber;
    const std::uint32_t count = entry.count;
    ASSERT_EQ(entryNumber, ++number);
    ASSERT_TRUE(initial.HasValidDate() && initial.HasValidTimeOfDay()) << number;
    ASSERT_TRUE(update.HasValidDate() && update.HasValidTimeOfDay()) << number;
    ASSERT_TRUE(previous <= initial && initial <= kEnd) << number;
    ASSERT_TRUE(initial <= update && update <= kRead) << number;
    ASSERT_GE(count, 1U) << number;
    ASSERT_EQ(count > 1, initial < update) << number;
    previous = initial;
  }
}

// A log of enough entries reaches from the first day into the last ones.
void ExpectWholeYear(const std::vector<RawLogEntry>& entries) {
  EXPECT_TRUE(entries.front().initialTime < (LogTime{20, 25, 11, 22, 0, 0}));
  EXPECT_TRUE(entries.back().initialTime > (LogTime{20, 26, 11, 18, 23, 59}));
}

TEST(SampleLog, GivesTheSameBytesOnEverySystem) {
  EXPECT_EQ(HashOf(ReadAll(1, 1000)), 0x21DC10BBA0DF4C78U);
}

TEST(SampleLog, SeedAndCountDecide) {
  const std::vector<RawLogEntry> first = ReadAll(1, 500);
  EXPECT_TRUE(AreSame(first, ReadAll(1, 500)));
  EXPECT_FALSE(AreSame(first, ReadAll(2, 500)));
  std::vector<RawLogEntry> longer = ReadAll(1, 501);
  longer.pop_back();
  EXPECT_FALSE(AreSame(first, longer));
}

TEST(SampleLog, GivesAsManyEntriesAsAsked) {
  for (const std::uint64_t count : {0U, 1U, 2U, 20U, 99U, 100U, 101U, 200U, 1000U, 4321U}) {
    EXPECT_EQ(ReadAll(7, count).size(), count);
  }
}

TEST(SampleLog, NoEntriesLeaveTheRecordAlone) {
  SampleLog log(1, 0);
  RawLogEntry entry{};
  entry.entryNumber = 77;
  EXPECT_FALSE(log.Next(entry));
  EXPECT_FALSE(log.Next(entry));
  EXPECT_EQ(std::uint32_t{entry.entryNumber}, 77U);
}

TEST(SampleLog, BeginsWithTheClearing) {
  for (const std::uint64_t count : {1U, 50U, 200U, 5000U}) {
    const RawLogEntry first = ReadAll(3, count).front();
    EXPECT_EQ(std::uint16_t{first.eventClass}, 33);
    EXPECT_EQ(std::uint16_t{first.eventCode}, 1);
  }
}

TEST(SampleLog, IsOneYearInOrder) {
  for (const std::uint64_t count : {1U, 2U, 30U, 100U, 200U, 3000U, 600000U}) {
    for (const std::uint64_t seed : {1U, 2U, 42U}) {
      if (count > 100000 && seed > 1) continue;
      SCOPED_TRACE(count);
      ExpectOneYearInOrder(ReadAll(seed, count));
    }
  }
  ExpectWholeYear(ReadAll(1, 3000));
  ExpectWholeYear(ReadAll(1, 600000));
}

TEST(SampleLog, ShowsEveryClassInAShortLog) {
  const std::set<int> expected = {0,  1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11,
                                  12, 13, 14, 15, 17, 18, 19, 20, 32, 33, 34, 37};
  for (std::uint64_t seed = 1; seed <= 50; ++seed) {
    for (const std::uint64_t count : {100U, 101U, 200U}) {
      std::set<int> classes;
      for (const RawLogEntry& entry : ReadAll(seed, count)) classes.insert(entry.eventClass);
      EXPECT_EQ(classes, expected) << seed << ' ' << count;
    }
  }
}

// At most one entry in a hundred, and only of the classes without a decoder.
TEST(SampleLog, NearlyEveryEntryHasADescription) {
  for (const std::uint64_t count : {200U, 1000U, 50000U}) {
    for (std::uint64_t seed = 1; seed <= 5; ++seed) {
      std::size_t undescribed = 0;
      for (const RawLogEntry& entry : ReadAll(seed, count)) {
        char text[kDescriptionSize];
        if (FormatEntryDescription(entry, text, sizeof text) == 1) continue;
        ++undescribed;
        EXPECT_TRUE(entry.eventClass == 12 || entry.eventClass == 15) << text;
      }
      EXPECT_LE(undescribed * 100, count) << seed;
    }
  }
}

TEST(SampleLog, MixesSeveritiesLikeAMachine) {
  const std::vector<RawLogEntry> entries = ReadAll(1, 20000);
  std::size_t counts[256] = {};
  for (const RawLogEntry& entry : entries) ++counts[entry.severity];
  const std::size_t informational = counts[kInformationalMinor] + counts[kInformational];
  EXPECT_EQ(informational + counts[kRepaired] + counts[kCaution] + counts[kCritical],
            entries.size());
  EXPECT_GT(informational * 2, entries.size());
  EXPECT_GT(counts[kCaution], counts[kRepaired] + counts[kCritical]);
  EXPECT_GT(counts[kRepaired] * 50, entries.size());
  EXPECT_GT(counts[kCritical] * 50, entries.size());
}

TEST(SampleLog, DescriptionsRepeatButNotAlways) {
  std::unordered_set<std::string> texts;
  const std::vector<RawLogEntry> entries = ReadAll(1, 200000);
  for (const RawLogEntry& entry : entries) {
    char text[kDescriptionSize];
    FormatEntryDescription(entry, text, sizeof text);
    EXPECT_LT(std::strlen(text), kDescriptionSize - 1) << text;
    texts.insert(text);
  }
  EXPECT_GT(texts.size() * 10, entries.size());
  EXPECT_LT(texts.size() * 2, entries.size());
}

}  // namespace
}  // namespace qvl
