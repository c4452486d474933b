#include "viewer/model/wall_minute.h"

#include <chrono>

namespace qvl {
namespace {

using std::chrono::days;
using std::chrono::minutes;
using std::chrono::sys_days;
using std::chrono::sys_time;

}  // namespace

std::optional<WallMinute> MinuteOf(LogTime time) {
  if (time.IsMissing() || !time.HasValidDate() || !time.HasValidTimeOfDay()) return std::nullopt;
  const std::chrono::year_month_day date(std::chrono::year(time.FullYear()),
                                         std::chrono::month(time.month),
                                         std::chrono::day(time.day));
  const sys_time<minutes> midnight = sys_days(date);
  return midnight.time_since_epoch().count() + WallMinute{time.hour} * 60 + time.minute;
}

LogTime TimeOfMinute(WallMinute minute) {
  const sys_time<minutes> moment{minutes(minute)};
  const sys_days day = std::chrono::floor<days>(moment);
  const std::chrono::year_month_day date(day);
  const auto ofDay = (moment - day).count();
  const int year = static_cast<int>(date.year());
  return {static_cast<std::uint8_t>(year / 100),
          static_cast<std::uint8_t>(year % 100),
          static_cast<std::uint8_t>(static_cast<unsigned>(date.month())),
          static_cast<std::uint8_t>(static_cast<unsigned>(date.day())),
          static_cast<std::uint8_t>(ofDay / 60),
          static_cast<std::uint8_t>(ofDay % 60)};
}

bool IsWithin(const TimeRange& range, LogTime time) {
  const std::optional<WallMinute> minute = MinuteOf(time);
  return minute && *minute >= range.first && *minute <= range.last;
}

}  // namespace qvl
