#include "platform/local_time.h"

#include <array>
#include <chrono>
#include <ctime>

namespace qvl {
namespace {

// One thread runs the whole program, so the C library's shared result is safe to use, and it is
// the same call on every system.
std::tm LocalTime(Moment moment) {
  const auto time = static_cast<std::time_t>(moment);
  const std::tm* const local = std::localtime(&time);  // NOLINT(concurrency-mt-unsafe)
  return local == nullptr ? std::tm{} : *local;
}

}  // namespace

Moment Now() {
  return static_cast<Moment>(std::time(nullptr));
}

WallTime ToWallTime(Moment moment) {
  const std::tm local = LocalTime(moment);
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
          local.tm_hour,        local.tm_min,     local.tm_sec};
}

bool ToMoment(const WallTime& time, Moment& moment) {
  std::tm local = {};
  local.tm_year = time.year - 1900;
  local.tm_mon = time.month - 1;
  local.tm_mday = time.day;
  local.tm_hour = time.hour;
  local.tm_min = time.minute;
  local.tm_sec = time.second;
  local.tm_isdst = -1;
  // Only a success fills the day of the week in: -1 is also the last second of 1969.
  local.tm_wday = -1;
  moment = static_cast<Moment>(std::mktime(&local));
  return local.tm_wday >= 0;
}

std::string LongDateAndTime(Moment moment) {
  const std::tm local = LocalTime(moment);
  std::array<char, 96> text{};
  const std::size_t length =
      std::strftime(text.data(), text.size(), "%A, %B %d, %Y at %I:%M %p", &local);
  return {text.data(), length};
}

}  // namespace qvl
