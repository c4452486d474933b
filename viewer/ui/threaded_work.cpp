#include "viewer/ui/threaded_work.h"

#include <wx/app.h>
#include <wx/evtloop.h>

#include <system_error>
#include <thread>

#include "viewer/ui/input_block.h"

namespace qvl {

void ThreadedWork::Run(const std::function<void()>& work) {
  const InputBlock block(inputWindow_());
  wxGUIEventLoop loop;
  std::thread worker;
  try {
    worker = std::thread([&work, &loop] {
      work();
      // Handled by the loop below, so not before it runs.
      wxTheApp->CallAfter([&loop] { loop.ScheduleExit(); });
    });
  } catch (const std::system_error&) {
    work();  // without a thread to be had, the windows stand still
    return;
  }
  isRunning_ = true;
  loop.Run();
  worker.join();
  isRunning_ = false;
}

}  // namespace qvl
