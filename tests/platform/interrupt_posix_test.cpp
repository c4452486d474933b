#include <gtest/gtest.h>
#include <signal.h>

#include "platform/interrupt.h"

namespace qvl {
namespace {

TEST(InterruptWatch, NotesTheFirstCtrlC) {
  const InterruptWatch watch;
  EXPECT_FALSE(InterruptWatch::Interrupted());
  ::raise(SIGINT);
  EXPECT_TRUE(InterruptWatch::Interrupted());
}

TEST(InterruptWatch, ANewWatchHasNotedNothing) {
  {
    const InterruptWatch watch;
    ::raise(SIGINT);
  }
  const InterruptWatch watch;
  EXPECT_FALSE(InterruptWatch::Interrupted());
}

TEST(InterruptWatch, OnlyTheFirstNoteIsNews) {
  const InterruptWatch watch;
  EXPECT_TRUE(InterruptWatch::Note());
  EXPECT_FALSE(InterruptWatch::Note());
}

TEST(InterruptWatchDeathTest, ASecondCtrlCEndsTheProcess) {
  EXPECT_EXIT(
      {
        const InterruptWatch watch;
        ::raise(SIGINT);
        ::raise(SIGINT);
      },
      ::testing::KilledBySignal(SIGINT), "");
}

TEST(InterruptWatchDeathTest, WithoutAWatchCtrlCEndsTheProcess) {
  EXPECT_EXIT(
      {
        { const InterruptWatch watch; }
        ::raise(SIGINT);
      },
      ::testing::KilledBySignal(SIGINT), "");
}

// A program that a shell starts in the background is told to ignore Ctrl+C.
TEST(InterruptWatch, GoesOnIgnoringWhatIsIgnored) {
  struct sigaction ignore = {};
  struct sigaction before = {};
  ignore.sa_handler = SIG_IGN;
  ::sigaction(SIGINT, &ignore, &before);
  {
    const InterruptWatch watch;
    ::raise(SIGINT);
    EXPECT_FALSE(InterruptWatch::Interrupted());
  }
  struct sigaction after = {};
  ::sigaction(SIGINT, &before, &after);
  EXPECT_EQ(after.sa_handler, SIG_IGN);
}

// Reads and writes that are under way go on.
TEST(InterruptWatch, LetsTheSystemRestartItsCalls) {
  const InterruptWatch watch;
  struct sigaction current = {};
  ::sigaction(SIGINT, nullptr, &current);
  EXPECT_NE(current.sa_flags & SA_RESTART, 0);
}

}  // namespace
}  // namespace qvl
