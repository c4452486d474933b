#include "tools/qvlog/progress_line.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "tests/fakes/console.h"
#include "tests/fakes/terminal_line.h"

namespace qvl {
namespace {

using testing::LastLine;
using testing::StringSink;

TEST(ProgressLine, IsShownAtMostTenTimesASecond) {
  StringSink terminal;
  ProgressLine progress(terminal, "Reading X", true);
  for (std::uint64_t entries = 1; entries <= 1000; ++entries) progress.Show(entries);
  // A machine that stands still for a second between two of them makes a few more.
  EXPECT_LT(terminal.writes(), 100U);
  EXPECT_EQ(LastLine(terminal.bytes()).find("Reading X: "), 0U);
}

TEST(ProgressLine, TakesAnEchoedCtrlCAway) {
  StringSink terminal;
  ProgressLine progress(terminal, "Reading X", true);
  progress.Show(12);
  EXPECT_TRUE(terminal.Write("^C").ok());
  progress.Erase();
  EXPECT_EQ(LastLine(terminal.bytes()), "");
}

TEST(ProgressLine, FitsIntoALineOfATerminal) {
  StringSink terminal;
  ProgressLine progress(terminal, "Reading " + std::string(200, 'X'), true);
  progress.Show(1234567);
  EXPECT_EQ(terminal.bytes(), "\r1,234,567 entries");
}

TEST(ProgressLine, IsNotWrittenWithoutATerminal) {
  StringSink terminal;
  ProgressLine progress(terminal, "Reading X", false);
  progress.Show(1);
  progress.Erase();
  EXPECT_EQ(terminal.writes(), 0U);
}

TEST(EntriesText, GroupsTheDigits) {
  EXPECT_EQ(EntriesText(0), "0 entries");
  EXPECT_EQ(EntriesText(1), "1 entry");
  EXPECT_EQ(EntriesText(999), "999 entries");
  EXPECT_EQ(EntriesText(1000), "1,000 entries");
  EXPECT_EQ(EntriesText(100000), "100,000 entries");
  EXPECT_EQ(EntriesText(1234567), "1,234,567 entries");
}

}  // namespace
}  // namespace qvl
