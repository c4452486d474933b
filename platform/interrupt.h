#ifndef QVL_PLATFORM_INTERRUPT_H_
#define QVL_PLATFORM_INTERRUPT_H_

#include <atomic>

namespace qvl {

/// Holds Ctrl+C back while it lives, so that a long operation can finish what it has begun: the
/// first one is only noted, a second one ends the process as it always does. One at a time.
/// A process that was started with Ctrl+C ignored goes on ignoring it.
class InterruptWatch {
 public:
  InterruptWatch();
  ~InterruptWatch();
  InterruptWatch(const InterruptWatch&) = delete;
  InterruptWatch& operator=(const InterruptWatch&) = delete;

  /// True once Ctrl+C was pressed since the watch began.
  static bool Interrupted() { return noted_.load(); }

  /// Notes an interrupt, as Ctrl+C does; for tests too. Returns false when one was noted before.
  /// May be called from a signal handler and from any thread.
  static bool Note() { return !noted_.exchange(true); }

 private:
  static_assert(std::atomic<bool>::is_always_lock_free);  // for the signal handler

  inline static std::atomic<bool> noted_{false};
};

}  // namespace qvl

#endif  // QVL_PLATFORM_INTERRUPT_H_
