#ifndef QVL_ENTRIES_LOG_TIME_H_
#define QVL_ENTRIES_LOG_TIME_H_

#include <compare>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace qvl {

/// A time stamp of the log: binary bytes, local time of the machine, no seconds. The order of
/// the bytes is the order of time. A zero century, month or day marks a missing time.
struct LogTime {
  std::uint8_t century = 0;  ///< 20 for the years 2000 to 2099
  std::uint8_t year = 0;     ///< within the century
  std::uint8_t month = 0;    ///< 1 to 12
  std::uint8_t day = 0;      ///< 1 to 31
  std::uint8_t hour = 0;     ///< 0 to 23
  std::uint8_t minute = 0;   ///< 0 to 59

  friend constexpr auto operator<=>(const LogTime&, const LogTime&) = default;

  constexpr int FullYear() const { return century * 100 + year; }
  constexpr bool IsMissing() const { return century == 0 || month == 0 || day == 0; }

  /// True when the calendar has this day. The first year is 1601, where the calendars of the
  /// systems that this program formats dates with begin.
  constexpr bool HasValidDate() const {
    constexpr int kFirstYear = 1601;
    if (FullYear() < kFirstYear || month < 1 || month > 12 || day < 1) return false;
    return day <= 28 || day <= DaysInMonth();
  }
  constexpr bool HasValidTimeOfDay() const { return hour <= 23 && minute <= 59; }

  /// The six bytes as one number that orders like the stamp.
  constexpr std::uint64_t Packed() const {
    if (!std::is_constant_evaluated()) {
      std::uint64_t bytes = 0;
      std::memcpy(&bytes, this, 6);
      return __builtin_bswap64(bytes) >> 16U;
    }
    return std::uint64_t{century} << 40U | std::uint64_t{year} << 32U |
           std::uint64_t{month} << 24U | std::uint64_t{day} << 16U | std::uint64_t{hour} << 8U |
           std::uint64_t{minute};
  }

 private:
  constexpr int DaysInMonth() const {
    const int fullYear = FullYear();
    const bool leap = (fullYear % 4 == 0 && fullYear % 100 != 0) || fullYear % 400 == 0;
    if (month == 2) return leap ? 29 : 28;
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
  }
};
static_assert(sizeof(LogTime) == 6);

}  // namespace qvl

#endif  // QVL_ENTRIES_LOG_TIME_H_
