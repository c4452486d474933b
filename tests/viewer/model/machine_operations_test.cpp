#include <gtest/gtest.h>

#include <new>
#include <string>
#include <vector>

#include "access/status_texts.h"
#include "tests/viewer/model/fake_viewer.h"

namespace qvl {
namespace {

using testing::FakeMachine;
using testing::Step;
using testing::ViewerTest;

constexpr const char* kTitle = "Korvath Quarvel Log Viewer";
constexpr const char* kNotAdministrator =
    "You do not have administrator privileges on this machine. You will be able to view, but not "
    "modify the information.";
constexpr const char* kNoLog =
    "Either the driver does not support the Quarvel Log or there is no Quarvel Log on this system";
constexpr const char* kUnavailable =
    "The requested machine is not running the Korvath Remote Monitor service, or it can't be found "
    "on the network.";
constexpr const char* kDenied =
    "You don't have the required privileges to access the requested machine.";
constexpr const char* kNoDriver = "Error: The System Management driver is not detected.";
constexpr const char* kNotMarked =
    "One or more entries were not marked as repaired because they were already tagged as repaired, "
    "or were informational entries that did not need to be marked as repaired.";
constexpr const char* kMarkFailed =
    "Failed to mark one or more of the selected entries as repaired.";
constexpr const char* kClearFailed =
    "The clear log command failed. The server may be temporarily inaccessible due to network "
    "problems, or the Remote Monitor Service may have been suspended.";
constexpr const char* kNoteFailed = "Unable to log the maintenance note to the Quarvel Log.";

class MachineOperationsTest : public ViewerTest {
 protected:
  MachineOperationsTest() { machine_.records = {Entry(1, 15), Entry(2, 9), Entry(5, 3)}; }

  const CEventLogEntry& EntryNumbered(std::uint32_t number) const {
    for (std::size_t i = 0; i < doc_.entries().size(); ++i) {
      if (doc_.entries()[i].GetEntryNumber() == number) return doc_.entries()[i];
    }
    ADD_FAILURE() << "no entry " << number;
    return doc_.entries()[0];
  }

