#ifndef QVL_ACCESS_REMOTE_CALL_HELPER_CALL_RESULT_H_
#define QVL_ACCESS_REMOTE_CALL_HELPER_CALL_RESULT_H_

#include <chrono>
#include <cstdint>
#include <vector>

#include "access/remote_status.h"

namespace qvl {

/// How a call ended.
enum class CallEnd : std::uint8_t {
  kReturned,  ///< `reply` holds what the procedure returned
  kRefused,   ///< `status` says why; the connection stands
  kLost,      ///< `status` says why; the connection is of no further use
};

struct CallResult {
  CallEnd end = CallEnd::kLost;
  RemoteStatus status = kRemoteOk;
  std::vector<std::uint8_t> reply = {};
  std::chrono::steady_clock::duration took{};  ///< how long the machine took
};

}  // namespace qvl

#endif  // QVL_ACCESS_REMOTE_CALL_HELPER_CALL_RESULT_H_
