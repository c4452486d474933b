#ifndef QVL_VIEWER_MODEL_LIST_MODEL_H_
#define QVL_VIEWER_MODEL_LIST_MODEL_H_

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "entries/entry_list.h"
#include "entries/event_log_entry.h"
#include "platform/local_time.h"
#include "texts/strings.h"
#include "viewer/model/filter.h"

namespace qvl {

/// A column of the list: heading, width in pixels before the user changes it, and the name under
/// which its width is remembered.
struct ListColumn {
  Column column;
  StringId heading;
  int defaultWidth;
  const char* settingsKey;
};

/// The six columns in their order, all aligned left.
std::span<const ListColumn, kNumberOfColumns> ListColumns();

/// The list operations that the view needs of its toolkit. Rows hold no text: the control asks
/// for the cells that it draws. A million rows are handed over at once, already in order.
class ListControl {
 public:
  virtual ~ListControl() = default;

  virtual void SetReportMode() = 0;
  virtual void InsertColumn(int index, std::string_view heading, int width) = 0;
  virtual int GetColumnWidth(int index) const = 0;
  virtual void DeleteAllRows() = 0;
  /// Rows 0 to `count` - 1, texts and pictures by callback.
  virtual void InsertRows(std::size_t count) = 0;
  /// The rows kept their number but changed their order.
  virtual void RowsReordered() = 0;
  virtual void SelectAndFocusRow(std::size_t row) = 0;
  virtual std::size_t RowCount() const = 0;
  virtual std::size_t SelectedRowCount() const = 0;
  /// The next selected row at or after `row`; `kNoRow` when there is none.
  virtual std::size_t NextSelectedRow(std::size_t row) const = 0;
  /// The row under a point of the control; `kNoRow` when there is none.
  virtual std::size_t RowAt(int x, int y) const = 0;

  static constexpr std::size_t kNoRow = static_cast<std::size_t>(-1);
};

/// Which column orders the rows, and in which direction. A log opens with its latest update first.
struct SortState {
  Column column = Column::kUpdateTime;
  bool ascending = false;

  friend bool operator==(const SortState&, const SortState&) = default;
};

/// The text of a cell, and for the first column its picture.
struct CellContent {
  std::string text;
  int image = -1;
};

/// The rows of the list: the entries that pass the filter, in the order of the sort.
class ListModel {
 public:
  /// entries  must outlive the model.
  explicit ListModel(const EntryList& entries) : entries_(entries) {}

  const FilterChoices& filter() const { return filter_; }
  void SetFilter(FilterChoices choices) { filter_ = std::move(choices); }
  const SortState& sort() const { return sort_; }
  void SetSort(SortState sort) { sort_ = sort; }

  /// The filter and the sort of a log that was just opened.
  void Reset();

  /// Filters the entries and orders the rows anew, after the entries or the filter changed.
  /// now  the clock that the time criteria count back from.
  void Refill(Moment now);

  /// A click on a column's header: the same column turns the direction round, another one sorts
  /// ascending.
  void ClickHeader(Column column);

  std::size_t rowCount() const { return rows_.size(); }
  EntryIndex EntryIndexAt(std::size_t row) const { return rows_[row]; }
  const CEventLogEntry& EntryAt(std::size_t row) const { return entries_[rows_[row]]; }
  CellContent Cell(std::size_t row, int column) const;

 private:
  void Sort();

  const EntryList& entries_;
  FilterChoices filter_;
  SortState sort_;
  std::vector<EntryIndex> shown_;  // in list order
  std::vector<EntryIndex> rows_;   // in the order of the sort
};

/// Inserts the columns, with the widths given.
void CreateColumns(ListControl& control, const std::array<int, kNumberOfColumns>& widths);

/// Hands the model's rows to the control, and selects and focuses the first one.
void FillControl(ListControl& control, const ListModel& model);

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_LIST_MODEL_H_
