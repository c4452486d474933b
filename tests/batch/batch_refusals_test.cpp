// What ends a run before its switches are carried out, or ends the reading early.
#include <gtest/gtest.h>

#include <new>
#include <optional>
#include <string>
#include <vector>

#include "platform/exclusive_file.h"
#include "platform/system_error_text.h"
#include "tests/batch/batch_fixture.h"

namespace qvl {
namespace {

using testing::BatchTest;
using testing::Count;
using testing::Exists;
using testing::ReadFile;
using testing::Step;
using testing::WriteFile;
using Calls = std::vector<std::string>;

class BatchRefusalsTest : public BatchTest {
 protected:
  /// Runs a whole set of switches that ends with "Did nothing!"; gives the lines before that.
  std::string RefusedLines(const std::vector<std::string>& arguments) {
    std::filesystem::remove("zlkqvxv.log");
    EXPECT_EQ(Run(arguments), kBatchExitDidNothing);
    const std::string log = ReadFile("zlkqvxv.log");
    const std::string end = kNothing;
    EXPECT_EQ(log.substr(0, std::string(kHead).size()), kHead);
    EXPECT_EQ(log.substr(log.size() - std::min(end.size(), log.size())), end);
    EXPECT_FALSE(Exists("a.qvx"));
    EXPECT_EQ(machine_.clearedBy, std::vector<std::string>());
    EXPECT_EQ(machine_.liveBindings(), 0U);
    const std::size_t start = std::string(kHead).size();
    return log.size() < start + end.size() ? log
                                           : log.substr(start, log.size() - start - end.size());
  }

