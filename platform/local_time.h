#ifndef QVL_PLATFORM_LOCAL_TIME_H_
#define QVL_PLATFORM_LOCAL_TIME_H_

#include <cstdint>
#include <string>

namespace qvl {

/// A moment, in seconds since 1970-01-01 00:00 UTC.
using Moment = std::int64_t;

/// A wall clock's reading in the process's time zone.
struct WallTime {
  int year = 0;
  int month = 0;  ///< 1 to 12
  int day = 0;    ///< 1 to 31
  int hour = 0;
  int minute = 0;
  int second = 0;
};

/// The moment now.
Moment Now();

/// What the wall clock shows at a moment.
WallTime ToWallTime(Moment moment);

/// The moment at which the wall clock shows a time; the system decides whether daylight-saving
/// time applies. Returns false for a time that the system cannot express.
bool ToMoment(const WallTime& time, Moment& moment);

/// A moment as "Friday, November 20, 2026 at 01:05 PM", English on every system.
std::string LongDateAndTime(Moment moment);

}  // namespace qvl

#endif  // QVL_PLATFORM_LOCAL_TIME_H_
