#include "batch/batch_runner.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/batch/batch_fixture.h"

namespace qvl {
namespace {

using testing::BatchTest;
using testing::Count;
using testing::Exists;
using testing::LanguageScope;
using testing::ReadFile;
using testing::WriteFile;
using Calls = std::vector<std::string>;

class BatchRunnerTest : public BatchTest {};

TEST_F(BatchRunnerTest, DoesEverythingInItsOwnOrder) {
  EXPECT_EQ(Run({"/note:checked", "/clear", "/p", "/p:c", "-export:b", "/Save:a", "/m:server"}),
            kBatchExitFinished);
  EXPECT_EQ(ReadFile("zlkqvxv.log"),
            "Korvath Quarvel Log Viewer Log - SERVER\n"
            "Friday, November 20, 2026 at 01:05 PM\n"
            "   Executing: zlkqvxv /the command line\n"
            "   Connecting to SERVER ...\n"
            "   Connected to SERVER.\n"
            "   Successfully saved QVX data to file a.qvx\n"
            "   Successfully exported QVX data to file b.csv\n"
            "   Successfully printed output to the default printer.\n"
            "   Successfully wrote output to file 'c.txt'.\n"
            "   Successfully cleared all entries from the Quarvel Log.\n"
            "   Successfully logged maintenance note to the Quarvel Log.\n"
            "   Finished!\n"
            "  \n");
  EXPECT_EQ(machine_.calls, (Calls{"compose SERVER", "bind", "free composed", "authenticate",
                                   "administrator", "present", "read 0", "read 2", "read 3",
                                   "read 8", "clear Ada", "note checked", "free binding"}));
  EXPECT_EQ(machine_.liveBindings(), 0U);
  EXPECT_EQ(machine_.liveComposed(), 0U);
}

// What is written comes from what was read before the log was cleared.
TEST_F(BatchRunnerTest, ClearsOnlyAfterEveryFileIsClosed) {
  std::size_t savedBytes = 0;
  machine_.onStep = [&](testing::Step step) {
    if (step == testing::Step::kClear) savedBytes = ReadFile("a.qvx").size();
  };
  Lines({"/clear", "/save:a"}, kBatchExitFinished);
  EXPECT_EQ(savedBytes, 19U + 3 * 512);
}

TEST_F(BatchRunnerTest, RepeatedSwitchesAreCarriedOutAsOftenAsTheyAppear) {
  EXPECT_EQ(Lines({"/clear", "/p:r2", "/note:n1", "/save:a1", "/export:e1", "/save:a2", "/p",
                   "/clearall", "/export:e2", "/note:n2", "/p:r1"},
                  kBatchExitFinished),
            "   Successfully saved QVX data to file a1.qvx\n"
            "   Successfully saved QVX data to file a2.qvx\n"
            "   Successfully exported QVX data to file e1.csv\n"
            "   Successfully exported QVX data to file e2.csv\n"
            "   Successfully wrote output to file 'r2.txt'.\n"
            "   Successfully printed output to the default printer.\n"
            "   Successfully wrote output to file 'r1.txt'.\n"
            "   Successfully cleared all entries from the Quarvel Log.\n"
            "   Successfully cleared all entries from the Quarvel Log.\n"
            "   Successfully logged maintenance note to the Quarvel Log.\n"
            "   Successfully logged maintenance note to the Quarvel Log.\n"
            "   Finished!\n"
            "  \n");
  EXPECT_EQ(machine_.notes, (std::vector<std::string>{"n1", "n2"}));
  EXPECT_EQ(ReadFile("a1.qvx"), ReadFile("a2.qvx"));
}

TEST_F(BatchRunnerTest, ConnectsAndReadsEvenWhenThereIsNothingToDo) {
  for (const std::string only : {"/ackalerts", "-AckAlertsPlease", "/m:server", "/f:zlkqvxv.log"}) {
    machine_.calls.clear();
    EXPECT_EQ(Lines({only}, kBatchExitFinished), "   Finished!\n  \n") << only;
    EXPECT_EQ(Count(machine_.calls, "read 8"), 1) << only;
    EXPECT_EQ(machine_.calls.back(), "free binding") << only;
  }
}

TEST_F(BatchRunnerTest, ReadsAnEmptyLogOfEitherSign) {
  machine_.records.clear();
  EXPECT_EQ(Lines({"/save:a"}, kBatchExitFinished),
            "   Successfully saved QVX data to file a.qvx\n   Finished!\n  \n");
  EXPECT_EQ(ReadFile("a.qvx"), "Zelkor QVX Log v1.0");
  for (const std::int32_t count : {0, -1}) {
    machine_.lastEntryStatus = 0;
    machine_.lastEntryCount = count;
    Lines({"/save:a"}, kBatchExitFinished);
    EXPECT_EQ(ReadFile("a.qvx").size(), 19U) << count;
  }
}

TEST_F(BatchRunnerTest, NormalisesTheMachinesName) {
  struct Case {
    const char* given;
    const char* connected;
  };
  constexpr Case kCases[] = {
      {"\\\\server",        "SERVER"           },
      {"  srv-2.example ",  "SRV-2.EXAMPLE"    },
      {".",                 "LOCALBOX"         },
      {"\\\\.",             "LOCALBOX"         },
      {"..",                ".."               },
      {"a\\b",              "A B"              },
      {"100%s%n",           "100%S%N"          },
      {"\xC3\xA9t\xC3\xA9", "\xC3\xA9T\xC3\xA9"},
  };
  computerName_ = "LocalBox";
  for (const Case& each : kCases) {
    machine_.calls.clear();
    testing::WriteFile("run.log", "");
    EXPECT_EQ(Run({"/f:run.log", std::string("/m:") + each.given}), kBatchExitFinished);
    EXPECT_EQ(machine_.calls.front(), std::string("compose ") + each.connected);
    std::string log = ReadFile("run.log");
    log = log.substr(log.rfind("Korvath"));
    EXPECT_EQ(log, std::string("Korvath Quarvel Log Viewer Log - ") + each.connected +
                       "\n"
                       "Friday, November 20, 2026 at 01:05 PM\n"
                       "   Executing: zlkqvxv /the command line\n"
                       "   Connecting to " +
                       each.connected + " ...\n   Connected to " + each.connected +
                       ".\n   Finished!\n  \n");
    std::filesystem::remove("run.log");
  }
}

TEST_F(BatchRunnerTest, TheLastMachineAndTheLastRunLogWin) {
  EXPECT_EQ(Run({"/m:first", "/f:one", "/f:two.txt", "/m:second"}), kBatchExitFinished);
  EXPECT_EQ(machine_.calls.front(), "compose SECOND");
  EXPECT_FALSE(Exists("zlkqvxv.log"));
  EXPECT_FALSE(Exists("one.log"));
  EXPECT_NE(ReadFile("two.txt").find("Log - SECOND\n"), std::string::npos);
}

TEST_F(BatchRunnerTest, AppendsLogToARunLogsNameWithoutAPoint) {
  EXPECT_EQ(Run({"/F:runs"}), kBatchExitFinished);
  EXPECT_TRUE(Exists("runs.log"));
}

TEST_F(BatchRunnerTest, AppendsToTheRunLogOfEarlierRuns) {
  WriteFile("zlkqvxv.log", "from before\n");
  EXPECT_EQ(Run({"/ackalerts"}), kBatchExitFinished);
  EXPECT_EQ(Run({"/bad"}), kBatchExitDidNothing);
  EXPECT_EQ(ReadFile("zlkqvxv.log"),
            std::string("from before\n") + kHead + kConnected + kEnd + kHead +
                "   Unknown command '/bad'. Please view the helpfile on using the command-line "
                "arguments.\n" +
                kNothing);
}

TEST_F(BatchRunnerTest, RunLogAndReportHaveTheSystemsLineEndAndTheExportItsOwn) {
  machine_.records = {Fan(1, "one")};
  lineEnd_ = "\r\n";
  EXPECT_EQ(Run({"/export:b", "/p:c"}), kBatchExitFinished);
  EXPECT_EQ(ReadFile("zlkqvxv.log"),
            "Korvath Quarvel Log Viewer Log - SERVER\r\n"
            "Friday, November 20, 2026 at 01:05 PM\r\n"
            "   Executing: zlkqvxv /the command line\r\n"
            "   Connecting to SERVER ...\r\n"
            "   Connected to SERVER.\r\n"
            "   Successfully exported QVX data to file b.csv\r\n"
            "   Successfully wrote output to file 'c.txt'.\r\n"
            "   Finished!\r\n"
            "  \r\n");
  const std::string report = ReadFile("c.txt");
  EXPECT_EQ(report.substr(0, report.find("Maintenance")),
            "Korvath Quarvel Log Viewer - SERVER\r\nFriday, November 20, 2026 at 01:05 PM\r\n");
  const std::string onWindows = ReadFile("b.csv");
  std::filesystem::remove("b.csv");
  lineEnd_ = "\n";
  EXPECT_EQ(Run({"/export:b"}), kBatchExitFinished);
  EXPECT_EQ(ReadFile("b.csv"), onWindows);
}

TEST_F(BatchRunnerTest, SpeaksTheLanguageOfTheProcess) {
  const LanguageScope japanese(Language::kJapanese);
  EXPECT_EQ(Run({"/save:a", "/save:no folder/b", "/export:no folder/c", "/note:n"}),
            kBatchExitSwitchFailed);
  EXPECT_EQ(ReadFile("zlkqvxv.log"),
            "Korvath Quarvel ログ ビューアー ログ - SERVER\n"
            "Friday, November 20, 2026 at 01:05 PM\n"
            "   実行: zlkqvxv /the command line\n"
            "   SERVER に接続しています ...\n"
            "   SERVER に接続しました。\n"
            "   QVX データをファイル a.qvx に保存しました\n"
            "   QVX データをファイル no folder/b.qvx に保存できませんでした\n"
            "   QVX データをファイル no folder/c.csv にエクスポートできませんでした\n"
            "   Quarvel ログに保守メモを記録しました。\n"
            "   終了しました。\n"
            "  \n");
  // The log file's header is the same in every language.
  EXPECT_EQ(ReadFile("a.qvx").substr(0, 19), "Zelkor QVX Log v1.0");
}

TEST_F(BatchRunnerTest, TellsTheMorningFromTheAfternoon) {
  ASSERT_TRUE(ToMoment({2027, 1, 3, 0, 9, 59}, now_));
  EXPECT_EQ(Run({"/ackalerts"}), kBatchExitFinished);
  EXPECT_NE(ReadFile("zlkqvxv.log").find("\nSunday, January 03, 2027 at 12:09 AM\n"),
            std::string::npos);
}

TEST_F(BatchRunnerTest, TakesAThousandArguments) {
  std::vector<std::string> arguments(1000, "/ackalerts");
  arguments.back() = "/note:last";
  EXPECT_EQ(Lines(arguments, kBatchExitFinished),
            "   Successfully logged maintenance note to the Quarvel Log.\n   Finished!\n  \n");
  arguments.assign(1000, "bad");
  machine_.calls.clear();
  EXPECT_EQ(Run(arguments), kBatchExitDidNothing);
  EXPECT_EQ(machine_.calls, Calls());
  const std::string log = ReadFile("zlkqvxv.log");
  std::size_t lines = 0;
  for (std::size_t at = 0; (at = log.find("Unknown command 'bad'", at)) != std::string::npos;
       ++at) {
    ++lines;
  }
  EXPECT_EQ(lines, 1000U);
}

TEST_F(BatchRunnerTest, CutsLinesAboutVeryLongArguments) {
  const std::string name(5000, 'x');
  const std::string start = "Failure saving QVX data to file ";
  EXPECT_EQ(Lines({"/save:" + name}, kBatchExitSwitchFailed),
            "   " + start + std::string(511 - start.size(), 'x') + "\n" + kEnd);
  const std::string unknown(1'000'000, 'y');
  std::filesystem::remove("zlkqvxv.log");
  EXPECT_EQ(Run({unknown}), kBatchExitDidNothing);
  EXPECT_EQ(ReadFile("zlkqvxv.log"), std::string(kHead) + "   Unknown command '" +
                                         std::string(511 - 17, 'y') + "\n" + kNothing);
}

TEST_F(BatchRunnerTest, ASecondRunOfTheProcessStartsAfresh) {
  Lines({"/save:no folder/a"}, kBatchExitSwitchFailed);
  EXPECT_EQ(Lines({"/clear"}, kBatchExitFinished),
            "   Successfully cleared all entries from the Quarvel Log.\n   Finished!\n  \n");
}

}  // namespace
}  // namespace qvl