  // Rows stand newest first: 5, 2, 1.
  static constexpr std::size_t kRowOf5 = 0;
  static constexpr std::size_t kRowOf2 = 1;
  static constexpr std::size_t kRowOf1 = 2;
};

TEST_F(MachineOperationsTest, OpeningTakesItsStepsInOrder) {
  EXPECT_TRUE(frame_.SwitchToMachine("SRV1"));
  EXPECT_EQ(
      viewer_.journal,
      (Journal{"box shows nothing", std::string("caption ") + kTitle, "progress Connecting to SRV1",
               "compose SRV1", "bind", "free composed", "authenticate", "administrator",
               "box shows SRV1", std::string("caption ") + kTitle + " - SRV1", "present",
               "progress closed", "progress Loading data...", "read 0", "read 2", "read 3",
               "read 6", "progress closed"}));
  EXPECT_EQ(frame_.machine(), "SRV1");
  EXPECT_TRUE(frame_.isAdministrator());
  EXPECT_FALSE(frame_.isBusy());
  EXPECT_TRUE(control_.enabled());
  EXPECT_EQ(EntryNumbers(), (Numbers{1, 2, 5}));
  EXPECT_EQ(RowNumbers(), (Numbers{5, 2, 1}));
  EXPECT_EQ(control_.selected(), std::set<std::size_t>{0});
  EXPECT_EQ(viewer_.names, std::vector<std::string>{"SRV1"});
}

TEST_F(MachineOperationsTest, OpeningResetsFilterAndSort) {
  Open();
  FilterChoices choices;
  choices.severity = "Critical";
  doc_.list().SetFilter(choices);
  doc_.list().SetTimeRange(TimeRange{0, 1});
  doc_.list().SetSort({Column::kClass, true});
  EXPECT_TRUE(frame_.SwitchToMachine("SRV2"));
  EXPECT_FALSE(doc_.list().IsFiltered());
  EXPECT_EQ(doc_.list().sort(), SortState());
}

TEST_F(MachineOperationsTest, NoNameOpensNothingAndStaysBusy) {
  EXPECT_FALSE(frame_.OpenMachine(""));
  EXPECT_TRUE(machine_.calls.empty());
  EXPECT_TRUE(viewer_.messages.empty());
  EXPECT_TRUE(frame_.isBusy());
  EXPECT_FALSE(control_.enabled());
}

TEST_F(MachineOperationsTest, AFailedConnectionLeavesTheFrameClosed) {
  Open();
  machine_.FailCall(Step::kAdministrator, 2, kServerUnavailable);
  EXPECT_FALSE(frame_.SwitchToMachine("GONE"));
  EXPECT_EQ(Messages(), Journal{kUnavailable});
  EXPECT_EQ(frame_.machine(), "");
  EXPECT_EQ(viewer_.caption, kTitle);
  EXPECT_EQ(viewer_.names, std::vector<std::string>{"SRV1"});
  EXPECT_TRUE(doc_.entries().empty());
  EXPECT_EQ(control_.RowCount(), 0U);
  EXPECT_FALSE(control_.enabled());
  EXPECT_TRUE(frame_.isBusy());
  EXPECT_FALSE(frame_.isAdministrator());
  EXPECT_EQ(machine_.liveBindings(), 0U);
  EXPECT_FALSE(viewer_.progressShown);
}

TEST_F(MachineOperationsTest, EachStatusOfAFailedConnectionHasItsMessage) {
  for (const auto& [status, text] : std::vector<std::pair<RemoteStatus, const char*>>{
           {5,          kDenied                    },
           {1722,       kUnavailable               },
           {1717,
            "The requested machine is running an incompatible version of the Korvath Remote "
            "Monitor service."                     },
           {0xE0000002, kNoDriver                  },
           {0xE0000004, kNotAdministrator          },
           {0xE0000009, "Unknown error: 0xe0000009"}
  }) {
    Forget();
    machine_.Fail(Step::kAdministrator, status);
    EXPECT_FALSE(frame_.SwitchToMachine("SRV1"));
    EXPECT_EQ(Messages(), Journal{text});
    EXPECT_EQ(viewer_.messages[0].icon, MessageIcon::kExclamation);
  }
}

TEST_F(MachineOperationsTest, AFailedQuestionForTheLogLeavesItsMachineCurrent) {
  machine_.Fail(Step::kPresent, kCallFailed);
  EXPECT_FALSE(frame_.SwitchToMachine("SRV1"));
  EXPECT_EQ(Messages(), Journal{StatusText(kCallFailed, StatusReader::kViewer)});
  EXPECT_EQ(frame_.machine(), "SRV1");
  EXPECT_EQ(machine_.liveBindings(), 1U);
  EXPECT_TRUE(doc_.entries().empty());
  EXPECT_TRUE(frame_.isBusy());
  EXPECT_FALSE(viewer_.progressShown);
}

TEST_F(MachineOperationsTest, AMachineWithoutALogSaysSo) {
  machine_.hasLog = 0;
  EXPECT_FALSE(frame_.SwitchToMachine("SRV1"));
  EXPECT_EQ(Messages(), Journal{kNoLog});
  EXPECT_EQ(frame_.machine(), "SRV1");
  EXPECT_EQ(viewer_.caption, std::string(kTitle) + " - SRV1");
  EXPECT_TRUE(frame_.isBusy());
  EXPECT_FALSE(control_.enabled());
}

TEST_F(MachineOperationsTest, AMissingAdministratorIsWarnedOnceAndSeesTheLog) {
  machine_.isAdministrator = 0;
  EXPECT_TRUE(frame_.SwitchToMachine("SRV1"));
  EXPECT_EQ(Messages(), Journal{kNotAdministrator});
  EXPECT_EQ(EntryNumbers(), (Numbers{1, 2, 5}));
  frame_.Execute(Command::kRefresh);
  EXPECT_EQ(Messages().size(), 1U);
}

TEST_F(MachineOperationsTest, AFailedFirstReadIsToldAndStillCountsAsOpened) {
  machine_.Fail(Step::kRead, kAccessDenied);
  EXPECT_TRUE(frame_.SwitchToMachine("SRV1"));
  EXPECT_EQ(Messages(), Journal{kDenied});
  EXPECT_FALSE(frame_.isBusy());
  EXPECT_EQ(frame_.machine(), "SRV1");
  EXPECT_FALSE(control_.enabled());
  EXPECT_EQ(control_.RowCount(), 0U);
}

TEST_F(MachineOperationsTest, AnEmptyLogOpensEmpty) {
  machine_.records.clear();
  for (const bool byStatus : {true, false}) {
    machine_.lastEntryStatus = byStatus ? 135 : 0;
    machine_.lastEntryCount = byStatus ? 1 : 0;
    Forget();
    EXPECT_TRUE(frame_.SwitchToMachine("SRV1"));
    EXPECT_TRUE(viewer_.messages.empty());
    EXPECT_TRUE(doc_.entries().empty());
    EXPECT_TRUE(control_.enabled());
  }
}

TEST_F(MachineOperationsTest, AFailedLaterReadKeepsWhatCameAndSaysNothing) {
  machine_.FailCall(Step::kRead, 3, kCallFailed);
  EXPECT_TRUE(frame_.SwitchToMachine("SRV1"));
  EXPECT_TRUE(viewer_.messages.empty());
  EXPECT_EQ(EntryNumbers(), (Numbers{1, 2}));
  EXPECT_TRUE(control_.enabled());
}

TEST_F(MachineOperationsTest, ReadingShowsAnEmptyListAndCountsEntries) {
  Open();
  std::vector<std::size_t> rows;
  std::vector<std::uint64_t> counted;
  machine_.onStep = [this, &rows, &counted](Step step) {
    if (step != Step::kRead) return;
    rows.push_back(control_.RowCount());
    counted.push_back(viewer_.entriesRead);
    EXPECT_TRUE(viewer_.canCancel);
  };
  EXPECT_TRUE(doc_.LoadFromMachine(true));
  EXPECT_EQ(rows, (std::vector<std::size_t>{0, 0, 0, 0}));
  EXPECT_EQ(counted, (std::vector<std::uint64_t>{0, 1, 2, 3}));
  EXPECT_EQ(control_.RowCount(), 3U);
}

TEST_F(MachineOperationsTest, CancellingBetweenTwoReadsKeepsWhatCame) {
  viewer_.cancelAfter = 2;
  EXPECT_TRUE(frame_.SwitchToMachine("SRV1"));
  EXPECT_EQ(EntryNumbers(), (Numbers{1, 2}));
  EXPECT_EQ(control_.RowCount(), 2U);
  EXPECT_TRUE(control_.enabled());
  EXPECT_FALSE(frame_.isBusy());
  EXPECT_TRUE(viewer_.messages.empty());
  EXPECT_EQ(viewer_.journal.back(), "progress closed");
}

TEST_F(MachineOperationsTest, ALogThatLeadsInCirclesIsCutShortAndToldSo) {
  machine_.deliver = [](std::uint32_t number) -> std::optional<RawLogEntry> {
    return Entry(number < 7 ? number + 1 : 3, 9);
  };
  EXPECT_TRUE(frame_.SwitchToMachine("SRV1"));
  EXPECT_EQ(EntryNumbers(), (Numbers{1, 3, 5, 7}));
  EXPECT_EQ(Messages(), Journal{"Reading ended early: the machine delivered entry 3 where entry 8 "
                                "or a later one was due."});
}

TEST_F(MachineOperationsTest, MemoryThatRunsOutWhileReadingKeepsWhatCame) {
  machine_.deliver = [this](std::uint32_t number) -> std::optional<RawLogEntry> {
    if (number > 2) throw std::bad_alloc();
    return machine_.records[number == 0 ? 0 : 1];
  };
  EXPECT_TRUE(frame_.SwitchToMachine("SRV1"));
  EXPECT_EQ(EntryNumbers(), (Numbers{1, 2}));
  EXPECT_EQ(Messages(), Journal{"There is not enough memory for the whole log. The entries read so "
                                "far are shown."});
}

// Refresh.

TEST_F(MachineOperationsTest, RefreshReadsAgainAndKeepsFilterAndSort) {
  Open();
  FilterChoices choices;
  choices.eventClass = "UPS";
  doc_.list().SetFilter(choices);
  doc_.list().SetSort({Column::kSeverity, true});
  doc_.UpdateViews();
  EXPECT_EQ(RowNumbers(), (Numbers{5, 2, 1}));
  machine_.records.push_back(Entry(9, 6));
  frame_.RefreshMachine();
  EXPECT_EQ(RowNumbers(), (Numbers{5, 9, 2, 1}));
  EXPECT_EQ(doc_.list().filter(), choices);
  EXPECT_EQ(doc_.list().sort(), (SortState{Column::kSeverity, true}));
  EXPECT_EQ(control_.arrow(), "2 up");
}

TEST_F(MachineOperationsTest, RefreshOfTheSameNameInOtherCaseReadsWithoutConnecting) {
  Open();
  viewer_.boxText = " \\\\srv1 ";
  frame_.RefreshMachine();
  EXPECT_EQ(machine_.calls, (Journal{"read 0", "read 2", "read 3", "read 6"}));
  EXPECT_EQ(viewer_.boxText, "SRV1");
}

TEST_F(MachineOperationsTest, RefreshOfAnEmptyBoxPutsTheNameBack) {
  Open();
  viewer_.boxText = "  ";
  frame_.RefreshMachine();
  EXPECT_EQ(viewer_.boxText, "SRV1");
  EXPECT_EQ(machine_.calls.size(), 4U);
}

TEST_F(MachineOperationsTest, RefreshOfAnotherNameSwitches) {
  Open();
  viewer_.boxText = "\\\\srv2";
  frame_.RefreshMachine();
  EXPECT_EQ(frame_.machine(), "SRV2");
  EXPECT_EQ(machine_.calls.front(), "free binding");
  EXPECT_EQ(machine_.calls[1], "compose SRV2");
}

TEST_F(MachineOperationsTest, AFailedRefreshClosesTheMachine) {
  Open();
  machine_.Fail(Step::kRead, kCallFailed);
  frame_.RefreshMachine();
  EXPECT_EQ(Messages(), Journal{StatusText(kCallFailed, StatusReader::kViewer)});
  EXPECT_EQ(frame_.machine(), "");
  EXPECT_EQ(viewer_.caption, kTitle);
  EXPECT_EQ(viewer_.boxText, "");
  EXPECT_EQ(machine_.liveBindings(), 0U);
  EXPECT_TRUE(frame_.isBusy());
  EXPECT_FALSE(control_.enabled());
}

TEST_F(MachineOperationsTest, RefreshKeepsSelectionAndScrollPositionByEntry) {
  machine_.records.clear();
  for (std::uint32_t i = 1; i <= 40; ++i) machine_.records.push_back(Entry(i, 9));
  Open();
  control_.Click({5, 30}, 30);  // entries 35 and 10
  control_.Scroll(20);          // entry 20
  machine_.records.push_back(Entry(50, 9));
  machine_.records.push_back(Entry(51, 9));
  frame_.RefreshMachine();
  EXPECT_EQ(control_.selected(), (std::set<std::size_t>{7, 32}));
  EXPECT_EQ(control_.FocusedRow(), 32U);
  EXPECT_EQ(control_.TopRow(), 22U);
}

// Closing.

TEST_F(MachineOperationsTest, ClosingForgetsTheMachine) {
  Open();
  EXPECT_TRUE(frame_.CloseMachine());
  EXPECT_EQ(viewer_.journal,
            (Journal{"free binding", std::string("caption ") + kTitle, "box shows nothing"}));
  EXPECT_EQ(frame_.machine(), "");
  EXPECT_FALSE(frame_.isAdministrator());
  EXPECT_TRUE(frame_.isBusy());
  EXPECT_FALSE(control_.enabled());
}

TEST_F(MachineOperationsTest, ClosingNothingOnlyDisablesTheView) {
  EXPECT_TRUE(frame_.CloseMachine());
  EXPECT_EQ(viewer_.journal, Journal{"box shows nothing"});
  EXPECT_FALSE(frame_.isBusy());
  EXPECT_FALSE(control_.enabled());
}

TEST_F(MachineOperationsTest, ARefusedDisconnectIsNotTold) {
  Open();
  machine_.Fail(Step::kFreeBinding, 1702);
  EXPECT_TRUE(frame_.CloseMachine());
  EXPECT_TRUE(viewer_.messages.empty());
  EXPECT_EQ(frame_.machine(), "");
}

// Clearing.

TEST_F(MachineOperationsTest, ClearingAsksClearsAndReadsAgain) {
  Open();
  frame_.Execute(Command::kClearAll);
  EXPECT_EQ(viewer_.journal,
            (Journal{"ask clear", "progress Attempting to clear the log...", "clear ada",
                     "progress closed", "progress Loading data...", "read 0", "progress closed"}));
  EXPECT_TRUE(doc_.entries().empty());
  EXPECT_TRUE(control_.enabled());
}

TEST_F(MachineOperationsTest, ClearingCanBeDeclined) {
  Open();
  viewer_.confirmClear = [] { return false; };
  frame_.Execute(Command::kClearAll);
  EXPECT_EQ(viewer_.journal, Journal{"ask clear"});
  EXPECT_EQ(EntryNumbers(), (Numbers{1, 2, 5}));
}

TEST_F(MachineOperationsTest, AFailedClearTellsTheStatusAndThenTheFailure) {
  Open();
  machine_.Fail(Step::kClear, kAccessDenied);
  frame_.Execute(Command::kClearAll);
  EXPECT_EQ(Messages(), (Journal{kDenied, kClearFailed}));
  EXPECT_EQ(EntryNumbers(), (Numbers{1, 2, 5}));
}

TEST_F(MachineOperationsTest, AClearThatTheServiceDidNotDoTellsTheFailureAlone) {
  Open();
  machine_.cleared = 0;
  frame_.Execute(Command::kClearAll);
  EXPECT_EQ(Messages(), Journal{kClearFailed});
  EXPECT_EQ(machine_.calls, Journal{"clear ada"});
}

TEST_F(MachineOperationsTest, ClearingNamesAnUnknownUserWhereNoneIsTold) {
  Open();
  userName_.reset();
  EXPECT_NE(doc_.ClearMachineLog(), 0);
  userName_ = std::string(32, 'x');
  EXPECT_NE(doc_.ClearMachineLog(), 0);
  userName_ = std::string(31, 'x');
  EXPECT_NE(doc_.ClearMachineLog(), 0);
  EXPECT_EQ(machine_.clearedBy,
            (std::vector<std::string>{"<UNKNOWN USER>", "<UNKNOWN USER>", std::string(31, 'x')}));
}

TEST_F(MachineOperationsTest, TheClearDialogSavesExportsAndPrintsFirst) {
  Open();
  const testing::TemporaryFile file(".qvx");
  viewer_.confirmClear = [this, &file] {
    frame_.ExecuteBeforeClearing(Command::kSaveLogAs);  // cancelled: no path yet
    viewer_.savePath = file.path();
    frame_.ExecuteBeforeClearing(Command::kSaveLogAs);
    frame_.ExecuteBeforeClearing(Command::kPrint);
    return true;
  };
  frame_.Execute(Command::kClearAll);
  EXPECT_EQ(file.Read().size(), 19U + 3 * 512);
  EXPECT_EQ(viewer_.commands, std::vector<Command>{Command::kPrint});
  EXPECT_TRUE(doc_.entries().empty());
}

// Marking.

TEST_F(MachineOperationsTest, MarkingReadsTheEntryBackInPlace) {
  Open();
  machine_.onStep = [this](Step step) {
    viewer_.NoteCall(machine_.calls.back());
    if (step == Step::kRepair) machine_.records[1].severity = 6;
  };
  control_.Click({kRowOf2}, kRowOf2);
  EXPECT_TRUE(doc_.MarkSelectedRepaired(control_));
  EXPECT_EQ(viewer_.journal,
            (Journal{"progress Attempting to mark the selected events as repaired...", "repair 2",
                     "read 2", "progress closed"}));
  EXPECT_EQ(EntryNumbered(2).GetSeverity(), 6);
  EXPECT_EQ(EntryNumbered(2).GetSeverityName(), "Repaired");
  EXPECT_EQ(RowNumbers(), (Numbers{5, 2, 1}));
  EXPECT_EQ(control_.redrawn(), std::vector<std::size_t>{kRowOf2});
}

TEST_F(MachineOperationsTest, MarkingWalksTheSelectionInListOrder) {
  machine_.records = {Entry(1, 15), Entry(2, 9), Entry(5, 7)};
  Open();
  control_.Click({kRowOf1, kRowOf5, kRowOf2}, kRowOf1);
  doc_.MarkSelectedRepaired(control_);
  EXPECT_EQ(machine_.calls,
            (Journal{"repair 5", "read 5", "repair 2", "read 2", "repair 1", "read 1"}));
  EXPECT_TRUE(viewer_.messages.empty());
}

TEST_F(MachineOperationsTest, MarkingWhatNeedsNoneSendsNothing) {
  machine_.records = {Entry(1, 2), Entry(2, 3), Entry(5, 6)};
  Open();
  control_.Click({0, 1, 2}, 0);
  EXPECT_TRUE(doc_.MarkSelectedRepaired(control_));
  EXPECT_TRUE(machine_.calls.empty());
  EXPECT_EQ(Messages(), Journal{kNotMarked});
}

TEST_F(MachineOperationsTest, AMixedSelectionMarksWhatCanBeAndSaysSoOnce) {
  machine_.records = {Entry(1, 2), Entry(2, 9), Entry(5, 3)};
  Open();
  control_.Click({0, 1, 2}, 0);
  doc_.MarkSelectedRepaired(control_);
  EXPECT_EQ(machine_.calls, (Journal{"repair 2", "read 2"}));
  EXPECT_EQ(Messages(), Journal{kNotMarked});
}

TEST_F(MachineOperationsTest, SkippedEntriesAreToldBeforeFailedOnes) {
  Open();
  machine_.FailCall(Step::kRepair, 1, kCallFailed);
  control_.Click({kRowOf5, kRowOf2, kRowOf1}, 0);
  EXPECT_TRUE(doc_.MarkSelectedRepaired(control_));
  EXPECT_EQ(Messages(), (Journal{kNotMarked, kMarkFailed}));
  EXPECT_EQ(machine_.calls, (Journal{"repair 2", "repair 1", "read 1"}));
}

TEST_F(MachineOperationsTest, AStatusByteOfTheServiceIsAFailure) {
  Open();
  for (const std::uint8_t byte : {std::uint8_t{1}, ENTRY_STATUS_NONE}) {
    machine_.repairStatus = byte;
    EXPECT_EQ(doc_.MarkOneRepaired(0), MarkResult::kFailed);
  }
  EXPECT_EQ(machine_.calls, (Journal{"repair 1", "repair 1"}));
}

TEST_F(MachineOperationsTest, AnEntryThatCannotBeReadBackStaysAsItWas) {
  Open();
  machine_.Fail(Step::kRead, kCallFailed);
  EXPECT_EQ(doc_.MarkOneRepaired(0), MarkResult::kDone);
  EXPECT_EQ(EntryNumbered(1).GetSeverity(), 15);

  FakeMachine& machine = machine_;
  machine.records.clear();
  EXPECT_EQ(doc_.MarkOneRepaired(1), MarkResult::kDone);
  EXPECT_EQ(EntryNumbered(2).GetSeverity(), 9);
}

// Notes.

TEST_F(MachineOperationsTest, ANoteIsSentAsOneLineAndTheLogReadAgain) {
  Open();
  machine_.noteWritten = 0;
  viewer_.note = "  fan\r\nreplaced ";
  frame_.Execute(Command::kAddNote);
  EXPECT_EQ(viewer_.journal, (Journal{"ask note", "note fan replaced", "progress Loading data...",
                                      "read 0", "read 2", "read 3", "read 6", "progress closed"}));
  EXPECT_TRUE(viewer_.messages.empty());
}

// The service means success by it.
TEST_F(MachineOperationsTest, ANonzeroAnswerToANoteIsToldAsAFailure) {
  Open();
  viewer_.note = "ok";
  frame_.Execute(Command::kAddNote);
  EXPECT_EQ(Messages(), Journal{kNoteFailed});
  EXPECT_EQ(machine_.notes, std::vector<std::string>{"ok"});
  EXPECT_EQ(machine_.calls.back(), "read 6");
}

TEST_F(MachineOperationsTest, AFailedNoteIsToldAndTheLogNotReadAgain) {
  Open();
  viewer_.note = "ok";
  machine_.Fail(Step::kNote, kAccessDenied);
  frame_.Execute(Command::kAddNote);
  EXPECT_EQ(Messages(), Journal{kDenied});
  EXPECT_EQ(machine_.calls, Journal{"note ok"});
  EXPECT_EQ(EntryNumbers(), (Numbers{1, 2, 5}));
}

TEST_F(MachineOperationsTest, ACancelledNoteSendsNothing) {
  Open();
  frame_.Execute(Command::kAddNote);
  EXPECT_EQ(viewer_.journal, Journal{"ask note"});
}

// The list is disabled by the failure, and usable again after the next success.
TEST_F(MachineOperationsTest, AReadAfterAFailedOneEnablesTheListAgain) {
  Open();
  machine_.noteWritten = 0;
  viewer_.note = "ok";
  machine_.FailCall(Step::kRead, 5, kCallFailed);
  frame_.Execute(Command::kAddNote);
  EXPECT_FALSE(control_.enabled());
  EXPECT_TRUE(doc_.entries().empty());
  frame_.Execute(Command::kRefresh);
  EXPECT_TRUE(control_.enabled());
  EXPECT_EQ(EntryNumbers(), (Numbers{1, 2, 5}));
}

}  // namespace
}  // namespace qvl
