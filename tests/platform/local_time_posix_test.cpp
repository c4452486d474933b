#include <gtest/gtest.h>
#include <stdlib.h>
#include <time.h>

#include <string>

#include "platform/local_time.h"

namespace qvl {
namespace {

// A zone one hour ahead in winter and two in summer, spelled out so that no zone data is needed.
class LocalTimePosix : public ::testing::Test {
 protected:
  LocalTimePosix() {
    const char* const value = ::getenv("TZ");
    if (value != nullptr) before_ = value;
    hadZone_ = value != nullptr;
    ::setenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3", 1);
    ::tzset();
  }
  ~LocalTimePosix() override {
    if (hadZone_) {
      ::setenv("TZ", before_.c_str(), 1);
    } else {
      ::unsetenv("TZ");
    }
    ::tzset();
  }

 private:
  std::string before_;
  bool hadZone_ = false;
};

TEST_F(LocalTimePosix, ShowsTheHourOfTheZone) {
  EXPECT_EQ(ToWallTime(1795179900).hour, 14);  // 2026-11-20 13:05 UTC, winter
  EXPECT_EQ(ToWallTime(1782047100).hour, 15);  // 2026-06-21 13:05 UTC, summer
  EXPECT_EQ(LongDateAndTime(1795179900), "Friday, November 20, 2026 at 02:05 PM");
}

TEST_F(LocalTimePosix, LeavesDaylightSavingTimeToTheSystem) {
  Moment winter = 0;
  EXPECT_TRUE(ToMoment({2026, 11, 20, 14, 5, 0}, winter));
  EXPECT_EQ(winter, 1795179900);
  Moment summer = 0;
  EXPECT_TRUE(ToMoment({2026, 6, 21, 15, 5, 0}, summer));
  EXPECT_EQ(summer, 1782047100);
}

}  // namespace
}  // namespace qvl
