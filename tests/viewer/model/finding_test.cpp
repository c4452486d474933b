#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "tests/viewer/model/fake_viewer.h"

namespace qvl {
namespace {

using testing::ViewerTest;

class FindingTest : public ViewerTest {
 protected:
  FindingTest() { machine_.records = {Entry(1, 15), Entry(2, 9, 15), Entry(5, 3)}; }

  // The focused row, once nothing is searched any more.
  std::size_t Found() {
    while (frame_.ContinueSearch()) {
    }
    return control_.FocusedRow();
  }
  // More rows than one slice; the last one is of another class.
  void OpenLargeLog() {
    machine_.records.clear();
    for (std::uint32_t i = 1; i <= 2 * kRows; ++i) machine_.records.push_back(Entry(i, 9));
    machine_.records.front().eventClass = 15;
    machine_.deliver = [this](std::uint32_t wanted) {
      const std::size_t place = std::max(wanted, std::uint32_t{1}) - 1;
      return place < machine_.records.size() ? std::optional(machine_.records[place])
                                             : std::nullopt;
    };
    Open();
    doc_.list().SetSort({Column::kEntryNumber, false});
    doc_.UpdateViews();
  }

  static constexpr std::uint32_t kRows = EntryListView::kSearchSlice;
};

TEST_F(FindingTest, TypingFindsFromTheFocusedRowOn) {
  Open();
  frame_.FindTyped("di");
  EXPECT_EQ(Found(), 1U);
  frame_.FindTyped("diagNOSTICS");
  EXPECT_EQ(Found(), 1U);
  EXPECT_EQ(viewer_.searchAnswer, "");
  frame_.FindTyped("diagnosticsx");
  EXPECT_EQ(Found(), 1U);
  EXPECT_EQ(control_.selected(), std::set<std::size_t>{1});
  EXPECT_EQ(viewer_.searchAnswer, "No entry holds \"diagnosticsx\".");
  frame_.FindTyped("");
  EXPECT_EQ(viewer_.searchAnswer, "");
  EXPECT_TRUE(viewer_.messages.empty());
}

TEST_F(FindingTest, F3FindsTheNextAndThePreviousRow) {
  Open();
  frame_.Execute(Command::kFindNext);
  EXPECT_EQ(viewer_.commands, std::vector<Command>{Command::kFind});
  frame_.FindTyped("ups");
  EXPECT_EQ(Found(), 0U);
  frame_.Execute(Command::kFindNext);
  EXPECT_EQ(Found(), 2U);
  frame_.Execute(Command::kFindNext);
  EXPECT_EQ(Found(), 0U);
  frame_.Execute(Command::kFindPrevious);
  EXPECT_EQ(Found(), 2U);
  control_.Click({}, ListControl::kNoRow);
  frame_.Execute(Command::kFindPrevious);
  EXPECT_EQ(Found(), 2U);
  control_.Click({}, ListControl::kNoRow);
  frame_.Execute(Command::kFindNext);
  EXPECT_EQ(Found(), 0U);
}

TEST_F(FindingTest, F3SaysSoWhenNothingIsFound) {
  Open();
  frame_.FindTyped("no such text");
  frame_.Execute(Command::kFindPrevious);
  EXPECT_EQ(Messages(), Journal{"No entry holds \"no such text\"."});
  EXPECT_EQ(control_.FocusedRow(), 0U);
}

TEST_F(FindingTest, ALargeLogIsSearchedInSlices) {
  OpenLargeLog();
  frame_.FindTyped("diagnostics");
  EXPECT_TRUE(view_.isSearching());
  EXPECT_EQ(control_.FocusedRow(), 0U);
  EXPECT_FALSE(frame_.ContinueSearch());
  EXPECT_EQ(control_.FocusedRow(), 2 * kRows - 1);
  EXPECT_FALSE(frame_.ContinueSearch());

  frame_.FindTyped("no such text");
  EXPECT_EQ(viewer_.searchAnswer, "");
  EXPECT_FALSE(frame_.ContinueSearch());
  EXPECT_EQ(viewer_.searchAnswer, "No entry holds \"no such text\".");

  frame_.Execute(Command::kFindNext);
  EXPECT_TRUE(viewer_.messages.empty());
  EXPECT_FALSE(frame_.ContinueSearch());
  EXPECT_EQ(Messages(), Journal{"No entry holds \"no such text\"."});
}

TEST_F(FindingTest, TheNextKeyBeginsAnew) {
  OpenLargeLog();
  frame_.FindTyped("diagnosticsx");
  frame_.FindTyped("ups");
  EXPECT_FALSE(view_.isSearching());
  EXPECT_EQ(control_.FocusedRow(), 0U);
  EXPECT_EQ(viewer_.searchAnswer, "");
}

// Its rows would be others.
TEST_F(FindingTest, WhatTheUserStartsMeanwhileEndsTheSearch) {
  OpenLargeLog();
  frame_.FindTyped("diagnostics");
  frame_.ClickHeader(Column::kClass);
  EXPECT_FALSE(view_.isSearching());
  frame_.FindTyped("no such text");
  ASSERT_TRUE(view_.isSearching());
  frame_.Execute(Command::kRefresh);
  EXPECT_FALSE(view_.isSearching());
  EXPECT_FALSE(frame_.ContinueSearch());
  EXPECT_EQ(viewer_.searchAnswer, "");
}

}  // namespace
}  // namespace qvl
