#include "platform/local_time.h"

#include <gtest/gtest.h>

#include <string>

namespace qvl {
namespace {

// The tests run with TZ=UTC.

struct KnownMoment {
  Moment moment;
  WallTime wall;
};

constexpr KnownMoment kKnownMoments[] = {
    {0,          {1970, 1, 1, 0, 0, 0}     },
    {86399,      {1970, 1, 1, 23, 59, 59}  },
    {946684799,  {1999, 12, 31, 23, 59, 59}},
    {951782400,  {2000, 2, 29, 0, 0, 0}    },
    {1709208300, {2024, 2, 29, 12, 5, 0}   },
    {1795179900, {2026, 11, 20, 13, 5, 0}  },
    {2147483648, {2038, 1, 19, 3, 14, 8}   }, // beyond 31 bits
    {4107542400, {2100, 3, 1, 0, 0, 0}     },
};

std::string Shown(const WallTime& time) {
  return std::to_string(time.year) + "-" + std::to_string(time.month) + "-" +
         std::to_string(time.day) + " " + std::to_string(time.hour) + ":" +
         std::to_string(time.minute) + ":" + std::to_string(time.second);
}

TEST(ToWallTime, ReadsKnownMoments) {
  for (const KnownMoment& known : kKnownMoments) {
    EXPECT_EQ(Shown(ToWallTime(known.moment)), Shown(known.wall)) << known.moment;
  }
}

TEST(ToMoment, FindsKnownMoments) {
  for (const KnownMoment& known : kKnownMoments) {
    Moment moment = -2;
    EXPECT_TRUE(ToMoment(known.wall, moment)) << Shown(known.wall);
    EXPECT_EQ(moment, known.moment) << Shown(known.wall);
  }
}

TEST(ToMoment, ComesBackFromEveryWallTime) {
  // Steps of a day, an hour, a minute and a second, over 60 years.
  for (Moment moment = 0; moment < 1893456000; moment += 86400 + 3600 + 60 + 1) {
    Moment back = -2;
    ASSERT_TRUE(ToMoment(ToWallTime(moment), back)) << moment;
    ASSERT_EQ(back, moment);
  }
}

TEST(Now, IsAMomentOfThisCenturyAndComesBack) {
  const Moment now = Now();
  EXPECT_GT(now, 1700000000);
  EXPECT_LE(now, Now());
  EXPECT_GE(ToWallTime(now).year, 2023);
  Moment back = -2;
  EXPECT_TRUE(ToMoment(ToWallTime(now), back));
  EXPECT_EQ(back, now);
}

TEST(LongDateAndTime, WritesTheDayTheMonthAndTwelveHoursInFull) {
  EXPECT_EQ(LongDateAndTime(1795179900), "Friday, November 20, 2026 at 01:05 PM");
  EXPECT_EQ(LongDateAndTime(0), "Thursday, January 01, 1970 at 12:00 AM");
  EXPECT_EQ(LongDateAndTime(946684799), "Friday, December 31, 1999 at 11:59 PM");
  EXPECT_EQ(LongDateAndTime(1709208300), "Thursday, February 29, 2024 at 12:05 PM");
}

TEST(LongDateAndTime, LeavesTheSecondsOut) {
  EXPECT_EQ(LongDateAndTime(1795179959), "Friday, November 20, 2026 at 01:05 PM");
  EXPECT_EQ(LongDateAndTime(1795179960), "Friday, November 20, 2026 at 01:06 PM");
}

}  // namespace
}  // namespace qvl
