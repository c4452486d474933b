#include <gtest/gtest.h>

#include <new>
#include <string>
#include <vector>

#include "files/log_file.h"
#include "tests/viewer/model/fake_viewer.h"

namespace qvl {
namespace {

using testing::TemporaryFile;
using testing::ViewerTest;

class OneOperationTest : public ViewerTest {
 protected:
  OneOperationTest() {
    machine_.records = {Entry(1, 15), Entry(2, 9)};
    EntryList entries;
    entries.Append(Entry(70, 9));
    EXPECT_TRUE(SaveLogFile(file_.path(), entries).ok());
  }

  // What can reach the program while it waits: drops, keys of other windows, clicks behind dialogs.
  void TryEverythingElse() {
    const std::size_t before = viewer_.journal.size();
    EXPECT_TRUE(frame_.isOperating());
    EXPECT_FALSE(frame_.OpenLogFile(file_.path()));
    frame_.OpenRecentFile(0);
    frame_.ChooseMachine("SRV9");
    frame_.FilterByTime(TimeRange{});
    frame_.ClickHeader(Column::kClass);
    frame_.FindTyped("ups");
    for (int i = 0; i <= static_cast<int>(Command::kPreviousControl); ++i) {
      frame_.Execute(static_cast<Command>(i));
    }
    EXPECT_EQ(viewer_.journal.size(), before) << viewer_.journal.back();
    EXPECT_TRUE(viewer_.commands.empty());
    ++tried_;
  }

  TemporaryFile file_{".qvx"};
  int tried_ = 0;
};

TEST_F(OneOperationTest, NothingStartsWhileAMessageWaits) {
  machine_.isAdministrator = 0;
  viewer_.whileWaiting = [this] { TryEverythingElse(); };
  frame_.ChooseMachine("SRV1");
  EXPECT_EQ(tried_, 1);
  EXPECT_EQ(frame_.machine(), "SRV1");
  EXPECT_EQ(EntryNumbers(), (Numbers{1, 2}));
  EXPECT_FALSE(frame_.isBusy());
  EXPECT_FALSE(frame_.isOperating());
}

TEST_F(OneOperationTest, NothingStartsWhileADialogWaits) {
  Open();
  viewer_.whileWaiting = [this] { TryEverythingElse(); };
  for (const Command command : {Command::kBrowse, Command::kOpenLogFile, Command::kSaveLogAs,
                                Command::kExportLog, Command::kAddNote, Command::kFilter}) {
    frame_.Execute(command);
  }
  EXPECT_EQ(tried_, 6);
  EXPECT_EQ(frame_.machine(), "SRV1");
}

TEST_F(OneOperationTest, TheClearDialogOffersThreeCommandsAndNoOther) {
  Open();
  const TemporaryFile saved(".qvx");
  viewer_.savePath = saved.path();
  viewer_.confirmClear = [this] {
    TryEverythingElse();
    frame_.ExecuteBeforeClearing(Command::kFilter);
    frame_.ExecuteBeforeClearing(Command::kClearAll);
    EXPECT_EQ(viewer_.journal, Journal{"ask clear"});
    viewer_.whileWaiting = [this] {
      TryEverythingElse();
      frame_.ExecuteBeforeClearing(Command::kPrint);
    };
    frame_.ExecuteBeforeClearing(Command::kSaveLogAs);
    EXPECT_EQ(tried_, 2);
    EXPECT_TRUE(viewer_.commands.empty());
    viewer_.whileWaiting = nullptr;
    frame_.ExecuteBeforeClearing(Command::kPrint);
    return false;
  };
  frame_.Execute(Command::kClearAll);
  EXPECT_EQ(viewer_.commands, std::vector<Command>{Command::kPrint});
  EXPECT_EQ(saved.Read().size(), 19U + 2 * 512);
  frame_.ExecuteBeforeClearing(Command::kPrint);
  EXPECT_EQ(viewer_.commands.size(), 1U);
}

TEST_F(OneOperationTest, NothingStartsWhileThePreviewIsShown) {
  Open();
  frame_.SetPreviewShown(true);
  EXPECT_FALSE(frame_.OpenLogFile(file_.path()));
  frame_.Execute(Command::kAddNote);
  frame_.Execute(Command::kExit);
  EXPECT_TRUE(viewer_.journal.empty());
  EXPECT_TRUE(viewer_.commands.empty());
  frame_.SetPreviewShown(false);
  EXPECT_TRUE(frame_.OpenLogFile(file_.path()));
}

// The window goes while it is executed.
TEST_F(OneOperationTest, ExitingIsNoOperation) {
  bool wasOperating = true;
  viewer_.onCommand = [&] { wasOperating = frame_.isOperating(); };
  frame_.Execute(Command::kExit);
  EXPECT_FALSE(wasOperating);
  viewer_.onCommand = [&] { wasOperating = frame_.isOperating(); };
  frame_.Execute(Command::kAbout);
  EXPECT_TRUE(wasOperating);
}

TEST_F(OneOperationTest, NothingStartsAfterTheEnd) {
  Open();
  frame_.Stop();
  EXPECT_FALSE(frame_.OpenLogFile(file_.path()));
  EXPECT_EQ(machine_.calls, Journal{"free binding"});
}

// Memory.

constexpr const char* kNotEnough =
    "There is not enough memory for this. The log is still held: it can be saved, and \"All "
    "Entries\" shows it.";

TEST_F(OneOperationTest, MemoryThatRunsOutIsToldAndTheLogIsKept) {
  Open();
  control_.onInsertRows = [this] {
    control_.onInsertRows = nullptr;
    throw std::bad_alloc();
  };
  frame_.Execute(Command::kAllEntries);
  EXPECT_EQ(Messages(), Journal{kNotEnough});
  EXPECT_EQ(EntryNumbers(), (Numbers{1, 2}));
  EXPECT_EQ(RowNumbers(), (Numbers{2, 1}));
  EXPECT_FALSE(frame_.isOperating());
  EXPECT_TRUE(frame_.IsEnabled(Command::kSaveLogAs));
}

TEST_F(OneOperationTest, MemoryThatRunsOutWhileAMachineIsOpenedLeavesItOpen) {
  control_.onInsertRows = [this] {
    if (doc_.entries().empty()) return;
    control_.onInsertRows = nullptr;
    throw std::bad_alloc();
  };
  frame_.ChooseMachine("SRV1");
  EXPECT_EQ(Messages(), Journal{kNotEnough});
  EXPECT_FALSE(viewer_.progressShown);
  EXPECT_EQ(frame_.machine(), "SRV1");
  EXPECT_FALSE(frame_.isBusy());
  EXPECT_EQ(EntryNumbers(), (Numbers{1, 2}));
}

}  // namespace
}  // namespace qvl
