#include "viewer/model/list_model.h"

#include <algorithm>
#include <numeric>

#include "viewer/model/sort.h"

namespace qvl {
namespace {

constexpr std::array<ListColumn, kNumberOfColumns> kListColumns = {
    {
     {Column::kDescription, StringId::kColumnDescription, 365, "Description"},
     {Column::kClass, StringId::kColumnClass, 115, "Class"},
     {Column::kSeverity, StringId::kColumnSeverity, 80, "Severity"},
     {Column::kCount, StringId::kColumnCount, 45, "Count"},
     {Column::kUpdateTime, StringId::kColumnUpdateTime, 110, "Update"},
     {Column::kInitialTime, StringId::kColumnInitialTime, 110, "Initial"},
     }
};

}  // namespace

std::span<const ListColumn, kNumberOfColumns> ListColumns() {
  return kListColumns;
}

void ListModel::Reset() {
  filter_ = FilterChoices();
  timeRange_.reset();
  sort_ = SortState();
}

void ListModel::Refill(Moment now) {
  rows_ = std::vector<EntryIndex>();
  if (filter_.IsActive()) {
    shown_ = FilterEntries(entries_, filter_, now);
  } else {
    shown_.resize(entries_.size());
    std::iota(shown_.begin(), shown_.end(), EntryIndex{0});
  }
  if (timeRange_) {
    std::erase_if(shown_, [this](EntryIndex i) {
      return !IsWithin(*timeRange_, entries_.Head(i).updateTime);
    });
  }
  Sort();
}

void ListModel::ClickHeader(Column column) {
  sort_.ascending = column == sort_.column ? !sort_.ascending : true;
  sort_.column = column;
  Sort();
}

void ListModel::Sort() {
  rows_ = std::vector<EntryIndex>();
  rows_ = SortedRows(entries_, shown_, sort_.column, sort_.ascending);
}

std::size_t ListModel::RowOf(EntryIndex entry) const {
  const auto row = std::find(rows_.begin(), rows_.end(), entry);
  return row == rows_.end() ? ListControl::kNoRow : static_cast<std::size_t>(row - rows_.begin());
}

CellContent ListModel::Cell(std::size_t row, int column) const {
  const CEventLogEntry& entry = EntryAt(row);
  return {entry.GetColumnText(kListColumns[static_cast<std::size_t>(column)].column),
          column == 0 ? entry.GetSeverityImage() : -1};
}

void CreateColumns(ListControl& control, const std::array<int, kNumberOfColumns>& widths) {
  control.SetReportMode();
  for (int i = 0; i < kNumberOfColumns; ++i) {
    const auto at = static_cast<std::size_t>(i);
    control.InsertColumn(i, GetString(kListColumns[at].heading), widths[at]);
  }
}

void FillControl(ListControl& control, const ListModel& model) {
  control.DeleteAllRows();
  control.InsertRows(model.rowCount());
  if (model.rowCount() > 0) control.SelectAndFocusRow(0);
}

}  // namespace qvl
