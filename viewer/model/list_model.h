#ifndef QVL_VIEWER_MODEL_LIST_MODEL_H_
#define QVL_VIEWER_MODEL_LIST_MODEL_H_

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "entries/entry_list.h"
#include "entries/event_log_entry.h"
#include "platform/local_time.h"
#include "texts/strings.h"
#include "viewer/model/filter.h"
#include "viewer/model/list_control.h"
#include "viewer/model/wall_minute.h"

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

  /// A stretch of update times beside the four criteria; all entries outside it are left out.
  const std::optional<TimeRange>& timeRange() const { return timeRange_; }
  void SetTimeRange(std::optional<TimeRange> range) { timeRange_ = range; }

  /// True when the filter or the stretch of time restricts.
  bool IsFiltered() const { return filter_.IsActive() || timeRange_.has_value(); }

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
  /// The row that shows an entry of the list; `ListControl::kNoRow` when none does.
  std::size_t RowOf(EntryIndex entry) const;
  CellContent Cell(std::size_t row, int column) const;

 private:
  void Sort();

  const EntryList& entries_;
  FilterChoices filter_;
  std::optional<TimeRange> timeRange_;
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
