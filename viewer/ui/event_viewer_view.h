#ifndef QVL_VIEWER_UI_EVENT_VIEWER_VIEW_H_
#define QVL_VIEWER_UI_EVENT_VIEWER_VIEW_H_

#include <wx/listctrl.h>

#include <functional>
#include <string>
#include <utility>

#include "viewer/model/list_control.h"
#include "viewer/model/list_model.h"
#include "viewer/ui/list_painting.h"

namespace qvl {

/// The list of entries on the screen. It holds no row: the toolkit asks for the cells that it
/// draws, and they come from the model.
class CEventViewerView : public wxListCtrl {
 public:
  explicit CEventViewerView(wxWindow* parent);

  /// The rows to show; outlives the control.
  void SetModel(const ListModel* model) { model_ = model; }

  /// True while the program itself changes the selection: nobody is told then.
  bool isQuiet() const { return isQuiet_; }
  void SetQuiet(bool quiet) { isQuiet_ = quiet; }

  /// Takes the keyboard; where the window does not have it, as soon as it has.
  void TakeFocus();
  /// The user has gone elsewhere: what is still to come of TakeFocus does not.
  void GiveUpFocus() { wantsFocus_ = false; }

 protected:
  wxString OnGetItemText(long row, long column) const override;
  int OnGetItemImage(long row) const override;

 private:
  void BindHeader();
  bool IsBetweenColumns(int x);
  std::string TextAt(long row, long column) const;

  const ListModel* model_ = nullptr;
  const RowTexts rowTexts_;
  bool isQuiet_ = false;
  bool wantsFocus_ = false;
};

/// The model's hold on the list.
class ListAdapter : public ListControl {
 public:
  struct Handlers {
    std::function<void()> rowsChanged;
    std::function<void()> selectionChanged;
  };
  ListAdapter(CEventViewerView& list, Handlers handlers)
      : list_(list), handlers_(std::move(handlers)) {}

  void SetReportMode() override;
  void InsertColumn(int index, std::string_view heading, int width) override;
  int GetColumnWidth(int index) const override;
  void ShowSortArrow(Column column, bool ascending) override;
  void SetEnabled(bool enabled) override;

  void DeleteAllRows() override;
  void InsertRows(std::size_t count) override;
  void RowsReordered() override;
  void RedrawRow(std::size_t row) override;

  void SelectAndFocusRow(std::size_t row) override;
  void SetSelection(std::span<const std::size_t> rows, std::size_t focused) override;
  void ScrollToTop(std::size_t row) override;

  std::size_t RowCount() const override;
  std::size_t SelectedRowCount() const override;
  std::size_t NextSelectedRow(std::size_t row) const override;
  std::size_t FocusedRow() const override;
  std::size_t TopRow() const override;

 private:
  void SelectAllRows(bool selected);
  void FocusRow(std::size_t row);

  CEventViewerView& list_;
  Handlers handlers_;
  mutable std::size_t focusedRow_ = kNoRow;  // where it was seen last
};

}  // namespace qvl

#endif  // QVL_VIEWER_UI_EVENT_VIEWER_VIEW_H_
