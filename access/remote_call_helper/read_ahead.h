#ifndef QVL_ACCESS_REMOTE_CALL_HELPER_READ_AHEAD_H_
#define QVL_ACCESS_REMOTE_CALL_HELPER_READ_AHEAD_H_

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>

#include "access/remote_call_helper/call_result.h"

namespace qvl {

/// Notices that the program walks a log and which entry it will ask for next, so that the helper
/// fetches that one while the program is still busy with the last. What the program sees does not
/// change: an answer is handed out only for the very call it was fetched for, while it is fresh,
/// and any other call drops it.
class ReadAhead {
 public:
  using Clock = std::chrono::steady_clock;

  /// An answer older than this is asked for again: the log may have changed since.
  static constexpr std::chrono::milliseconds kFresh{500};

  /// The answer to a call, if it was fetched. Call it for every call, before anything else.
  std::optional<CallResult> Take(std::uint32_t procedure, std::span<const std::uint8_t> request,
                                 Clock::time_point now);

  /// The number of the entry to fetch, if there is one: two reads in a row have asked for what
  /// follows, as a walk does and the refresh of a single entry does not, and the log goes on.
  /// Call it for every call, with its answer.
  std::optional<std::uint32_t> Next(std::uint32_t procedure, std::span<const std::uint8_t> request,
                                    const CallResult& result);

  /// Keeps what was fetched. `asked` is when the machine was asked.
  void Keep(std::uint32_t number, CallResult result, Clock::time_point asked);

 private:
  struct Fetched {
    std::uint32_t number;
    CallResult result;
    Clock::time_point asked;
  };

  std::optional<Fetched> fetched_;
  std::optional<std::uint32_t> expected_;  ///< what a walk asks for next
};

}  // namespace qvl

#endif  // QVL_ACCESS_REMOTE_CALL_HELPER_READ_AHEAD_H_
