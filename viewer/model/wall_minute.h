#ifndef QVL_VIEWER_MODEL_WALL_MINUTE_H_
#define QVL_VIEWER_MODEL_WALL_MINUTE_H_

#include <cstdint>
#include <optional>

#include "entries/log_time.h"

namespace qvl {

/// Minutes of a wall clock since 1970-01-01 00:00, without a time zone: time stamps of a log have
/// none, and stretches of time between them count as the clock's face shows them.
using WallMinute = std::int64_t;

/// Nothing for a missing or impossible stamp.
std::optional<WallMinute> MinuteOf(LogTime time);

/// minute  of a year from 100 to 25599.
LogTime TimeOfMinute(WallMinute minute);

/// A stretch of time, both ends included.
struct TimeRange {
  WallMinute first = 0;
  WallMinute last = 0;

  friend bool operator==(const TimeRange&, const TimeRange&) = default;
};

/// False for a missing or impossible stamp.
bool IsWithin(const TimeRange& range, LogTime time);

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_WALL_MINUTE_H_