  std::string RefusedLines() { return RefusedLines({"/save:a", "/clear", "/note:n"}); }
};

TEST_F(BatchRefusalsTest, OneUnknownCommandStopsEverything) {
  EXPECT_EQ(
      RefusedLines({"/save:a", "save:b", "/p:", "/clear", "/note:", "/Help", ""}),
      "   Unknown command 'save:b'. Please view the helpfile on using the command-line "
      "arguments.\n"
      "   Unknown command '/p:'. Please view the helpfile on using the command-line arguments.\n"
      "   Unknown command '/note:'. Please view the helpfile on using the command-line "
      "arguments.\n"
      "   Unknown command '/Help'. Please view the helpfile on using the command-line "
      "arguments.\n"
      "   Unknown command ''. Please view the helpfile on using the command-line arguments.\n");
  EXPECT_EQ(machine_.calls, Calls());
}

TEST_F(BatchRefusalsTest, ANamedRunLogIsKeptEvenBesideUnknownCommands) {
  EXPECT_EQ(Run({"/x%s%n", "/f:other", "/m:srv"}), kBatchExitDidNothing);
  EXPECT_FALSE(Exists("zlkqvxv.log"));
  EXPECT_EQ(ReadFile("other.log"),
            "Korvath Quarvel Log Viewer Log - SRV\n"
            "Friday, November 20, 2026 at 01:05 PM\n"
            "   Executing: zlkqvxv /the command line\n"
            "   Unknown command '/x%s%n'. Please view the helpfile on using the command-line "
            "arguments.\n"
            "   Did nothing!\n"
            "  \n");
}

TEST_F(BatchRefusalsTest, SaysWhenNoMachineIsNamed) {
  for (const std::string name : {"/m:\\\\", "/m: ", "/m:\\ \\"}) {
    std::filesystem::remove("zlkqvxv.log");
    EXPECT_EQ(Run({name, "/clear"}), kBatchExitDidNothing);
    EXPECT_EQ(ReadFile("zlkqvxv.log"),
              "Korvath Quarvel Log Viewer Log - \n"
              "Friday, November 20, 2026 at 01:05 PM\n"
              "   Executing: zlkqvxv /the command line\n"
              "   No machine was specified.\n"
              "   Did nothing!\n"
              "  \n");
  }
  computerName_.clear();
  std::filesystem::remove("zlkqvxv.log");
  EXPECT_EQ(Run({"/clear"}), kBatchExitDidNothing);
  EXPECT_EQ(Run({"/m:.", "/clear"}), kBatchExitDidNothing);
  EXPECT_EQ(machine_.calls, Calls());
}

TEST_F(BatchRefusalsTest, SaysWhyAMachineCannotBeReached) {
  const auto expectText = [this](RemoteStatus status, const std::string& text) {
    machine_.Fail(Step::kAdministrator, status);
    EXPECT_EQ(RefusedLines(), "   Connecting to SERVER ...\n   " + text + "\n");
  };
  expectText(kAccessDenied,
             "You don't have the required privileges to access the requested machine.");
  expectText(kUnknownInterface,
             "The requested machine is running an incompatible version of the Korvath Remote "
             "Monitor service.");
  expectText(kServerUnavailable,
             "The requested machine is not running the Korvath Remote Monitor service, or it "
             "can't be found on the network.");
  expectText(RM_E_NO_DRIVER, "Error: The System Management driver is not detected.");
  expectText(kCallFailed, TextOfErrorCode(kCallFailed));
  expectText(RM_E_NOT_ADMINISTRATOR, "Unknown error: 0xe0000004");
  EXPECT_EQ(Count(machine_.calls, "present"), 0);
}

// Also for a run that would change nothing.
TEST_F(BatchRefusalsTest, WorksOnlyForAdministrators) {
  machine_.isAdministrator = 0;
  EXPECT_EQ(
      RefusedLines({"/save:a"}),
      std::string(kConnected) + "   You do not have administrator privileges on this machine.\n");
  EXPECT_EQ(Count(machine_.calls, "present"), 0);
  EXPECT_EQ(machine_.calls.back(), "free binding");
}

TEST_F(BatchRefusalsTest, SaysWhenTheMachineHasNoLog) {
  machine_.hasLog = 0;
  EXPECT_EQ(RefusedLines(),
            std::string(kConnected) + "   This machine does not have an Quarvel Log\n");
  EXPECT_EQ(Count(machine_.calls, "read 0"), 0);
  machine_.Fail(Step::kPresent, RM_E_NO_DRIVER);
  EXPECT_EQ(RefusedLines(),
            std::string(kConnected) + "   Error: The System Management driver is not detected.\n");
}

TEST_F(BatchRefusalsTest, AFailedFirstReadEndsWithoutAFurtherWord) {
  machine_.Fail(Step::kRead, kAccessDenied);
  EXPECT_EQ(Lines({"/save:a", "/clear", "/note:n"}, kBatchExitDidNothing),
            "   You don't have the required privileges to access the requested machine.\n  \n");
  EXPECT_FALSE(Exists("a.qvx"));
  EXPECT_EQ(machine_.calls.back(), "free binding");
  EXPECT_EQ(machine_.clearedBy, std::vector<std::string>());
  EXPECT_EQ(machine_.notes, std::vector<std::string>());
}

TEST_F(BatchRefusalsTest, ALaterFailedReadKeepsWhatCameAndSaysNothing) {
  machine_.FailCall(Step::kRead, 3, kCallFailed);
  EXPECT_EQ(Lines({"/save:a", "/clear"}, kBatchExitSwitchFailed),
            "   Successfully saved QVX data to file a.qvx\n"
            "   Successfully cleared all entries from the Quarvel Log.\n"
            "   Finished!\n"
            "  \n");
  EXPECT_EQ(ReadFile("a.qvx").size(), 19U + 2 * 512);
}

// A log that leads back to an entry seen before would be read for ever.
TEST_F(BatchRefusalsTest, ANumberThatFallsBackEndsTheReadingAndForbidsTheClear) {
  machine_.deliver = [this](std::uint32_t asked) -> std::optional<RawLogEntry> {
    return machine_.records[asked == 2 ? 1 : 0];
  };
  EXPECT_EQ(Lines({"/save:a", "/clear", "/note:n"}, kBatchExitSwitchFailed),
            "   Reading ended early: the machine delivered entry 1 where entry 3 or a later one "
            "was due.\n"
            "   Successfully saved QVX data to file a.qvx\n"
            "   Unable to clear the log - it could not be read to its end\n"
            "   Successfully logged maintenance note to the Quarvel Log.\n"
            "   Finished!\n"
            "  \n");
  EXPECT_EQ(ReadFile("a.qvx").size(), 19U + 2 * 512);
  EXPECT_EQ(machine_.clearedBy, std::vector<std::string>());
  // Nobody asked for a copy here.
  EXPECT_EQ(Lines({"/clear"}, kBatchExitSwitchFailed),
            "   Reading ended early: the machine delivered entry 1 where entry 3 or a later one "
            "was due.\n"
            "   Successfully cleared all entries from the Quarvel Log.\n"
            "   Finished!\n"
            "  \n");
}

TEST_F(BatchRefusalsTest, WithoutMemoryKeepsWhatCameAndTheLogOnTheMachine) {
  machine_.deliver = [this](std::uint32_t asked) -> std::optional<RawLogEntry> {
    if (asked >= 3) throw std::bad_alloc();
    return machine_.records[asked == 0 ? 0 : 1];
  };
  const std::string lines = Lines({"/save:a", "/clear"}, kBatchExitSwitchFailed);
  EXPECT_NE(lines.find("   Successfully saved QVX data to file a.qvx\n"
                       "   Unable to clear the log - it could not be read to its end\n"
                       "   Finished!\n  \n"),
            std::string::npos)
      << lines;
  EXPECT_EQ(ReadFile("a.qvx").size(), 19U + 2 * 512);
  EXPECT_EQ(machine_.liveBindings(), 0U);
}

TEST_F(BatchRefusalsTest, WithoutARunLogNothingIsDone) {
  EXPECT_EQ(Run({"/f:no folder/run", "/save:a", "/clear"}), kBatchExitNoRunLog);
  std::filesystem::create_directory("folder");
  EXPECT_EQ(Run({"/f:./folder", "/save:a", "/clear"}), kBatchExitNoRunLog);
  EXPECT_EQ(Run({"/f:./folder", "/unknown"}), kBatchExitNoRunLog);
  EXPECT_EQ(machine_.calls, Calls());
  EXPECT_FALSE(Exists("a.qvx"));
  EXPECT_FALSE(Exists("zlkqvxv.log"));
}

TEST_F(BatchRefusalsTest, ARunLogInUseElsewhereIsLeftAlone) {
  ExclusiveFile other;
  ASSERT_TRUE(other.Open("zlkqvxv.log", ExclusiveFile::Mode::kAppend).ok());
  ASSERT_TRUE(other.Write("theirs").ok());
  EXPECT_EQ(Run({"/clear"}), kBatchExitNoRunLog);
  ASSERT_TRUE(other.Close().ok());
  EXPECT_EQ(ReadFile("zlkqvxv.log"), "theirs");
  EXPECT_EQ(machine_.calls, Calls());
}

TEST_F(BatchRefusalsTest, FailuresOfDisconnectingAreIgnored) {
  machine_.Fail(Step::kFreeBinding, kServerUnavailable);
  EXPECT_EQ(Lines({"/save:a"}, kBatchExitFinished),
            "   Successfully saved QVX data to file a.qvx\n   Finished!\n  \n");
}

}  // namespace
}  // namespace qvl
