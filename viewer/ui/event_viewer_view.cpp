#include "viewer/ui/event_viewer_view.h"

#include <wx/scrolwin.h>
#include <wx/toplevel.h>

#include <algorithm>
#include <cstdlib>

#include "viewer/model/list_texts.h"
#include "viewer/ui/accessible_name.h"
#include "viewer/ui/list_pictures.h"
#include "viewer/ui/wx_text.h"

namespace qvl {
namespace {

constexpr int kGripOfColumn = 3;
constexpr const char* kNameOfDrawnHeader = "wxlistctrlcolumntitles";

class QuietList {
 public:
  explicit QuietList(CEventViewerView& list) : list_(list), before_(list.isQuiet()) {
    list_.SetQuiet(true);
  }
  ~QuietList() { list_.SetQuiet(before_); }
  QuietList(const QuietList&) = delete;
  QuietList& operator=(const QuietList&) = delete;

 private:
  CEventViewerView& list_;
  bool before_;
};

std::size_t RowOf(long item) {
  return item < 0 ? ListControl::kNoRow : static_cast<std::size_t>(item);
}

}  // namespace

CEventViewerView::CEventViewerView(wxWindow* parent)
    : wxListCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                 wxLC_REPORT | wxLC_VIRTUAL | wxBORDER_THEME),
      rowTexts_(*this, [this](long row, long column) { return TextAt(row, column); }) {
  SetSmallImages(ListPictures());
  SetAccessibleName(*this, TextOf(StringId::kListName));
  KeepScrollBarsBesideRows(*this);
  wxGetTopLevelParent(this)->Bind(wxEVT_ACTIVATE, [this](wxActivateEvent& event) {
    event.Skip();
    if (!event.GetActive() || !wantsFocus_) return;
    CallAfter([this] {
      if (wantsFocus_) TakeFocus();
    });
  });
  BindHeader();
}

// The header that the toolkit draws itself takes the second press of a double click for nothing.
void CEventViewerView::BindHeader() {
  for (wxWindow* const child : GetChildren()) {
    if (child->GetName() != kNameOfDrawnHeader) continue;
    child->Bind(wxEVT_LEFT_DCLICK, [this, child](wxMouseEvent& event) {
      event.Skip();
      if (IsBetweenColumns(event.GetX())) return;  // it fits the column to its texts
      wxMouseEvent press(event);
      press.SetEventType(wxEVT_LEFT_DOWN);
      child->HandleWindowEvent(press);
    });
  }
}

bool CEventViewerView::IsBetweenColumns(int x) {
  auto* const scrolled = dynamic_cast<wxScrollHelper*>(static_cast<wxWindow*>(this));
  if (scrolled != nullptr) x = scrolled->CalcUnscrolledPosition(wxPoint(x, 0)).x;
  int end = 0;
  for (int column = 0; column < GetColumnCount(); ++column) {
    end += GetColumnWidth(column);
    if (std::abs(x - end) < kGripOfColumn) return true;
  }
  return false;
}

// The toolkit believes that a control has the focus which was set in a window without the keyboard,
// or in a disabled control, and does not set it again.
void CEventViewerView::TakeFocus() {
  auto* const window = dynamic_cast<wxTopLevelWindow*>(wxGetTopLevelParent(this));
  wantsFocus_ = window == nullptr || !window->IsActive();
  if (!wantsFocus_ && IsEnabled()) SetFocus();
}

std::string CEventViewerView::TextAt(long row, long column) const {
  const std::size_t index = RowOf(row);
  if (model_ == nullptr || index >= model_->rowCount()) return {};
  return CellText(*model_, index, static_cast<Column>(column));
}

wxString CEventViewerView::OnGetItemText(long row, long column) const {
  if (rowTexts_.TakesOver(row)) return {};
  return ToWx(TextAt(row, column));
}

int CEventViewerView::OnGetItemImage(long row) const {
  const std::size_t index = RowOf(row);
  if (model_ == nullptr || index >= model_->rowCount()) return -1;
  return model_->EntryAt(index).GetSeverityImage();
}

// The control is made in report mode: the toolkit would build it anew otherwise.
void ListAdapter::SetReportMode() {
  if (!list_.InReportView()) list_.SetSingleStyle(wxLC_REPORT);
}

