#ifndef QVL_ACCESS_LOG_WALK_H_
#define QVL_ACCESS_LOG_WALK_H_

#include <cstdint>
#include <functional>

#include "access/remote_monitor_client.h"
#include "access/remote_status.h"
#include "entries/raw_log_entry.h"

namespace qvl {

/// Why reading a machine's log ended.
enum class WalkEnd : std::uint8_t {
  kEndOfLog,         ///< the service delivered no further entry
  kFirstReadFailed,  ///< nothing was read; `status` says why
  kLaterReadFailed,  ///< what came before is kept; `status` says why
  kNumberFellBack,   ///< an entry's number is below the one asked for; see below
  kStopped,          ///< `take` had enough
};

struct WalkResult {
  WalkEnd end = WalkEnd::kEndOfLog;
  RemoteStatus status = kRemoteOk;
  std::uint32_t asked = 0;      ///< kNumberFellBack: the number asked for
  std::uint32_t delivered = 0;  ///< kNumberFellBack: the number that came
};

/// Reads the whole log of the open machine: asks for entry 0, then for the number after each
/// delivered one, until the service delivers nothing or fails.
/// A service that delivers a number below the one asked for would lead round in circles for ever:
/// such an entry ends the walk. It is still given to `take`, unless its 256 bytes were delivered
/// before: its number may be damaged, and it may be the only record of what it tells. The highest
/// number there is ends the walk too.
/// take  gets each entry in the service's order; returns false to stop.
WalkResult WalkLog(RemoteMonitorClient& client,
                   const std::function<bool(const RawLogEntry&)>& take);

}  // namespace qvl

#endif  // QVL_ACCESS_LOG_WALK_H_
