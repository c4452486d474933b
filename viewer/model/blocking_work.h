#ifndef QVL_VIEWER_MODEL_BLOCKING_WORK_H_
#define QVL_VIEWER_MODEL_BLOCKING_WORK_H_

#include <functional>

namespace qvl {

/// Runs what waits for another machine. A window runs it on a thread of its own and meanwhile
/// keeps all windows painted, but lets no input through except to the progress window, so that
/// nothing else asks the document or the machine for anything.
class BlockingWork {
 public:
  virtual ~BlockingWork() = default;

  /// Returns when `work` has returned. `work` touches no window; it throws nothing but what memory
  /// that runs out makes, which comes out here.
  virtual void Run(const std::function<void()>& work) = 0;
};

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_BLOCKING_WORK_H_
