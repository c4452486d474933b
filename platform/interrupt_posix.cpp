#include <signal.h>

#include "platform/interrupt.h"

namespace qvl {
namespace {

// What Ctrl+C did before the watch.
struct sigaction previous = {};

extern "C" void NoteInterrupt(int /*signal*/) {
  InterruptWatch::Note();
}

}  // namespace

InterruptWatch::InterruptWatch() {
  noted_ = false;
  ::sigaction(SIGINT, nullptr, &previous);
  if (previous.sa_handler == SIG_IGN) return;
  struct sigaction action = {};
  action.sa_handler = NoteInterrupt;
  // The signal does its usual work from the second time on, and breaks off no read or write.
  action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
  ::sigaction(SIGINT, &action, nullptr);
}

InterruptWatch::~InterruptWatch() {
  ::sigaction(SIGINT, &previous, nullptr);
}

}  // namespace qvl
