#include "viewer/model/frame_model.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/viewer/model/fake_viewer.h"

namespace qvl {
namespace {

using testing::LanguageScope;
using testing::Step;
using testing::TemporaryFile;
using testing::ViewerTest;

class FrameModelTest : public ViewerTest {
 protected:
  FrameModelTest() { machine_.records = {Entry(1, 15), Entry(2, 9, 15), Entry(5, 3)}; }

  std::vector<Command> Disabled() const {
    std::vector<Command> disabled;
    for (int i = 0; i <= static_cast<int>(Command::kPreviousControl); ++i) {
      const auto command = static_cast<Command>(i);
      if (!frame_.IsEnabled(command)) disabled.push_back(command);
    }
    return disabled;
  }
};

using Commands = std::vector<Command>;

TEST_F(FrameModelTest, StartsEmptyWithoutAMachine) {
  frame_.Start();
  EXPECT_EQ(viewer_.caption, "Korvath Quarvel Log Viewer");
  EXPECT_EQ(frame_.machine(), "");
  EXPECT_FALSE(frame_.isBusy());
  EXPECT_EQ(frame_.FilterPane(), "Not Filtered");
  EXPECT_EQ(frame_.CountsPane(), "0 shown, 0 selected, 0 in all");
  EXPECT_EQ(Disabled(), (Commands{Command::kClearAll, Command::kMarkRepaired, Command::kAddNote,
                                  Command::kAllEntries, Command::kFilter, Command::kRefresh,
                                  Command::kCopy, Command::kSelectAll, Command::kFind,
                                  Command::kFindNext, Command::kFindPrevious}));
}

TEST_F(FrameModelTest, AnAdministratorMayDoEverything) {
  Open();
  EXPECT_EQ(Disabled(), Commands());
  control_.Click({}, ListControl::kNoRow);
  EXPECT_EQ(Disabled(), (Commands{Command::kMarkRepaired, Command::kCopy}));
}

TEST_F(FrameModelTest, OthersMayNotChangeTheLog) {
  machine_.isAdministrator = 0;
  Open();
  EXPECT_EQ(Disabled(), (Commands{Command::kClearAll, Command::kMarkRepaired, Command::kAddNote}));
}

TEST_F(FrameModelTest, ABusyFrameOffersNothingOfTheLog) {
  Open();
  frame_.CloseMachine();
  ASSERT_TRUE(frame_.isBusy());
  for (const Command command :
       {Command::kRefresh, Command::kSaveLogAs, Command::kExportLog, Command::kPrintPreview,
        Command::kPrint, Command::kFilter, Command::kAllEntries, Command::kClearAll}) {
    EXPECT_FALSE(frame_.IsEnabled(command));
  }
  EXPECT_TRUE(frame_.IsEnabled(Command::kBrowse));
  EXPECT_TRUE(frame_.IsEnabled(Command::kOpenLogFile));
}

TEST_F(FrameModelTest, ADisabledCommandDoesNothing) {
  machine_.isAdministrator = 0;
  Open();
  frame_.Execute(Command::kClearAll);
  frame_.Execute(Command::kAddNote);
  frame_.Execute(Command::kMarkRepaired);
  EXPECT_TRUE(viewer_.journal.empty());
}

TEST_F(FrameModelTest, WhatOnlyTheToolkitCanIsHandedOn) {
  Open();
  const Commands handed = {
      Command::kPrintPreview,   Command::kPrint,       Command::kExit,           Command::kFind,
      Command::kDetails,        Command::kHistogram,   Command::kHelpTopics,     Command::kAbout,
      Command::kGoToMachineBox, Command::kNextControl, Command::kPreviousControl};
  for (const Command command : handed) frame_.Execute(command);
  EXPECT_EQ(viewer_.commands, handed);
}

// Choosing a machine.

TEST_F(FrameModelTest, AChosenNameIsNormalised) {
  frame_.ChooseMachine("\\\\server1 ");
  EXPECT_EQ(frame_.machine(), "SERVER1");
  EXPECT_EQ(machine_.parts.networkAddress, "SERVER1");
  frame_.ChooseMachine(".");
  EXPECT_EQ(frame_.machine(), "WORKSTATION7");
}

TEST_F(FrameModelTest, ChoosingTheCurrentMachineOrNothingDoesNothing) {
  Open();
  frame_.ChooseMachine("srv1");
  frame_.ChooseMachine("");
  frame_.ChooseMachine(" \\\\ ");
  EXPECT_TRUE(viewer_.journal.empty());
  EXPECT_EQ(frame_.machine(), "SRV1");
}

TEST_F(FrameModelTest, ABrowsedMachineIsOpened) {
  viewer_.pickedMachine = "srv9";
  frame_.Execute(Command::kBrowse);
  EXPECT_EQ(viewer_.journal.front(), "ask machine");
  EXPECT_EQ(frame_.machine(), "SRV9");
  Forget();
  viewer_.pickedMachine.reset();
  frame_.Execute(Command::kBrowse);
  EXPECT_EQ(viewer_.journal, Journal{"ask machine"});
}

// The name comes from the box, which closing the old machine empties.
TEST_F(FrameModelTest, ANameFromTheBoxOutlivesTheBoxesText) {
  Open();
  viewer_.boxText = "srv2";
  frame_.ChooseMachine(viewer_.boxText);
  EXPECT_EQ(frame_.machine(), "SRV2");
  EXPECT_EQ(viewer_.boxText, "SRV2");
  EXPECT_EQ(viewer_.names, (std::vector<std::string>{"SRV2", "SRV1"}));
}

// Filter.

TEST_F(FrameModelTest, TheFilterIsAskedForAndApplied) {
  Open();
  FilterChoices choices;
  choices.eventClass = "UPS";
  choices.severity = "Critical";
  viewer_.filter = choices;
  frame_.Execute(Command::kFilter);
  EXPECT_EQ(viewer_.askedFilter, FilterChoices());
  EXPECT_EQ(RowNumbers(), Numbers{1});
  EXPECT_EQ(control_.selected(), std::set<std::size_t>{0});
  EXPECT_EQ(frame_.FilterPane(), "Filtered");
  EXPECT_EQ(frame_.CountsPane(), "1 shown, 1 selected, 3 in all");

  frame_.Execute(Command::kAllEntries);
  EXPECT_EQ(RowNumbers(), (Numbers{5, 2, 1}));
  EXPECT_EQ(frame_.FilterPane(), "Not Filtered");
}

TEST_F(FrameModelTest, ACancelledFilterChangesNothing) {
  Open();
  control_.Click({2}, 2);
  EXPECT_EQ(doc_.FilterCommand(), 0);
  EXPECT_EQ(control_.selected(), std::set<std::size_t>{2});
  viewer_.filter = FilterChoices();
  EXPECT_EQ(doc_.FilterCommand(), 1);
  EXPECT_EQ(frame_.FilterPane(), "Not Filtered");
}

TEST_F(FrameModelTest, AFilterThatHidesAllRowsIsStillOne) {
  Open();
  FilterChoices choices;
  choices.eventClass = "CPU";
  viewer_.filter = choices;
  frame_.Execute(Command::kFilter);
  EXPECT_EQ(control_.RowCount(), 0U);
  EXPECT_EQ(frame_.FilterPane(), "Filtered");
  EXPECT_TRUE(frame_.IsEnabled(Command::kAllEntries));
  EXPECT_FALSE(frame_.IsEnabled(Command::kMarkRepaired));
}

TEST_F(FrameModelTest, AListWithNothingSelectedRestrictsNothing) {
  Open();
  FilterChoices choices;
  choices.eventClass.clear();
  choices.initialTime.clear();
  viewer_.filter = choices;
  frame_.Execute(Command::kFilter);
  EXPECT_EQ(doc_.list().filter(), FilterChoices());
}

TEST_F(FrameModelTest, AStretchOfTimeFilters) {
  Open();
  const TimeRange range{*MinuteOf({20, 26, 11, 1, 0, 2}), *MinuteOf({20, 26, 11, 1, 0, 4})};
  frame_.FilterByTime(range);
  EXPECT_EQ(RowNumbers(), Numbers{2});
  EXPECT_EQ(frame_.FilterPane(), "Filtered");
  frame_.RefreshMachine();
  EXPECT_EQ(RowNumbers(), Numbers{2});
  frame_.FilterByTime(std::nullopt);
  EXPECT_EQ(RowNumbers(), (Numbers{5, 2, 1}));

  frame_.FilterByTime(range);
  frame_.Execute(Command::kAllEntries);
  EXPECT_EQ(frame_.FilterPane(), "Not Filtered");
}

TEST_F(FrameModelTest, SpeaksTheUsersLanguage) {
  const LanguageScope language(Language::kJapanese);
  CEventViewerDoc doc(environment_);
  EntryListView view(environment_, doc);
  const FrameModel frame(environment_, doc, view);
  EXPECT_EQ(frame.FilterPane(), "フィルターなし");
  EXPECT_EQ(frame.CountsPane(), "表示 0、選択 0、合計 0");
}

// The list.

TEST_F(FrameModelTest, HeadersSortTwoWaysAndKeepTheSelection) {
  Open();
  control_.Click({0, 1}, 1);  // entries 5 and 2
  view_.OnHeaderClick(Column::kSeverity);
  EXPECT_EQ(RowNumbers(), (Numbers{5, 2, 1}));
  EXPECT_EQ(control_.arrow(), "2 up");
  view_.OnHeaderClick(Column::kSeverity);
  EXPECT_EQ(RowNumbers(), (Numbers{1, 2, 5}));
  EXPECT_EQ(control_.arrow(), "2 down");
  EXPECT_EQ(control_.selected(), (std::set<std::size_t>{1, 2}));
  EXPECT_EQ(control_.FocusedRow(), 1U);
}

TEST_F(FrameModelTest, TheContextMenuNeedsASelection) {
  Open();
  EXPECT_TRUE(view_.OffersContextMenu());
  control_.Click({}, 0);
  EXPECT_FALSE(view_.OffersContextMenu());
}

TEST_F(FrameModelTest, SelectedRowsAreCopiedBelowTheirHeadings) {
  Open();
  frame_.Execute(Command::kSelectAll);
  EXPECT_EQ(control_.SelectedRowCount(), 3U);
  control_.Click({1, 2}, 2);
  frame_.Execute(Command::kCopy);
  EXPECT_EQ(viewer_.clipboard,
            "Description\tClass\tSeverity\tCount\tUpdate Time\tInitial Time\n"
            "Unknown Event (Class 15, Code 1)\tDiagnostics\tCaution\t1\t11/1/2026 12:02 AM\t"
            "10/1/2026 12:00 AM\n"
            "Unknown Event (Class 12, Code 1)\tUPS\tCritical\t1\t11/1/2026 12:01 AM\t"
            "10/1/2026 12:00 AM\n");
}

TEST_F(FrameModelTest, TheDetailsFollowTheFocus) {
  EXPECT_EQ(view_.FocusedEntry(), nullptr);
  Open();
  ASSERT_NE(view_.FocusedEntry(), nullptr);
  EXPECT_EQ(view_.FocusedEntry()->GetEntryNumber(), 5U);
  control_.Click({2}, 2);
  EXPECT_EQ(view_.FocusedEntry()->GetEntryNumber(), 1U);
}

// The start and the end.

TEST_F(FrameModelTest, TakesItsPlaceOnceWhenItIsFirstShown) {
  frame_.OnShow();
  EXPECT_EQ(viewer_.placement, (WindowPlacement{313, 94, 1053, 634, 1, 0}));
  viewer_.placement = {1, 2, 3, 4, 3, 2};
  frame_.OnShow();
  EXPECT_EQ(viewer_.placement, (WindowPlacement{1, 2, 3, 4, 3, 2}));
}

// The widths while the control is there, the file before anything that can fail or take long.
TEST_F(FrameModelTest, RemembersBeforeItCloses) {
  Open();
  const std::string key = "Software\\Zelkor\\Quarvel Log Viewer";
  settings_.onSynchronise = [this, key] {
    EXPECT_EQ(settings_.numbers.count(key + "\\Initial|width"), 1U);
    EXPECT_EQ(settings_.numbers.count(key + "|state"), 1U);
    EXPECT_EQ(settings_.texts[key + "\\MRU|0"], "SRV1");
    viewer_.Note("settings written");
  };
  frame_.Stop();
  EXPECT_EQ(viewer_.journal, (Journal{"settings written", "free binding"}));
}

TEST_F(FrameModelTest, RemembersEverythingOverTwoRuns) {
  frame_.Start();
  Open("SRV1");
  Open("SRV2");
  control_.SetColumnWidth(0, 500);
  viewer_.placement = {-8, 20, 900, 700, WindowPlacement::kMaximised, 2};
  FilterChoices choices;
  choices.severity = "Caution";
  doc_.list().SetFilter(choices);
  frame_.Stop();
  EXPECT_EQ(machine_.liveBindings(), 0U);

  const std::string key = "Software\\Zelkor\\Quarvel Log Viewer";
  EXPECT_EQ(settings_.texts[key + "\\MRU|0"], "SRV2");
  EXPECT_EQ(settings_.texts[key + "\\MRU|1"], "SRV1");
  EXPECT_EQ(settings_.numbers[key + "\\Description|width"], 500U);
  EXPECT_EQ(settings_.numbers[key + "|left"], 0xFFFFFFF8U);
  EXPECT_EQ(settings_.numbers[key + "|state"], 3U);
  EXPECT_EQ(settings_.numbers[key + "|flags"], 2U);

  viewer_.placement = {};
  CEventViewerDoc doc(environment_);
  EntryListView view(environment_, doc);
  FrameModel frame(environment_, doc, view);
  view.Create();
  frame.Start();
  frame.OnShow();
  EXPECT_EQ(viewer_.names, (std::vector<std::string>{"SRV2", "SRV1"}));
  EXPECT_EQ(control_.GetColumnWidth(0), 500);
  EXPECT_EQ(control_.GetColumnWidth(1), 115);
  EXPECT_EQ(viewer_.placement, (WindowPlacement{-8, 20, 900, 700, 3, 2}));
  EXPECT_EQ(doc.list().filter(), choices);
  EXPECT_EQ(frame.FilterPane(), "Filtered");
}

TEST_F(FrameModelTest, ThePrintedNameIsTheMachinesOrTheFiles) {
  EXPECT_EQ(frame_.LogName(), "");
  Open();
  EXPECT_EQ(frame_.LogName(), "SRV1");
}

TEST_F(FrameModelTest, TwoHundredRoundsLeaveNoBindingBehind) {
  for (int round = 0; round < 200; ++round) {
    ASSERT_TRUE(frame_.SwitchToMachine(round % 2 == 0 ? "SRV1" : "SRV2"));
    frame_.Execute(Command::kRefresh);
    view_.OnHeaderClick(Column::kCount);
    frame_.CloseMachine();
    ASSERT_EQ(machine_.liveBindings(), 0U);
    ASSERT_EQ(machine_.liveComposed(), 0U);
  }
}

}  // namespace
}  // namespace qvl
