#include <gtest/gtest.h>
#include <time.h>

#include <cstdlib>
#include <string>

#include "viewer/model/filter.h"

namespace qvl {
namespace {

// Sets the process's time zone while it lives.
class TimeZoneScope {
 public:
  explicit TimeZoneScope(const char* zone) {
    const char* const before = std::getenv("TZ");
    had_ = before != nullptr;
    if (had_) before_ = before;
    ::setenv("TZ", zone, 1);
    ::tzset();
  }
  ~TimeZoneScope() {
    if (had_) {
      ::setenv("TZ", before_.c_str(), 1);
    } else {
      ::unsetenv("TZ");
    }
    ::tzset();
  }
  TimeZoneScope(const TimeZoneScope&) = delete;
  TimeZoneScope& operator=(const TimeZoneScope&) = delete;

 private:
  bool had_ = false;
  std::string before_;
};

constexpr const char* kCentralEurope = "CET-1CEST,M3.5.0,M10.5.0/3";

TimeTest Since(std::string_view choice, const WallTime& wallNow) {
  Moment now = 0;
  EXPECT_TRUE(ToMoment(wallNow, now));
  return TimeTest(TimeTest::SinceChoice(choice, now));
}

// Clocks went from 2:00 to 3:00 on 29 March 2026: seven days of 24 hours before Monday noon, the
// clocks showed eleven.
TEST(TimeTest, CountsHoursAcrossTheBeginningOfSummerTime) {
  const TimeZoneScope zone(kCentralEurope);
  const TimeTest week = Since("Since Last Week", {2026, 3, 30, 12, 0, 0});
  EXPECT_TRUE(week.Passes({20, 26, 3, 23, 11, 0}));
  EXPECT_FALSE(week.Passes({20, 26, 3, 23, 10, 59}));
}

// Clocks went back from 3:00 to 2:00 on 25 October 2026.
TEST(TimeTest, CountsHoursAcrossTheEndOfSummerTime) {
  const TimeZoneScope zone(kCentralEurope);
  const TimeTest day = Since("Since Yesterday", {2026, 10, 25, 12, 0, 0});
  EXPECT_TRUE(day.Passes({20, 26, 10, 24, 13, 0}));
  EXPECT_FALSE(day.Passes({20, 26, 10, 24, 12, 59}));
}

TEST(TimeTest, ReadsStampsAsTheWallClockOfTheZone) {
  for (const char* zone : {"UTC", "AAA-14", "BBB+12", kCentralEurope}) {
    const TimeZoneScope scope(zone);
    const TimeTest week = Since("Since Last Week", {2026, 11, 20, 0, 30, 0});
    EXPECT_TRUE(week.Passes({20, 26, 11, 13, 0, 30})) << zone;
    EXPECT_FALSE(week.Passes({20, 26, 11, 13, 0, 29})) << zone;
  }
}

}  // namespace
}  // namespace qvl
