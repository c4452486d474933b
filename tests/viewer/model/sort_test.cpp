#include "viewer/model/sort.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "entries/event_description.h"
#include "entries/text_sink.h"
#include "tests/files/file_fixtures.h"
#include "viewer/model/text_ranks.h"

namespace qvl {
namespace {

using testing::LanguageScope;
using testing::RandomRecord;
using testing::Record;

using Indices = std::vector<EntryIndex>;
using Random = std::mt19937;

constexpr Column kColumns[] = {Column::kEntryNumber, Column::kDescription, Column::kClass,
                               Column::kSeverity,    Column::kCount,       Column::kUpdateTime,
                               Column::kInitialTime};

Indices AllRows(std::size_t count) {
  Indices rows(count);
  std::iota(rows.begin(), rows.end(), 0U);
  return rows;
}

Indices Reference(const EntryList& list, Indices rows, Column column, bool ascending) {
  std::stable_sort(rows.begin(), rows.end(), [&](EntryIndex a, EntryIndex b) {
    return CompareEntries(list[a], list[b], column, ascending) < 0;
  });
  return rows;
}

void ExpectSortsLikeTheComparison(const EntryList& list, const Indices& rows) {
  for (const Column column : kColumns) {
    for (const bool ascending : {true, false}) {
      EXPECT_TRUE(SortedRows(list, rows, column, ascending) ==
                  Reference(list, rows, column, ascending))
          << "column " << static_cast<int>(column) << (ascending ? " ascending" : " descending");
    }
  }
}

void ExpectSortsLikeTheComparison(const EntryList& list) {
  ExpectSortsLikeTheComparison(list, AllRows(list.size()));
}

// Few classes, codes, severities, counts and days, as in a real log.
RawLogEntry LogLikeRecord(Random& random, std::uint32_t number) {
  constexpr std::array<std::uint8_t, 6> kSeverities = {2, 3, 6, 9, 15, 0};
  RawLogEntry raw = Record(number, static_cast<std::uint16_t>(random() % 40),
                           static_cast<std::uint16_t>(random() % 6));
  for (std::size_t i = 0; i < 4; ++i) raw.data[i] = static_cast<std::uint8_t>(random() % 3);
  raw.severity = kSeverities[random() % kSeverities.size()];
  raw.count = static_cast<std::uint32_t>(random() % 5);
  raw.updateTime = {20,
                    static_cast<std::uint8_t>(24 + random() % 3),
                    static_cast<std::uint8_t>(1 + random() % 12),
                    static_cast<std::uint8_t>(1 + random() % 28),
                    static_cast<std::uint8_t>(random() % 24),
                    static_cast<std::uint8_t>(random() % 60)};
  raw.initialTime = random() % 9 == 0 ? LogTime{} : LogTime{20, 26, 1, 1, 0, 0};
  return raw;
}

EntryList LogLike(std::size_t count, std::uint32_t seed,
                  const std::function<std::uint32_t(std::size_t)>& numberOf) {
  Random random(seed);
  EntryList list;
  for (std::size_t i = 0; i < count; ++i) list.Append(LogLikeRecord(random, numberOf(i)));
  return list;
}

std::uint32_t Rising(std::size_t i) {
  return static_cast<std::uint32_t>(i + 1);
}

TEST(SortedRows, OrderLogsAsReadFromAMachine) {
  ExpectSortsLikeTheComparison(LogLike(5000, 1, Rising));
}

TEST(SortedRows, OrderFallingEntryNumbers) {
  ExpectSortsLikeTheComparison(
      LogLike(5000, 2, [](std::size_t i) { return static_cast<std::uint32_t>(6000 - i); }));
}

TEST(SortedRows, OrderRepeatedEntryNumbers) {
  ExpectSortsLikeTheComparison(
      LogLike(5000, 3, [](std::size_t i) { return static_cast<std::uint32_t>(i / 7); }));
  ExpectSortsLikeTheComparison(
      LogLike(3000, 4, [](std::size_t i) { return static_cast<std::uint32_t>(i % 11); }));
  ExpectSortsLikeTheComparison(LogLike(3000, 5, [](std::size_t) { return 42U; }));
}

TEST(SortedRows, OrderEntryNumbersThatWrapAround) {
  ExpectSortsLikeTheComparison(LogLike(
      3000, 6, [](std::size_t i) { return static_cast<std::uint32_t>(0xFFFFFFFFU - 1500U + i); }));
  Random numbers(7);
  ExpectSortsLikeTheComparison(
      LogLike(3000, 8, [&](std::size_t) { return static_cast<std::uint32_t>(numbers()); }));
}

TEST(SortedRows, OrderRandomBytes) {
  for (const std::uint32_t seed : {11U, 12U}) {
    Random random(seed);
    EntryList list;
    for (int i = 0; i < 5000; ++i) list.Append(RandomRecord(random));
    ExpectSortsLikeTheComparison(list);
  }
}

// Random data in classes that have a decoder, so that most descriptions differ.
TEST(SortedRows, OrderRandomDescriptions) {
  Random random(13);
  EntryList list;
  for (int i = 0; i < 5000; ++i) {
    RawLogEntry raw = RandomRecord(random);
    raw.eventClass = static_cast<std::uint16_t>(random() % 38);
    raw.eventCode = static_cast<std::uint16_t>(random() % 20);
    list.Append(raw);
  }
  ExpectSortsLikeTheComparison(list);
}

// Texts that begin alike, differ in length, and hold bytes above 127: these are greater than all
// letters.
TEST(SortedRows, OrderTextsThatBeginAlike) {
  Random random(14);
  EntryList list;
  for (std::uint32_t i = 0; i < 5000; ++i) {
    std::string note(random() % 12, 'a');
    note += static_cast<char>(1 + random() % 255);
    if (random() % 2 == 0) note += std::to_string(random() % 3000);
    list.Append(Record(i * 7919U % 5000U, 33, 2, note));
  }
  ExpectSortsLikeTheComparison(list);
}

TEST(SortedRows, OrderAFilteredSubset) {
  Random random(15);
  EntryList list;
  for (std::uint32_t i = 0; i < 9000; ++i) {
    list.Append(LogLikeRecord(random, static_cast<std::uint32_t>(random() % 4000)));
  }
  Indices some;
  for (EntryIndex i = 0; i < 9000; ++i) {
    if (random() % 3 == 0) some.push_back(i);
  }
  ASSERT_GT(some.size(), 2000U);
  ExpectSortsLikeTheComparison(list, some);
}

TEST(SortedRows, TakeEveryNumberOfRows) {
  for (std::size_t count = 0; count < 70; ++count) {
    ExpectSortsLikeTheComparison(
        LogLike(count, 16, [](std::size_t i) { return static_cast<std::uint32_t>(i % 5); }));
    ExpectSortsLikeTheComparison(LogLike(count, 17, Rising));
  }
  EXPECT_TRUE(SortedRows(EntryList(), {}, Column::kCount, true).empty());
  const EntryList three = LogLike(3, 18, Rising);
  EXPECT_TRUE(SortedRows(three, {}, Column::kDescription, false).empty());
  const Indices last = {2};
  EXPECT_EQ(SortedRows(three, last, Column::kUpdateTime, false), last);
}

TEST(SortedRows, FollowTheNamesOfTheLanguage) {
  const LanguageScope language(Language::kJapanese);
  ExpectSortsLikeTheComparison(LogLike(1000, 19, Rising));
}

EntryList ListOf(const std::vector<RawLogEntry>& records) {
  EntryList list;
  for (const RawLogEntry& raw : records) list.Append(raw);
  return list;
}

Indices Sorted(const EntryList& list, Column column, bool ascending) {
  return SortedRows(list, AllRows(list.size()), column, ascending);
}

TEST(SortedRows, KeepTheOrderOfEqualRowsInBothDirections) {
  const EntryList list = ListOf({Record(5, 12, 1), Record(5, 12, 1), Record(5, 12, 1)});
  for (const Column column : kColumns) {
    EXPECT_EQ(Sorted(list, column, true), (Indices{0, 1, 2}));
    EXPECT_EQ(Sorted(list, column, false), (Indices{0, 1, 2}));
  }
}

TEST(SortedRows, BreakTiesByEntryNumberAndTurnThemRound) {
  const EntryList list = ListOf({Record(7, 12, 1), Record(3, 12, 1), Record(5, 12, 1)});
  for (const Column column : kColumns) {
    EXPECT_EQ(Sorted(list, column, true), (Indices{1, 2, 0}));
    EXPECT_EQ(Sorted(list, column, false), (Indices{0, 2, 1}));
  }
}

TEST(SortedRows, CompareNumbersWithoutASign) {
  std::vector<RawLogEntry> records;
  for (const std::uint32_t value : {0x80000000U, 1U, 0xFFFFFFFFU, 0U, 0x7FFFFFFFU}) {
    RawLogEntry raw = Record(value, 12, 1);
    raw.count = value;
    records.push_back(raw);
  }
  const EntryList list = ListOf(records);
  EXPECT_EQ(Sorted(list, Column::kCount, true), (Indices{3, 1, 4, 0, 2}));
  EXPECT_EQ(Sorted(list, Column::kCount, false), (Indices{2, 0, 4, 1, 3}));
  EXPECT_EQ(Sorted(list, Column::kEntryNumber, true), (Indices{3, 1, 4, 0, 2}));
}

TEST(SortedRows, PutClassesWithoutANameBehindAllOthers) {
  const EntryList list = ListOf(
      {Record(1, 16, 1), Record(2, 12, 1), Record(3, 65535, 1), Record(4, 7, 1), Record(5, 7, 1)});
  EXPECT_EQ(Sorted(list, Column::kClass, true), (Indices{3, 4, 1, 0, 2}));
  EXPECT_EQ(Sorted(list, Column::kClass, false), (Indices{2, 0, 1, 4, 3}));
}

TEST(SortedRows, OrderSeveritiesByCode) {
  std::vector<RawLogEntry> records;
  for (const auto severity : std::to_array<std::uint8_t>({9, 15, 3, 255, 6, 2})) {
    RawLogEntry raw = Record(1, 12, 1);
    raw.severity = severity;
    records.push_back(raw);
  }
  EXPECT_EQ(Sorted(ListOf(records), Column::kSeverity, false), (Indices{3, 1, 0, 4, 2, 5}));
}

TEST(SortedRows, CompareTimesByteByByteEvenWhenTheyAreImpossible) {
  std::vector<RawLogEntry> records;
  for (const LogTime time : {
           LogTime{20, 26,  11,  20,  13,  5  },
           LogTime{20, 26,  13,  0,   0,   0  },
           LogTime(),
           LogTime{19, 255, 255, 255, 255, 255},
           LogTime{20, 26,  11,  20,  13,  4  }
  }) {
    RawLogEntry raw = Record(1, 12, 1);
    raw.updateTime = time;
    raw.initialTime = time;
    records.push_back(raw);
  }
  const EntryList list = ListOf(records);
  EXPECT_EQ(Sorted(list, Column::kUpdateTime, true), (Indices{2, 3, 4, 0, 1}));
  EXPECT_EQ(Sorted(list, Column::kInitialTime, false), (Indices{1, 0, 4, 3, 2}));
}

TEST(SortedRows, CompareDescriptionsAsUnsignedBytes) {
  const EntryList list =
      ListOf({Record(1, 33, 2, "\xE9"), Record(2, 33, 2, "z"), Record(3, 33, 2, "Z"),
              Record(4, 33, 2, ""), Record(5, 33, 2, "za"), Record(6, 0, 0)});
  EXPECT_EQ(Sorted(list, Column::kDescription, true), (Indices{5, 3, 2, 1, 4, 0}));
  EXPECT_EQ(Sorted(list, Column::kDescription, false), (Indices{0, 4, 1, 2, 3, 5}));
}

// Every place of a text is the number of distinct texts in front of it.
void ExpectRanksLikeTheComparison(const std::vector<std::string>& texts) {
  TextRanks ranks;
  std::vector<std::uint32_t> numbers;
  for (const std::string& text : texts) numbers.push_back(ranks.Add(text));
  std::vector<std::string> distinct = texts;
  std::sort(distinct.begin(), distinct.end(),
            [](const std::string& a, const std::string& b) { return CompareTexts(a, b) < 0; });
  distinct.erase(std::unique(distinct.begin(), distinct.end()), distinct.end());
  const std::vector<std::uint32_t> places = std::move(ranks).Ranks();
  ASSERT_EQ(places.size(), distinct.size());
  for (std::size_t i = 0; i < texts.size(); ++i) {
    ASSERT_EQ(distinct[places[numbers[i]]], texts[i]);
  }
}

TEST(TextRanks, OrderTheEmptyTextLast) {
  ExpectRanksLikeTheComparison({});
  ExpectRanksLikeTheComparison({""});
  ExpectRanksLikeTheComparison({"b", "", "a", "", "\xFF", "b"});
}

TEST(TextRanks, OrderTextsThatDifferBehindEightBytes) {
  ExpectRanksLikeTheComparison({"12345678", "1234567", "123456789", "12345678\x01", "12345678\x80",
                                "1234567812345678", "12345678123456781", "123456781234567"});
}

// More distinct texts, and more of their bytes, than the object begins with room for.
TEST(TextRanks, OrderManyLongTexts) {
  Random random(20);
  std::vector<std::string> texts;
  for (int i = 0; i < 30000; ++i) {
    std::string text(random() % 200, 'a');
    text += std::to_string(random() % 20000);
    texts.push_back(text);
  }
  ExpectRanksLikeTheComparison(texts);
}

// Descriptions are ranked on the promise that they hold no NUL, whatever the records hold.
TEST(TextRanks, AreGivenNoDescriptionWithANul) {
  Random random(21);
  std::array<char, kDescriptionSize> buffer;
  for (std::uint16_t eventClass = 0; eventClass < 40; ++eventClass) {
    for (std::uint16_t code = 0; code < 300; ++code) {
      for (int round = 0; round < 12; ++round) {
        RawLogEntry raw = RandomRecord(random);
        for (std::uint8_t& byte : raw.data) {
          if (random() % 4 == 0) byte = 0;
        }
        if (round % 2 == 0) raw.data[0] = static_cast<std::uint8_t>(random() % 8);
        if (round == 0) raw.data.fill(0);
        raw.eventClass = eventClass;
        raw.eventCode = code;
        TextSink text(buffer);
        CEventLogEntry(raw).GetColumnText(Column::kDescription, text);
        ASSERT_EQ(text.view().find('\0'), std::string_view::npos)
            << "class " << eventClass << ", code " << code;
      }
    }
  }
}

}  // namespace
}  // namespace qvl