// Widths are remembered for a screen of 96 dots per inch, so that they fit on every other one.
void ListAdapter::InsertColumn(int index, std::string_view heading, int width) {
  list_.InsertColumn(index, ToWx(heading), wxLIST_FORMAT_LEFT, list_.FromDIP(width));
}

int ListAdapter::GetColumnWidth(int index) const {
  return list_.ToDIP(list_.GetColumnWidth(index));
}

void ListAdapter::ShowSortArrow(Column column, bool ascending) {
  if (column == Column::kEntryNumber) {
    list_.RemoveSortIndicator();
  } else {
    list_.ShowSortIndicator(static_cast<int>(column), ascending);
  }
}

// Who has opened a log works with its rows next.
void ListAdapter::SetEnabled(bool enabled) {
  if (enabled == list_.IsThisEnabled()) return;
  list_.Enable(enabled);
  if (enabled) list_.TakeFocus();
}

void ListAdapter::SelectAllRows(bool selected) {
  if (RowCount() == 0) return;
  list_.SetItemState(-1, selected ? wxLIST_STATE_SELECTED : 0, wxLIST_STATE_SELECTED);
}

void ListAdapter::DeleteAllRows() {
  const QuietList quiet(list_);
  SelectAllRows(false);
  list_.SetItemCount(0);
  list_.Refresh();
}

void ListAdapter::InsertRows(std::size_t count) {
  const QuietList quiet(list_);
  list_.SetItemCount(static_cast<long>(count));
  list_.Refresh();
  handlers_.rowsChanged();
}

void ListAdapter::RowsReordered() {
  list_.Refresh();
}

void ListAdapter::RedrawRow(std::size_t row) {
  list_.RefreshItem(static_cast<long>(row));
  handlers_.rowsChanged();
}

void ListAdapter::SelectAndFocusRow(std::size_t row) {
  const std::size_t rows[] = {row};
  SetSelection(rows, row);
  list_.EnsureVisible(static_cast<long>(row));
}

void ListAdapter::SetSelection(std::span<const std::size_t> rows, std::size_t focused) {
  const QuietList quiet(list_);
  const bool everyRow = rows.size() == RowCount();
  SelectAllRows(everyRow);
  if (!everyRow) {
    for (const std::size_t row : rows) {
      list_.SetItemState(static_cast<long>(row), wxLIST_STATE_SELECTED, wxLIST_STATE_SELECTED);
    }
  }
  FocusRow(focused);
  handlers_.selectionChanged();
}

// Some toolkits scroll to what has the focus.
void ListAdapter::FocusRow(std::size_t row) {
  if (row >= RowCount()) return;
  const std::size_t top = TopRow();
  list_.SetItemState(static_cast<long>(row), wxLIST_STATE_FOCUSED, wxLIST_STATE_FOCUSED);
  focusedRow_ = row;
  if (TopRow() != top) ScrollToTop(top);
}

void ListAdapter::ScrollToTop(std::size_t row) {
  const std::size_t rows = RowCount();
  if (rows == 0 || TopRow() == row) return;
  const auto page = static_cast<std::size_t>(std::max(1, list_.GetCountPerPage()));
  list_.EnsureVisible(static_cast<long>(std::min(row + page, rows) - 1));
  list_.EnsureVisible(static_cast<long>(std::min(row, rows - 1)));
}

std::size_t ListAdapter::RowCount() const {
  return static_cast<std::size_t>(list_.GetItemCount());
}

std::size_t ListAdapter::SelectedRowCount() const {
  return static_cast<std::size_t>(list_.GetSelectedItemCount());
}

std::size_t ListAdapter::NextSelectedRow(std::size_t row) const {
  if (row >= RowCount()) return kNoRow;
  return RowOf(
      list_.GetNextItem(static_cast<long>(row) - 1, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED));
}

// The toolkit looks at row after row; mostly the one of the last time has it still.
std::size_t ListAdapter::FocusedRow() const {
  const std::size_t rows = RowCount();
  if (rows == 0) return kNoRow;
  const bool isTheSame = focusedRow_ < rows && list_.GetItemState(static_cast<long>(focusedRow_),
                                                                  wxLIST_STATE_FOCUSED) != 0;
  if (!isTheSame) focusedRow_ = RowOf(list_.GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_FOCUSED));
  return focusedRow_;
}

std::size_t ListAdapter::TopRow() const {
  return RowCount() == 0 ? 0 : static_cast<std::size_t>(std::max(0L, list_.GetTopItem()));
}

}  // namespace qvl
