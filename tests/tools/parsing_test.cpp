#include "tools/qvlog/parsing.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

namespace qvl {
namespace {

// The digits of a record whose byte i holds i.
std::string CountingDigits(const char* format) {
  std::string digits;
  for (unsigned byte = 0; byte < 256; ++byte) {
    char pair[3];
    std::snprintf(pair, sizeof pair, format, byte);
    digits += pair;
  }
  return digits;
}

TEST(ParseHexRecord, PutsEveryByteWhereItBelongs) {
  const std::optional<RawLogEntry> entry = ParseHexRecord(CountingDigits("%02X"));
  ASSERT_TRUE(entry);
  unsigned char bytes[sizeof(RawLogEntry)];
  std::memcpy(bytes, &*entry, sizeof bytes);
  for (unsigned byte = 0; byte < sizeof bytes; ++byte) EXPECT_EQ(bytes[byte], byte);
  // Little-endian, from offset 2 and from offset 8.
  EXPECT_EQ(std::uint32_t{entry->entryNumber}, 0x05040302U);
  EXPECT_EQ(std::uint16_t{entry->eventClass}, 0x0908U);
}

TEST(ParseHexRecord, TakesBothCases) {
  const std::string digits = CountingDigits("%02x");
  const std::optional<RawLogEntry> lower = ParseHexRecord(digits);
  const std::optional<RawLogEntry> upper = ParseHexRecord(CountingDigits("%02X"));
  ASSERT_TRUE(lower && upper);
  EXPECT_EQ(std::memcmp(&*lower, &*upper, sizeof *lower), 0);
}

TEST(ParseHexRecord, TakesExactly512Digits) {
  EXPECT_TRUE(ParseHexRecord(std::string(512, '0')));
  EXPECT_FALSE(ParseHexRecord(""));
  EXPECT_FALSE(ParseHexRecord("00"));
  EXPECT_FALSE(ParseHexRecord(std::string(510, '0')));
  EXPECT_FALSE(ParseHexRecord(std::string(511, '0')));
  EXPECT_FALSE(ParseHexRecord(std::string(513, '0')));
  EXPECT_FALSE(ParseHexRecord(std::string(514, '0')));
  EXPECT_FALSE(ParseHexRecord(std::string(1024, '0')));
}

// The neighbours of the three ranges of digits, and what other parsers let pass.
TEST(ParseHexRecord, RefusesWhatIsNoDigitWhereverItStands) {
  for (const char bad : std::string("/:@G`g -+x\0\r\n\xFF", 13)) {
    for (const std::size_t at :
         {std::size_t{0}, std::size_t{1}, std::size_t{256}, std::size_t{510}, std::size_t{511}}) {
      std::string digits(512, '0');
      digits[at] = bad;
      EXPECT_FALSE(ParseHexRecord(digits)) << static_cast<int>(bad) << " at " << at;
    }
  }
  EXPECT_FALSE(ParseHexRecord("0x" + std::string(510, '0')));
}

constexpr LogTime kAfternoon{20, 26, 11, 20, 13, 5};

TEST(ParseTime, TakesADateWithATimeOfDay) {
  EXPECT_EQ(ParseTime("2026-11-20T13:05", false), kAfternoon);
  EXPECT_EQ(ParseTime("2026-11-20 13:05", false), kAfternoon);
  // A time that was given is meant, whichever end it bounds.
  EXPECT_EQ(ParseTime("2026-11-20T13:05", true), kAfternoon);
}

TEST(ParseTime, ABareDateIsItsFirstOrItsLastMinute) {
  EXPECT_EQ(ParseTime("2026-11-20", false), (LogTime{20, 26, 11, 20, 0, 0}));
  EXPECT_EQ(ParseTime("2026-11-20", true), (LogTime{20, 26, 11, 20, 23, 59}));
}

TEST(ParseTime, TakesTheTimesThatADayHas) {
  EXPECT_EQ(ParseTime("2026-11-20T00:00", true), (LogTime{20, 26, 11, 20, 0, 0}));
  EXPECT_EQ(ParseTime("2026-11-20T23:59", false), (LogTime{20, 26, 11, 20, 23, 59}));
  EXPECT_FALSE(ParseTime("2026-11-20T24:00", false));
  EXPECT_FALSE(ParseTime("2026-11-20T23:60", false));
  EXPECT_FALSE(ParseTime("2026-11-20T99:99", false));
}

TEST(ParseTime, TakesTheDaysThatTheCalendarHas) {
  EXPECT_EQ(ParseTime("2024-02-29", false), (LogTime{20, 24, 2, 29, 0, 0}));
  EXPECT_EQ(ParseTime("2000-02-29", false), (LogTime{20, 0, 2, 29, 0, 0}));
  EXPECT_FALSE(ParseTime("2026-02-29", false));
  EXPECT_FALSE(ParseTime("1900-02-29", false));
  EXPECT_FALSE(ParseTime("2026-11-31", false));
  EXPECT_FALSE(ParseTime("2026-11-00", false));
  EXPECT_FALSE(ParseTime("2026-00-20", false));
  EXPECT_FALSE(ParseTime("2026-13-20", false));
}

TEST(ParseTime, TakesTheYearsThatAStampHas) {
  EXPECT_EQ(ParseTime("1999-12-31", false), (LogTime{19, 99, 12, 31, 0, 0}));
  EXPECT_EQ(ParseTime("1601-01-01", false), (LogTime{16, 1, 1, 1, 0, 0}));
  EXPECT_EQ(ParseTime("9999-12-31", true), (LogTime{99, 99, 12, 31, 23, 59}));
  EXPECT_FALSE(ParseTime("1600-12-31", false));
  EXPECT_FALSE(ParseTime("0000-01-01", false));
}

TEST(ParseTime, RefusesWhatIsWrittenOtherwise) {
  for (const char* const text : {"",
                                 "2026",
                                 "2026-11",
                                 "2026-11-",
                                 "2026-11-2",
                                 "2026-11-200",
                                 "26-11-20",
                                 "02026-11-20",
                                 "2026-1-20",
                                 "2026/11/20",
                                 "20261120",
                                 "11/20/2026",
                                 "+2026-11-20",
                                 "-2026-11-20",
                                 " 2026-11-20",
                                 "2026-11-20 ",
                                 "2026-11-20T",
                                 "2026-11-20T13",
                                 "2026-11-20T13:",
                                 "2026-11-20T13:5",
                                 "2026-11-20T1:05",
                                 "2026-11-20T13:05:00",
                                 "2026-11-20T13:05Z",
                                 "2026-11-20t13:05",
                                 "2026-11-20  13:05",
                                 "2026-11-20T13.05",
                                 "2026-11-20T-1:05",
                                 "2026-11-2\xB2",
                                 "yesterday"}) {
    EXPECT_FALSE(ParseTime(text, false)) << text;
    EXPECT_FALSE(ParseTime(text, true)) << text;
  }
}

TEST(ParseSort, KnowsEveryColumn) {
  EXPECT_EQ(ParseSort("number"), (SortState{Column::kEntryNumber, true}));
  EXPECT_EQ(ParseSort("description"), (SortState{Column::kDescription, true}));
  EXPECT_EQ(ParseSort("class"), (SortState{Column::kClass, true}));
  EXPECT_EQ(ParseSort("severity"), (SortState{Column::kSeverity, true}));
  EXPECT_EQ(ParseSort("count"), (SortState{Column::kCount, true}));
  EXPECT_EQ(ParseSort("updated"), (SortState{Column::kUpdateTime, true}));
  EXPECT_EQ(ParseSort("initial"), (SortState{Column::kInitialTime, true}));
}

TEST(ParseSort, TakesADirection) {
  EXPECT_EQ(ParseSort("count:asc"), (SortState{Column::kCount, true}));
  EXPECT_EQ(ParseSort("count:desc"), (SortState{Column::kCount, false}));
}

TEST(ParseSort, RefusesWhatIsWrittenOtherwise) {
  for (const char* const text : {"", ":", ":asc", ":desc", "count:", "count:up", "count:descending",
                                 "count:desc:", "count:desc:asc", "count desc", "count ", " count",
                                 "coun", "counts", "code", "count:asc ", "desc"}) {
    EXPECT_FALSE(ParseSort(text)) << text;
  }
}

// What a text reads as, or nothing; a failure must leave the value alone.
template <typename Number>
std::optional<Number> Parsed(std::string_view text) {
  Number value = 77;
  if (ParseNumber(text, value)) return value;
  EXPECT_EQ(value, Number{77}) << text;
  return std::nullopt;
}

TEST(ParseNumber, TakesWhatTheTypeHolds) {
  EXPECT_EQ(Parsed<std::uint32_t>("0"), 0U);
  EXPECT_EQ(Parsed<std::uint32_t>("42"), 42U);
  EXPECT_EQ(Parsed<std::uint32_t>("4294967295"), 4294967295U);
  EXPECT_FALSE(Parsed<std::uint32_t>("4294967296"));
  EXPECT_EQ(Parsed<std::uint64_t>("18446744073709551615"), 18446744073709551615U);
  EXPECT_FALSE(Parsed<std::uint64_t>("18446744073709551616"));
}

TEST(ParseNumber, LeadingZerosMakeNothingOctal) {
  EXPECT_EQ(Parsed<std::uint32_t>("010"), 10U);
  EXPECT_EQ(Parsed<std::uint32_t>("0008"), 8U);
}

TEST(ParseNumber, RefusesWhatIsWrittenOtherwise) {
  for (const char* const text : {"", " ", "-1", "+1", "-0", " 1", "1 ", "0x10", "1e3", "1.0",
                                 "1'000", "1_000", "1,000", "one", "1x", "\xB2"}) {
    EXPECT_FALSE(Parsed<std::uint32_t>(text)) << text;
    EXPECT_FALSE(Parsed<std::uint64_t>(text)) << text;
  }
}

}  // namespace
}  // namespace qvl
