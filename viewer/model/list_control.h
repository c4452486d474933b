#ifndef QVL_VIEWER_MODEL_LIST_CONTROL_H_
#define QVL_VIEWER_MODEL_LIST_CONTROL_H_

#include <cstddef>
#include <span>
#include <string_view>

#include "entries/event_log_entry.h"

namespace qvl {

/// The list operations that the view needs of its toolkit. Rows hold no text: the control asks
/// for the cells that it draws. A million rows are handed over at once, already in order.
class ListControl {
 public:
  virtual ~ListControl() = default;

  virtual void SetReportMode() = 0;
  virtual void InsertColumn(int index, std::string_view heading, int width) = 0;
  virtual int GetColumnWidth(int index) const = 0;
  /// Marks the column that orders the rows, and the direction.
  virtual void ShowSortArrow(Column column, bool ascending) = 0;
  virtual void SetEnabled(bool enabled) = 0;

  virtual void DeleteAllRows() = 0;
  /// Rows 0 to `count` - 1, texts and pictures by callback.
  virtual void InsertRows(std::size_t count) = 0;
  /// The rows kept their number but changed their order.
  virtual void RowsReordered() = 0;
  /// What a row shows has changed.
  virtual void RedrawRow(std::size_t row) = 0;

  /// Selects this row alone, focuses it and brings it into sight.
  virtual void SelectAndFocusRow(std::size_t row) = 0;
  /// Selects exactly these rows, ascending, and focuses one (kNoRow for none) without scrolling.
  virtual void SetSelection(std::span<const std::size_t> rows, std::size_t focused) = 0;
  /// Scrolls until this row is the first one in sight, as far as the rows below it allow.
  virtual void ScrollToTop(std::size_t row) = 0;

  virtual std::size_t RowCount() const = 0;
  virtual std::size_t SelectedRowCount() const = 0;
  /// The next selected row at or after `row`; `kNoRow` when there is none.
  virtual std::size_t NextSelectedRow(std::size_t row) const = 0;
  virtual std::size_t FocusedRow() const = 0;
  /// The first row in sight.
  virtual std::size_t TopRow() const = 0;

  static constexpr std::size_t kNoRow = static_cast<std::size_t>(-1);
};

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_LIST_CONTROL_H_
