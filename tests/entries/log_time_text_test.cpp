#include "entries/log_time_text.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>

#include "entries/log_time.h"
#include "platform/locale_text.h"

namespace qvl {
namespace {

// As the list shows it. The tests run in the C locale, which reads as US English.
std::string TextOf(LogTime time) {
  std::array<char, kLogTimeTextSize> buffer;
  TextSink out(buffer);
  FormatLogTime(out, time);
  return std::string(out.view());
}

std::string TextOf(LogTimeFormatter& formatter, LogTime time) {
  std::array<char, kLogTimeTextSize> buffer;
  TextSink out(buffer);
  formatter.Append(time, out);
  return std::string(out.view());
}

LogTime Midnight(int year, int month, int day) {
  return {static_cast<std::uint8_t>(year / 100),
          static_cast<std::uint8_t>(year % 100),
          static_cast<std::uint8_t>(month),
          static_cast<std::uint8_t>(day),
          0,
          0};
}

TEST(LogTime, OrdersByItsBytes) {
  EXPECT_LT((LogTime{19, 99, 12, 31, 23, 59}), (LogTime{20, 0, 1, 1, 0, 0}));
  EXPECT_LT((LogTime{20, 24, 2, 29, 12, 4}), (LogTime{20, 24, 2, 29, 12, 5}));
  EXPECT_LT((LogTime{127, 0, 0, 0, 0, 0}), (LogTime{128, 0, 0, 0, 0, 0}));
  EXPECT_EQ((LogTime{1, 2, 3, 4, 5, 6}), (LogTime{1, 2, 3, 4, 5, 6}));
  EXPECT_EQ((LogTime{1, 2, 3, 4, 5, 6}).Packed(), 0x010203040506U);
  EXPECT_EQ((LogTime{255, 254, 253, 252, 251, 250}).Packed(), 0xFFFEFDFCFBFAU);
}

TEST(LogTime, IsMissingWithoutACenturyAMonthOrADay) {
  EXPECT_TRUE((LogTime{}).IsMissing());
  EXPECT_TRUE((LogTime{0, 24, 5, 6, 7, 8}).IsMissing());
  EXPECT_TRUE((LogTime{20, 24, 0, 6, 7, 8}).IsMissing());
  EXPECT_TRUE((LogTime{20, 24, 5, 0, 7, 8}).IsMissing());
  EXPECT_FALSE((LogTime{20, 0, 5, 6, 0, 0}).IsMissing());
}

TEST(LogTimeText, IsShortDateBlankAndTimeWithoutSeconds) {
  EXPECT_EQ(TextOf({19, 99, 12, 31, 23, 59}), "12/31/1999 11:59 PM");
  EXPECT_EQ(TextOf({20, 5, 1, 2, 3, 4}), "1/2/2005 3:04 AM");
}

TEST(LogTimeText, CountsHoursInTwelves) {
  EXPECT_EQ(TextOf({20, 24, 6, 1, 0, 0}), "6/1/2024 12:00 AM");
  EXPECT_EQ(TextOf({20, 24, 6, 1, 0, 59}), "6/1/2024 12:59 AM");
  EXPECT_EQ(TextOf({20, 24, 6, 1, 1, 0}), "6/1/2024 1:00 AM");
  EXPECT_EQ(TextOf({20, 24, 6, 1, 11, 59}), "6/1/2024 11:59 AM");
  EXPECT_EQ(TextOf({20, 24, 6, 1, 12, 5}), "6/1/2024 12:05 PM");
  EXPECT_EQ(TextOf({20, 24, 6, 1, 13, 5}), "6/1/2024 1:05 PM");
  EXPECT_EQ(TextOf({20, 24, 6, 1, 23, 0}), "6/1/2024 11:00 PM");
}

TEST(LogTimeText, NamesAMissingTimeInvalidWithTheTimeOfDayStillValid) {
  EXPECT_EQ(TextOf({}), "Invalid: 0/0/0 12:00 AM");
  EXPECT_EQ(TextOf({0, 24, 5, 6, 7, 8}), "Invalid: 5/6/24 7:08 AM");
  EXPECT_EQ(TextOf({20, 24, 0, 6, 7, 8}), "Invalid: 0/6/2024 7:08 AM");
  EXPECT_EQ(TextOf({20, 24, 5, 0, 7, 8}), "Invalid: 5/0/2024 7:08 AM");
}

TEST(LogTimeText, NamesAnImpossibleDateInvalidAsMonthDayYear) {
  EXPECT_EQ(TextOf({20, 24, 13, 1, 7, 8}), "Invalid: 13/1/2024 7:08 AM");
  EXPECT_EQ(TextOf({20, 24, 255, 1, 7, 8}), "Invalid: 255/1/2024 7:08 AM");
  EXPECT_EQ(TextOf({20, 24, 1, 32, 7, 8}), "Invalid: 1/32/2024 7:08 AM");
  EXPECT_EQ(TextOf({20, 24, 4, 31, 7, 8}), "Invalid: 4/31/2024 7:08 AM");
}

TEST(LogTimeText, NamesAnImpossibleTimeOfDayInvalidWithoutLeadingZeros) {
  EXPECT_EQ(TextOf({20, 24, 1, 1, 24, 0}), "1/1/2024 Invalid: 24:0");
  EXPECT_EQ(TextOf({20, 24, 1, 1, 24, 5}), "1/1/2024 Invalid: 24:5");
  EXPECT_EQ(TextOf({20, 24, 1, 1, 23, 60}), "1/1/2024 Invalid: 23:60");
  EXPECT_EQ(TextOf({20, 24, 1, 1, 0, 255}), "1/1/2024 Invalid: 0:255");
}

TEST(LogTimeText, NamesBothInvalid) {
  EXPECT_EQ(TextOf({255, 255, 255, 255, 255, 255}), "Invalid: 255/255/25755 Invalid: 255:255");
}

TEST(LogTimeText, KnowsTheLastDayOfEveryMonth) {
  constexpr int kLastDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  for (int month = 1; month <= 12; ++month) {
    const int last = kLastDays[month - 1];
    const std::string prefix = std::to_string(month) + "/";
    EXPECT_EQ(TextOf(Midnight(2023, month, last)),
              prefix + std::to_string(last) + "/2023 12:00 AM");
    EXPECT_EQ(TextOf(Midnight(2023, month, last + 1)),
              "Invalid: " + prefix + std::to_string(last + 1) + "/2023 12:00 AM");
  }
}

TEST(LogTimeText, KnowsLeapYears) {
  EXPECT_EQ(TextOf(Midnight(1900, 2, 29)), "Invalid: 2/29/1900 12:00 AM");
  EXPECT_EQ(TextOf(Midnight(2000, 2, 29)), "2/29/2000 12:00 AM");
  EXPECT_EQ(TextOf(Midnight(2000, 2, 30)), "Invalid: 2/30/2000 12:00 AM");
  EXPECT_EQ(TextOf(Midnight(2023, 2, 29)), "Invalid: 2/29/2023 12:00 AM");
  EXPECT_EQ(TextOf(Midnight(2024, 2, 29)), "2/29/2024 12:00 AM");
  EXPECT_EQ(TextOf(Midnight(2100, 2, 29)), "Invalid: 2/29/2100 12:00 AM");
}

TEST(LogTimeText, BeginsWithTheYear1601) {
  EXPECT_EQ(TextOf(Midnight(1600, 12, 31)), "Invalid: 12/31/1600 12:00 AM");
  EXPECT_EQ(TextOf(Midnight(1600, 2, 29)), "Invalid: 2/29/1600 12:00 AM");
  EXPECT_EQ(TextOf(Midnight(1601, 1, 1)), "1/1/1601 12:00 AM");
}

TEST(LogTimeText, AddsUpACenturyAndMoreThan99Years) {
  EXPECT_EQ(TextOf({19, 124, 2, 29, 0, 0}), "2/29/2024 12:00 AM");
  EXPECT_EQ(TextOf({255, 255, 12, 31, 0, 0}), "12/31/25755 12:00 AM");
}

TEST(LogTimeText, IsCutAndTerminatedByItsBuffer) {
  std::array<char, 12> buffer;
  buffer.fill('#');
  TextSink out(buffer.data(), 11);
  FormatLogTime(out, {19, 99, 12, 31, 23, 59});
  EXPECT_STREQ(buffer.data(), "12/31/1999");
  EXPECT_EQ(buffer[11], '#');
}

TEST(LogTimeText, AppendsToWhatIsThere) {
  std::array<char, kLogTimeTextSize> buffer;
  TextSink out(buffer);
  out.Append(std::string_view("at "));
  FormatLogTime(out, {20, 24, 6, 1, 12, 5});
  EXPECT_STREQ(buffer.data(), "at 6/1/2024 12:05 PM");
}

// These two days share a place of the formatter's cache; each must push the other out.
TEST(LogTimeFormatter, TellsDaysApartThatShareACachePlace) {
  LogTimeFormatter formatter("C");
  for (int round = 0; round < 3; ++round) {
    EXPECT_EQ(TextOf(formatter, {20, 20, 1, 1, 8, 0}), "1/1/2020 8:00 AM");
    EXPECT_EQ(TextOf(formatter, {20, 22, 10, 2, 8, 0}), "10/2/2022 8:00 AM");
  }
}

// More days than the cache has places, so every place is used for several of them.
TEST(LogTimeFormatter, ReadsTheSameForEveryDayAgain) {
  LogTimeFormatter formatter("C");
  for (int round = 0; round < 2; ++round) {
    for (int year = 2017; year <= 2028; ++year) {
      for (int month = 1; month <= 12; ++month) {
        for (int day = 1; day <= 28; ++day) {
          ASSERT_EQ(TextOf(formatter, Midnight(year, month, day)),
                    std::to_string(month) + "/" + std::to_string(day) + "/" + std::to_string(year) +
                        " 12:00 AM");
        }
      }
    }
  }
}

TEST(LogTimeFormatter, ReadsTheSameForEveryMinuteAgain) {
  LogTimeFormatter formatter("C");
  for (int round = 0; round < 2; ++round) {
    for (int minute = 0; minute < 24 * 60; ++minute) {
      const int hour = minute / 60;
      const int twelve = hour % 12 == 0 ? 12 : hour % 12;
      const std::string minutes = std::to_string(minute % 60);
      LogTime time = Midnight(2024, 6, 1);
      time.hour = static_cast<std::uint8_t>(hour);
      time.minute = static_cast<std::uint8_t>(minute % 60);
      ASSERT_EQ(TextOf(formatter, time), "6/1/2024 " + std::to_string(twelve) + ":" +
                                             (minutes.size() == 1 ? "0" : "") + minutes +
                                             (hour < 12 ? " AM" : " PM"));
    }
  }
}

// Burmese digits take three bytes each: a year of five digits is longer than a cache place.
TEST(LogTimeFormatter, WritesTextsTooLongForTheCacheInFull) {
  const LocaleText locale("my_MM");
  LogTimeFormatter formatter("my_MM");
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(TextOf(formatter, {120, 24, 12, 31, 23, 59}),
              locale.ShortDate(12024, 12, 31) + " " + locale.ShortTime(23, 59));
    EXPECT_EQ(TextOf(formatter, {20, 24, 12, 31, 23, 59}),
              locale.ShortDate(2024, 12, 31) + " " + locale.ShortTime(23, 59));
  }
}

}  // namespace
}  // namespace qvl
