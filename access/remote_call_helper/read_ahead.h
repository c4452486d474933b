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

  /// An answer that nobody wanted for so long is asked for again: the log may have changed since.
  /// A program that is only kept waiting by a busy computer is back sooner.
  static constexpr std::chrono::milliseconds kFresh{2000};

  /// While the machine takes longer than this, nothing is fetched: there is little to gain, and
  /// another call would have to wait until the machine has answered the fetch.
  static constexpr std::chrono::milliseconds kQuick{200};

  /// Whether something is kept that the next call gets or drops.
  bool holds() const { return fetched_.has_value(); }

  /// The answer to a call, if it was fetched. Call it for every call, before anything else.
  std::optional<CallResult> Take(std::uint32_t procedure, std::span<const std::uint8_t> request,
                                 Clock::time_point now);

  /// The number of the entry to fetch, if there is one: two reads in a row have asked for what
  /// follows, as a walk does and the refresh of a single entry does not, the log goes on, and the
  /// machine is quick.
  /// Call it for every call, with its answer.
  std::optional<std::uint32_t> Next(std::uint32_t procedure, std::span<const std::uint8_t> request,
                                    const CallResult& result);

  /// Keeps what was fetched. `returned` is when the machine had answered: however long that took,
  /// the program may have been waiting for it.
  void Keep(std::uint32_t number, CallResult result, Clock::time_point returned);

 private:
  struct Fetched {
    std::uint32_t number;
    CallResult result;
    Clock::time_point returned;
  };

  std::optional<Fetched> fetched_;
  std::optional<std::uint32_t> expected_;  ///< what a walk asks for next
};

}  // namespace qvl

#endif  // QVL_ACCESS_REMOTE_CALL_HELPER_READ_AHEAD_H_
