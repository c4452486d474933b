#include "platform/interrupt.h"

#include <windows.h>

namespace qvl {
namespace {

// Runs in a thread that the system makes for it. False leaves the event to the system, which ends
// the process.
BOOL WINAPI NoteInterrupt(DWORD event) {
  return event == CTRL_C_EVENT && InterruptWatch::Note() ? TRUE : FALSE;
}

}  // namespace

InterruptWatch::InterruptWatch() {
  noted_ = false;
  ::SetConsoleCtrlHandler(NoteInterrupt, TRUE);
}

InterruptWatch::~InterruptWatch() {
  ::SetConsoleCtrlHandler(NoteInterrupt, FALSE);
}

}  // namespace qvl
