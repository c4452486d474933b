#include "viewer/ui/threaded_work.h"

#include <wx/app.h>
#include <wx/evtloop.h>

#include <exception>
#include <memory>
#include <system_error>
#include <thread>
#include <utility>

#include "viewer/ui/input_block.h"

namespace qvl {
namespace {

// Also when the loop ends by an exception: the work uses what stands on the stack.
class JoinedThread {
 public:
  explicit JoinedThread(std::thread thread) : thread_(std::move(thread)) {}
  ~JoinedThread() { Join(); }
  JoinedThread(const JoinedThread&) = delete;
  JoinedThread& operator=(const JoinedThread&) = delete;

  void Join() {
    if (thread_.joinable()) thread_.join();
  }

 private:
  std::thread thread_;
};

class WorkLoop : public wxGUIEventLoop {
 public:
  void End() {
    if (IsInsideRun()) ScheduleExit();
  }
};

}  // namespace

void ThreadedWork::Run(const std::function<void()>& work) {
  const InputBlock block(inputWindow_());
  // Shared with the event that ends it, which may come after an exception has ended it.
  const auto loop = std::make_shared<WorkLoop>();
  std::exception_ptr failure;
  std::thread thread;
  try {
    thread = std::thread([&work, &failure, loop] {
      try {
        work();
      } catch (...) {
        failure = std::current_exception();
      }
      // Handled by the loop below, so not before it runs.
      wxTheApp->CallAfter([loop] { loop->End(); });
    });
  } catch (const std::system_error&) {
    work();  // without a thread to be had, the windows stand still
    return;
  }
  JoinedThread worker(std::move(thread));
  loop->Run();
  worker.Join();
  if (failure) std::rethrow_exception(failure);
}

}  // namespace qvl
