#ifndef QVL_VIEWER_UI_THREADED_WORK_H_
#define QVL_VIEWER_UI_THREADED_WORK_H_

#include <wx/window.h>

#include <functional>
#include <utility>

#include "viewer/model/blocking_work.h"

namespace qvl {

/// Runs what waits for a machine on a thread and lets the windows paint meanwhile.
class ThreadedWork : public BlockingWork {
 public:
  /// inputWindow  the window that still takes input, asked for at each run; may return null.
  explicit ThreadedWork(std::function<wxWindow*()> inputWindow)
      : inputWindow_(std::move(inputWindow)) {}

  /// An exception of the work comes out here.
  void Run(const std::function<void()>& work) override;

 private:
  std::function<wxWindow*()> inputWindow_;
};

}  // namespace qvl

#endif  // QVL_VIEWER_UI_THREADED_WORK_H_
