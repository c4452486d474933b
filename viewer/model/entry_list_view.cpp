#include "viewer/model/entry_list_view.h"

#include <numeric>
#include <vector>

#include "viewer/model/viewer_settings.h"

namespace qvl {

EntryListView::EntryListView(const ViewerEnvironment& environment, CEventViewerDoc& document)
    : environment_(environment), document_(document) {
  document_.AttachView(this);
}

EntryListView::~EntryListView() {
  document_.AttachView(nullptr);
}

void EntryListView::Create() {
  CreateColumns(environment_.list, LoadColumnWidths(environment_.settings));
  OnUpdate();
}

void EntryListView::Destroy() {
  SaveColumnWidths(environment_.settings, environment_.list);
}

void EntryListView::OnUpdate() {
  StopSearch();
  const ListModel& model = document_.list();
  FillControl(environment_.list, model);
  environment_.list.ShowSortArrow(model.sort().column, model.sort().ascending);
  environment_.window.UpdateControls();
}

void EntryListView::SetEnabled(bool enabled) {
  environment_.list.SetEnabled(enabled);
}

void EntryListView::OnHeaderClick(Column column) {
  StopSearch();
  ClickHeader(column, environment_.list, document_.list());
}

ListPosition EntryListView::Position() const {
  return PositionOf(environment_.list, document_.list());
}

void EntryListView::Restore(const ListPosition& position) {
  RestorePosition(position, environment_.list, document_.list());
}

void EntryListView::SelectAll() {
  std::vector<std::size_t> rows(document_.list().rowCount());
  std::iota(rows.begin(), rows.end(), std::size_t{0});
  environment_.list.SetSelection(rows, environment_.list.FocusedRow());
}

void EntryListView::CopySelection() {
  environment_.window.CopyToClipboard(
      SelectedRowsText(environment_.list, document_.list(), environment_.lineEnd));
}

SearchState EntryListView::FindTyped(const std::string& text) {
  searchText_ = text;
  const std::size_t focused = environment_.list.FocusedRow();
  const std::size_t start = focused == ListControl::kNoRow ? 0 : focused;
  search_.emplace(document_.list(), text, start, SearchDirection::kForward);
  return ContinueSearch();
}

SearchState EntryListView::FindAgain(SearchDirection direction) {
  const std::size_t rows = document_.list().rowCount();
  if (rows == 0) return SearchState::kNotFound;
  const bool forward = direction == SearchDirection::kForward;
  const std::size_t focused = environment_.list.FocusedRow();
  const std::size_t before = focused < rows ? focused : (forward ? rows - 1 : 0);
  const std::size_t start = forward ? before + 1 : before + rows - 1;
  search_.emplace(document_.list(), searchText_, start, direction);
  return ContinueSearch();
}

SearchState EntryListView::ContinueSearch() {
  if (!search_) return SearchState::kNotFound;
  const SearchState state = search_->Continue(kSearchSlice);
  if (state == SearchState::kFound) environment_.list.SelectAndFocusRow(search_->row());
  if (state != SearchState::kSearching) StopSearch();
  return state;
}

const CEventLogEntry* EntryListView::FocusedEntry() const {
  const std::size_t row = environment_.list.FocusedRow();
  return row < document_.list().rowCount() ? &document_.list().EntryAt(row) : nullptr;
}

SeverityHistogram EntryListView::Histogram(std::size_t largestBuckets) const {
  return SeverityHistogram(document_.entries(), document_.list().filter(),
                           environment_.clock.GetNow(), largestBuckets);
}

}  // namespace qvl
