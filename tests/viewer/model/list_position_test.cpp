#include "viewer/model/list_position.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "tests/files/file_fixtures.h"
#include "tests/viewer/model/recording_control.h"

namespace qvl {
namespace {

using testing::Record;
using testing::RecordingControl;

constexpr Moment kNow = 1795176300;
using RowSet = std::set<std::size_t>;

class ListPositionTest : public ::testing::Test {
 protected:
  // Rows in the order of the numbers.
  void Fill(std::uint32_t first, std::uint32_t last) {
    list_.Clear();
    for (std::uint32_t i = first; i <= last; ++i) list_.Append(Record(i, 12, 1));
    model_.SetSort({Column::kEntryNumber, true});
    model_.Refill(kNow);
    FillControl(control_, model_);
  }
  void Again(std::uint32_t first, std::uint32_t last) {
    const ListPosition position = PositionOf(control_, model_);
    Fill(first, last);
    RestorePosition(position, control_, model_);
  }

  EntryList list_;
  ListModel model_{list_};
  RecordingControl control_;
};

TEST_F(ListPositionTest, FollowsItsEntries) {
  Fill(1, 40);
  control_.Click({3, 4, 20}, 4);
  control_.Scroll(15);
  Again(3, 60);
  EXPECT_EQ(control_.selected(), (RowSet{1, 2, 18}));
  EXPECT_EQ(control_.FocusedRow(), 2U);
  EXPECT_EQ(control_.TopRow(), 13U);
}

TEST_F(ListPositionTest, FocusesTheFirstSelectedRowWhereTheFocusedEntryIsGone) {
  Fill(1, 40);
  control_.Click({0, 20, 30}, 0);
  Again(2, 40);
  EXPECT_EQ(control_.selected(), (RowSet{19, 29}));
  EXPECT_EQ(control_.FocusedRow(), 19U);
}

TEST_F(ListPositionTest, SelectsTheFirstRowWhereTheWholeSelectionIsGone) {
  Fill(1, 40);
  control_.Click({0, 1}, 1);
  Again(10, 40);
  EXPECT_EQ(control_.selected(), RowSet{0});
  EXPECT_EQ(control_.FocusedRow(), 0U);
}

TEST_F(ListPositionTest, StandsAtTheSameRowWhereTheTopEntryIsGone) {
  Fill(1, 40);
  control_.Scroll(5);
  Again(10, 40);
  EXPECT_EQ(control_.TopRow(), 5U);
  control_.Scroll(20);
  Again(100, 104);
  EXPECT_EQ(control_.TopRow(), 0U);
}

TEST_F(ListPositionTest, SelectsNothingWhereNothingWas) {
  Fill(1, 40);
  control_.Click({}, 7);
  Again(1, 41);
  EXPECT_EQ(control_.selected(), RowSet());
  EXPECT_EQ(control_.FocusedRow(), 7U);
}

TEST_F(ListPositionTest, OfAnEmptyListIsNoTrouble) {
  Fill(1, 0);
  Again(1, 0);
  EXPECT_EQ(control_.RowCount(), 0U);
  Again(1, 3);
  EXPECT_EQ(control_.TopRow(), 0U);
  control_.Click({1}, 1);
  Again(1, 0);
  EXPECT_EQ(control_.RowCount(), 0U);
}

// An entry that occurred again is the same one; another one with its number is not.
TEST_F(ListPositionTest, KnowsAnEntryByWhatDoesNotChange) {
  Fill(1, 3);
  control_.Click({1}, 1);
  ListPosition position = PositionOf(control_, model_);
  RawLogEntry again = list_[1].raw();
  again.count = 99;
  again.severity = 6;
  again.updateTime = {20, 26, 1, 1, 1, 1};
  list_.Replace(1, again);
  model_.Refill(kNow);
  FillControl(control_, model_);
  RestorePosition(position, control_, model_);
  EXPECT_EQ(control_.selected(), RowSet{1});

  again.initialTime = {20, 26, 1, 1, 1, 1};
  list_.Replace(1, again);
  model_.Refill(kNow);
  FillControl(control_, model_);
  RestorePosition(position, control_, model_);
  EXPECT_EQ(control_.selected(), RowSet{0});
}

TEST_F(ListPositionTest, AlikeEntriesSelectTheFirstOne) {
  for (int i = 0; i < 3; ++i) list_.Append(Record(5, 12, 1));
  model_.Refill(kNow);
  FillControl(control_, model_);
  control_.Click({0, 1, 2}, 2);
  const ListPosition position = PositionOf(control_, model_);
  FillControl(control_, model_);
  RestorePosition(position, control_, model_);
  EXPECT_EQ(control_.selected(), RowSet{0});
}

TEST_F(ListPositionTest, SortingKeepsTheSelectionByEntryAndTheRowAtTheTop) {
  Fill(1, 40);
  control_.Click({0, 39}, 0);
  control_.Scroll(7);
  ClickHeader(Column::kCount, control_, model_);  // all alike: by number
  EXPECT_EQ(control_.selected(), (RowSet{0, 39}));
  ClickHeader(Column::kCount, control_, model_);
  EXPECT_EQ(control_.selected(), (RowSet{0, 39}));
  EXPECT_EQ(control_.FocusedRow(), 39U);
  EXPECT_EQ(control_.TopRow(), 7U);
  EXPECT_EQ(control_.arrow(), "3 down");
}

TEST_F(ListPositionTest, SortingTellsAlikeEntriesApart) {
  for (std::uint32_t i = 0; i < 3; ++i) {
    RawLogEntry raw = Record(5, 12, 1);
    raw.count = 3 - i;
    list_.Append(raw);
  }
  model_.SetSort({Column::kEntryNumber, true});
  model_.Refill(kNow);
  FillControl(control_, model_);
  control_.Click({1, 2}, 2);
  ClickHeader(Column::kCount, control_, model_);
  EXPECT_EQ(control_.selected(), (RowSet{0, 1}));
  EXPECT_EQ(control_.FocusedRow(), 0U);
}

TEST_F(ListPositionTest, SortingAnEmptyListIsNoTrouble) {
  ClickHeader(Column::kClass, control_, model_);
  EXPECT_EQ(control_.arrow(), "1 up");
  EXPECT_EQ(control_.FocusedRow(), ListControl::kNoRow);
}

}  // namespace
}  // namespace qvl
