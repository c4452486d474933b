#include <gtest/gtest.h>
#include <windows.h>

#include <cstdlib>

#include "platform/interrupt.h"

namespace qvl {
namespace {

constexpr int kTries = 500;
constexpr DWORD kTryMilliseconds = 20;
constexpr int kWentOn = 42;

// Ctrl+C in a console that no other process has.
bool PressCtrlC() {
  return ::GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0) != 0;
}

bool HaveConsole() {
  ::FreeConsole();
  return ::AllocConsole() != 0;
}

// The system tells of it in a thread of its own.
bool WaitForNote() {
  for (int i = 0; i < kTries && !InterruptWatch::Interrupted(); ++i) ::Sleep(kTryMilliseconds);
  return InterruptWatch::Interrupted();
}

void PressTwice() {
  if (!HaveConsole()) std::_Exit(kWentOn);
  const InterruptWatch watch;
  if (!PressCtrlC() || !WaitForNote() || !PressCtrlC()) std::_Exit(kWentOn);
  ::Sleep(kTries * kTryMilliseconds);
  std::_Exit(kWentOn);
}

TEST(InterruptWatch, NotesTheFirstCtrlC) {
  ASSERT_TRUE(HaveConsole());
  const InterruptWatch watch;
  EXPECT_FALSE(InterruptWatch::Interrupted());
  ASSERT_TRUE(PressCtrlC());
  EXPECT_TRUE(WaitForNote());
}

TEST(InterruptWatchDeathTest, ASecondCtrlCEndsTheProcess) {
  EXPECT_EXIT(
      PressTwice(), [](int status) { return status != kWentOn; }, "");
}

}  // namespace
}  // namespace qvl
