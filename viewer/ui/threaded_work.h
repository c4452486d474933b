#ifndef QVL_VIEWER_UI_THREADED_WORK_H_
#define QVL_VIEWER_UI_THREADED_WORK_H_

#include <wx/window.h>

#include <functional>

#include "viewer/model/blocking_work.h"

namespace qvl {

/// Runs what waits for a machine on a thread and lets the windows paint meanwhile.
class ThreadedWork : public BlockingWork {
 public:
  /// inputWindow  the window that still takes input, asked for at each run; may return null.
  explicit ThreadedWork(std::function<wxWindow*()> inputWindow)
      : inputWindow_(std::move(inputWindow)) {}

  void Run(const std::function<void()>& work) override;

  /// True while `Run` waits: nothing else may be started then.
  bool isRunning() const { return isRunning_; }

 private:
  std::function<wxWindow*()> inputWindow_;
  bool isRunning_ = false;
};

}  // namespace qvl

#endif  // QVL_VIEWER_UI_THREADED_WORK_H_
