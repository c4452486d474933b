#ifndef QVL_VIEWER_MODEL_ENTRY_LIST_VIEW_H_
#define QVL_VIEWER_MODEL_ENTRY_LIST_VIEW_H_

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "viewer/model/document_view.h"
#include "viewer/model/event_viewer_doc.h"
#include "viewer/model/list_position.h"
#include "viewer/model/list_texts.h"
#include "viewer/model/row_search.h"
#include "viewer/model/severity_histogram.h"
#include "viewer/model/viewer_environment.h"

namespace qvl {

/// The list of entries, between the document and the toolkit's control.
class EntryListView : public DocumentView {
 public:
  EntryListView(const ViewerEnvironment& environment, CEventViewerDoc& document);
  ~EntryListView() override;
  EntryListView(const EntryListView&) = delete;
  EntryListView& operator=(const EntryListView&) = delete;

  /// Makes the columns, with the widths that are remembered; call when the control exists.
  void Create();
  /// Remembers the widths; call while the control still exists.
  void Destroy();

  void OnUpdate() override;
  void SetEnabled(bool enabled) override;

  void OnHeaderClick(Column column);

  /// True when a right click shows the context menu.
  bool OffersContextMenu() const { return environment_.list.SelectedRowCount() > 0; }

  /// Selection and scroll position, to be kept while the log is read again.
  ListPosition Position() const;
  void Restore(const ListPosition& position);

  void SelectAll();
  void CopySelection();

  /// Searches for a text while it is typed: from the focused row on, which may hold it still. A row
  /// that holds it is selected; when none does, the selection stays. Each call looks at one slice
  /// of the rows, a few hundredths of a second at most.
  SearchState FindTyped(const std::string& text);
  /// The next or the previous row that holds the text that was typed last.
  SearchState FindAgain(SearchDirection direction);
  /// The next slice; `kNotFound` when nothing is searched for.
  SearchState ContinueSearch();
  /// A search that goes on is given up, also when the rows change.
  void StopSearch() { search_.reset(); }
  bool isSearching() const { return search_.has_value(); }
  const std::string& searchText() const { return searchText_; }

  /// Rows of a slice.
  static constexpr std::size_t kSearchSlice = 8192;

  /// The entry that the details show: the focused one. Null when there is none.
  const CEventLogEntry* FocusedEntry() const;

  SeverityHistogram Histogram(std::size_t largestBuckets) const;

 private:
  const ViewerEnvironment& environment_;
  CEventViewerDoc& document_;
  std::string searchText_;
  std::optional<RowSearch> search_;  // while it goes on
};

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_ENTRY_LIST_VIEW_H_
