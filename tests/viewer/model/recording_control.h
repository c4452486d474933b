#ifndef QVL_TESTS_VIEWER_MODEL_RECORDING_CONTROL_H_
#define QVL_TESTS_VIEWER_MODEL_RECORDING_CONTROL_H_

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "viewer/model/list_control.h"

namespace qvl::testing {

/// A list without a window: keeps what it is told, and selects, focuses and scrolls as one does.
class RecordingControl : public ListControl {
 public:
  /// Rows in sight at once.
  static constexpr std::size_t kVisibleRows = 10;

  std::function<void()> onInsertRows;

  const std::vector<std::string>& calls() const { return calls_; }
  const std::set<std::size_t>& selected() const { return selected_; }
  bool enabled() const { return enabled_; }
  const std::string& arrow() const { return arrow_; }
  const std::vector<std::size_t>& redrawn() const { return redrawn_; }
  void SetColumnWidth(std::size_t index, int width) { widths_[index] = width; }
  /// What a user clicks and scrolls.
  void Click(const std::set<std::size_t>& rows, std::size_t focused) {
    selected_ = rows;
    focused_ = focused;
  }
  void Scroll(std::size_t top) { top_ = top; }

  void SetReportMode() override { calls_.emplace_back("report mode"); }
  void InsertColumn(int index, std::string_view heading, int width) override {
    widths_[static_cast<std::size_t>(index)] = width;
    calls_.push_back("column " + std::to_string(index) + " " + std::string(heading) + " " +
                     std::to_string(width));
  }
  int GetColumnWidth(int index) const override { return widths_[static_cast<std::size_t>(index)]; }
  void ShowSortArrow(Column column, bool ascending) override {
    arrow_ = std::to_string(static_cast<int>(column)) + (ascending ? " up" : " down");
  }
  void SetEnabled(bool enabled) override { enabled_ = enabled; }

  void DeleteAllRows() override {
    rows_ = 0;
    top_ = 0;
    selected_.clear();
    focused_ = kNoRow;
    calls_.emplace_back("delete all rows");
  }
  void InsertRows(std::size_t count) override {
    if (onInsertRows) onInsertRows();
    rows_ += count;
    calls_.push_back("insert " + std::to_string(count) + " rows");
  }
  void RowsReordered() override { calls_.emplace_back("reordered"); }
  void RedrawRow(std::size_t row) override { redrawn_.push_back(row); }

  void SelectAndFocusRow(std::size_t row) override {
    EXPECT_LT(row, rows_);
    selected_ = {row};
    focused_ = row;
    if (row < top_ || row >= top_ + kVisibleRows) ScrollToTop(row);
    calls_.push_back("select row " + std::to_string(row));
  }
  void SetSelection(std::span<const std::size_t> rows, std::size_t focused) override {
    selected_ = std::set<std::size_t>(rows.begin(), rows.end());
    EXPECT_EQ(selected_.size(), rows.size());
    EXPECT_TRUE(selected_.empty() || *selected_.rbegin() < rows_);
    EXPECT_TRUE(focused == kNoRow || focused < rows_);
    focused_ = focused;
  }
  void ScrollToTop(std::size_t row) override {
    EXPECT_LT(row, rows_);
    top_ = std::min(row, rows_ > kVisibleRows ? rows_ - kVisibleRows : 0);
  }

  std::size_t RowCount() const override { return rows_; }
  std::size_t SelectedRowCount() const override { return selected_.size(); }
  std::size_t NextSelectedRow(std::size_t row) const override {
    const auto next = selected_.lower_bound(row);
    return next == selected_.end() ? kNoRow : *next;
  }
  std::size_t FocusedRow() const override { return focused_; }
  std::size_t TopRow() const override { return top_; }

 private:
  std::size_t rows_ = 0;
  std::size_t top_ = 0;
  std::size_t focused_ = kNoRow;
  std::set<std::size_t> selected_;
  bool enabled_ = true;
  std::string arrow_;
  std::array<int, kNumberOfColumns> widths_{};
  std::vector<std::size_t> redrawn_;
  std::vector<std::string> calls_;
};

}  // namespace qvl::testing

#endif  // QVL_TESTS_VIEWER_MODEL_RECORDING_CONTROL_H_
