// The files that switches write, the printed report, the clear rule and the note.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "files/log_file.h"
#include "platform/exclusive_file.h"
#include "tests/batch/batch_fixture.h"

namespace qvl {
namespace {

using testing::BatchTest;
using testing::Count;
using testing::Exists;
using testing::ReadFile;
using testing::Step;
using testing::WriteFile;

constexpr const char* kClearRefused =
    "   Unable to clear the log - attempt(s) to save the log first have failed\n";
constexpr const char* kCleared = "   Successfully cleared all entries from the Quarvel Log.\n";

class BatchOutputsTest : public BatchTest {
 protected:
  std::size_t Clears() const { return machine_.clearedBy.size(); }
};

TEST_F(BatchOutputsTest, SavesEveryRecordByteForByteInTheOrderRead) {
  machine_.records[1].reserved0 = {0xAB, 0xCD};
  Lines({"/save:out"}, kBatchExitFinished);
  std::string expected = "Zelkor QVX Log v1.0";
  for (const RawLogEntry& record : machine_.records) {
    expected.append(reinterpret_cast<const char*>(&record), sizeof record);
    expected.append(256, '\0');
  }
  EXPECT_EQ(ReadFile("out.qvx"), expected);
}

TEST_F(BatchOutputsTest, ASavedLogReplacesALongerOne) {
  WriteFile("log.v1", std::string(100000, 'o'));
  EXPECT_EQ(Lines({"/save:log.v1"}, kBatchExitFinished),
            "   Successfully saved QVX data to file log.v1\n   Finished!\n  \n");
  EXPECT_EQ(ReadFile("log.v1").size(), 19U + 3 * 512);
}

TEST_F(BatchOutputsTest, ExportsTheMachinesNameAndEveryEntry) {
  machine_.records = {Fan(1, "50% \"done\""), testing::Record(2, 99, 65535)};
  Lines({"/export:out"}, kBatchExitFinished);
  EXPECT_EQ(ReadFile("out.csv"),
            "Korvath Quarvel Log Viewer:  SERVER\r\n"
            "Description,Class,Code,Severity,Count,Update Time,Initial Time\r\n"
            "\"Maintenance note: 50% \"done\"\",Maintenance,2,Caution,12,11/20/2026 1:05 PM,"
            "1/2/2026 12:00 AM\r\n"
            "\"Unknown Event (Class 99, Code 65535)\",,65535,,0,Invalid: 0/0/0 12:00 AM,"
            "Invalid: 0/0/0 12:00 AM\r\n");
}

// Scripts have always found the tail of a longer export behind the new lines.
TEST_F(BatchOutputsTest, AnExportKeepsTheTailOfALongerFile) {
  machine_.records.clear();
  Lines({"/export:fresh"}, kBatchExitFinished);
  const std::string fresh = ReadFile("fresh.csv");
  WriteFile("old.csv", std::string(1000, 'o'));
  EXPECT_EQ(Lines({"/export:old.csv"}, kBatchExitFinished),
            "   Successfully exported QVX data to file old.csv\n   Finished!\n  \n");
  EXPECT_EQ(ReadFile("old.csv"), fresh + std::string(1000 - fresh.size(), 'o'));
}

TEST_F(BatchOutputsTest, AppendsReports) {
  machine_.records = {Fan(1, "one")};
  const std::string once =
      "Korvath Quarvel Log Viewer - SERVER\n"
      "Friday, November 20, 2026 at 01:05 PM\n"
      "Maintenance note: one\n"
      "    Class          : Maintenance\n"
      "    Severity       : Caution\n"
      "    Count          : 12\n"
      "    Update Time    : 11/20/2026 1:05 PM\n"
      "    Initial Time   : 1/2/2026 12:00 AM\n";
  Lines({"/p:out"}, kBatchExitFinished);
  EXPECT_EQ(ReadFile("out.txt"), once);
  Lines({"/p:out.txt"}, kBatchExitFinished);
  EXPECT_EQ(ReadFile("out.txt"), once + once);
  machine_.records.clear();
  Lines({"/p:head"}, kBatchExitFinished);
  EXPECT_EQ(ReadFile("head.txt"), once.substr(0, once.find("Maintenance")));
}

TEST_F(BatchOutputsTest, EachFailedSwitchSaysSoAndTheRunGoesOn) {
  EXPECT_EQ(Lines({"/save:no folder/a", "/export:no folder/b", "/p:no folder/c", "/note:n"},
                  kBatchExitSwitchFailed),
            "   Failure saving QVX data to file no folder/a.qvx\n"
            "   Failure exporting QVX data to file no folder/b.csv\n"
            "   Couldn't open file 'no folder/c.txt'.\n"
            "   Successfully logged maintenance note to the Quarvel Log.\n"
            "   Finished!\n"
            "  \n");
}

TEST_F(BatchOutputsTest, PrintsOneDocumentCalledReport) {
  EXPECT_EQ(Lines({"/p"}, kBatchExitFinished),
            "   Successfully printed output to the default printer.\n   Finished!\n  \n");
  ASSERT_GE(print_.calls.size(), 3U);
  EXPECT_EQ(print_.calls.front(), "document Report");
  EXPECT_EQ(print_.calls[1], "page");
  EXPECT_NE(print_.calls[2].find("Korvath Quarvel Log Viewer - SERVER"), std::string::npos);
  EXPECT_EQ(print_.calls.back(), "end of document");
}

TEST_F(BatchOutputsTest, APrinterThatIsMissingOrRefusesIsAFailedAttempt) {
  hasPrinter_ = false;
  EXPECT_EQ(Lines({"/p", "/clear"}, kBatchExitSwitchFailed),
            std::string("   No default printer could be found.\n") + kClearRefused + kEnd);
  const std::string expected =
      std::string("   Couldn't print on the default printer.\n") + kClearRefused + kEnd;
  hasPrinter_ = true;
  print_.refusesStart = true;
  EXPECT_EQ(Lines({"/p", "/clear"}, kBatchExitSwitchFailed), expected);
  print_.refusesStart = false;
  print_.refusesEnd = true;
  EXPECT_EQ(Lines({"/p", "/clear"}, kBatchExitSwitchFailed), expected);
  EXPECT_EQ(Clears(), 0U);
}

TEST_F(BatchOutputsTest, ClearsWithoutAnAttemptAndAfterOneThatSucceeded) {
  EXPECT_EQ(Lines({"/clear"}, kBatchExitFinished), std::string(kCleared) + kEnd);
  for (const std::string kept : {"/save:a", "/export:b", "/p:c", "/p"}) {
    Lines({"/clear", kept, "/save:no folder/a"}, kBatchExitSwitchFailed);
  }
  EXPECT_EQ(Clears(), 5U);
}

TEST_F(BatchOutputsTest, DoesNotClearWhenEveryAttemptFailed) {
  for (const std::string lost : {"/save:no folder/a", "/export:no folder/b", "/p:no folder/c"}) {
    const std::string lines = Lines({lost, "/clear"}, kBatchExitSwitchFailed);
    EXPECT_EQ(lines.substr(lines.find('\n') + 1), std::string(kClearRefused) + kEnd) << lost;
  }
  const std::string lines =
      Lines({"/clear", "/save:no folder/a", "/clear", "/p:no folder/c"}, kBatchExitSwitchFailed);
  EXPECT_NE(lines.find(std::string(kClearRefused) + kClearRefused + kEnd), std::string::npos);
  EXPECT_EQ(Clears(), 0U);
  EXPECT_EQ(Count(machine_.calls, "clear Ada"), 0);
}

TEST_F(BatchOutputsTest, AFileThatAnotherProgramHoldsIsLeftAsItIs) {
  for (const std::string name : {"a.qvx", "b.csv", "c.txt"}) WriteFile(name, "theirs");
  {
    ExclusiveFile a;
    ExclusiveFile b;
    ExclusiveFile c;
    ASSERT_TRUE(a.Open("a.qvx", ExclusiveFile::Mode::kRead).ok());
    ASSERT_TRUE(b.Open("b.csv", ExclusiveFile::Mode::kOverwrite).ok());
    ASSERT_TRUE(c.Open("c.txt", ExclusiveFile::Mode::kAppend).ok());
    EXPECT_EQ(Lines({"/save:a", "/export:b", "/p:c", "/clear"}, kBatchExitSwitchFailed),
              std::string("   Failure saving QVX data to file a.qvx\n"
                          "   Failure exporting QVX data to file b.csv\n"
                          "   Couldn't open file 'c.txt'.\n") +
                  kClearRefused + kEnd);
  }
  for (const std::string name : {"a.qvx", "b.csv", "c.txt"}) EXPECT_EQ(ReadFile(name), "theirs");
}

// The run log is being written: nothing else may write, and least of all empty, it.
TEST_F(BatchOutputsTest, TheRunLogItselfIsNoOutput) {
  EXPECT_EQ(Lines({"/save:zlkqvxv.log", "/export:zlkqvxv.log", "/p:zlkqvxv.log", "/clear"},
                  kBatchExitSwitchFailed),
            std::string("   Failure saving QVX data to file zlkqvxv.log\n"
                        "   Failure exporting QVX data to file zlkqvxv.log\n"
                        "   Couldn't open file 'zlkqvxv.log'.\n") +
                kClearRefused + kEnd);
  EXPECT_EQ(Clears(), 0U);
}

TEST_F(BatchOutputsTest, SaysWhyTheLogIsNotCleared) {
  machine_.cleared = 0;
  EXPECT_EQ(Lines({"/save:a", "/clear"}, kBatchExitSwitchFailed),
            std::string("   Successfully saved QVX data to file a.qvx\n"
                        "   Unable to clear the entries from the Quarvel Log.\n") +
                kEnd);
  machine_.Fail(Step::kClear, kAccessDenied);
  EXPECT_EQ(Lines({"/clear"}, kBatchExitSwitchFailed),
            std::string("   You don't have the required privileges to access the requested "
                        "machine.\n") +
                kEnd);
}

TEST_F(BatchOutputsTest, TellsTheMachineWhoCleared) {
  Lines({"/clear"}, kBatchExitFinished);
  userName_ = std::string(31, 'u');
  Lines({"/clear"}, kBatchExitFinished);
  userName_.clear();  // the system does not tell, or the name is longer
  Lines({"/clear"}, kBatchExitFinished);
  EXPECT_EQ(machine_.clearedBy,
            (std::vector<std::string>{"Ada", std::string(31, 'u'), "<UNKNOWN USER>"}));
}

TEST_F(BatchOutputsTest, NotesAreAtMost227BytesLong) {
  const std::string longest(227, 'n');
  EXPECT_EQ(Lines({"/note:" + longest}, kBatchExitFinished),
            std::string("   Successfully logged maintenance note to the Quarvel Log.\n") + kEnd);
  EXPECT_EQ(Lines({"/note:" + longest + "n"}, kBatchExitSwitchFailed),
            std::string("   Unable to write maintenance note to the Quarvel Log - note is too "
                        "long.\n") +
                kEnd);
  EXPECT_EQ(machine_.notes, std::vector<std::string>{longest});
}

TEST_F(BatchOutputsTest, SaysWhyANoteIsNotLogged) {
  machine_.noteWritten = 0;
  machine_.noteResult = 7;
  EXPECT_EQ(Lines({"/note:a", "/note:b"}, kBatchExitSwitchFailed),
            std::string("   Unable to log maintenance note to the Quarvel Log.\n"
                        "   Unable to log maintenance note to the Quarvel Log.\n") +
                kEnd);
  machine_.Fail(Step::kNote, RM_E_NO_DRIVER);
  EXPECT_EQ(Lines({"/note:a"}, kBatchExitSwitchFailed),
            std::string("   Error: The System Management driver is not detected.\n") + kEnd);
}

TEST_F(BatchOutputsTest, NamesBeyondAsciiWorkOnEverySystem) {
  const std::string name = "\xE3\x83\xAD\xE3\x82\xB0";
  EXPECT_EQ(Lines({"/save:" + name}, kBatchExitFinished),
            "   Successfully saved QVX data to file " + name + ".qvx\n" + kEnd);
  EXPECT_EQ(ReadFile(name + ".qvx").size(), 19U + 3 * 512);
}

TEST_F(BatchOutputsTest, KeepsOneHundredThousandEntries) {
  std::uint32_t last = 0;
  machine_.deliver = [&](std::uint32_t asked) -> std::optional<RawLogEntry> {
    if (asked >= 100000) return std::nullopt;
    last = asked;
    return Fan(asked, "many");
  };
  Lines({"/save:many", "/clear"}, kBatchExitFinished);
  EXPECT_EQ(last, 99999U);
  EntryList saved;
  ASSERT_TRUE(LoadLogFile("many.qvx", saved).ok());
  EXPECT_EQ(saved.size(), 100000U);
}

}  // namespace
}  // namespace qvl
