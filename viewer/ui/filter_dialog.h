#ifndef QVL_VIEWER_UI_FILTER_DIALOG_H_
#define QVL_VIEWER_UI_FILTER_DIALOG_H_

#include <wx/choice.h>
#include <wx/dialog.h>
#include <wx/sizer.h>

#include <string_view>
#include <vector>

#include "viewer/model/filter.h"

namespace qvl {

/// Asks for the four criteria of the filter.
class CFilterDlg : public wxDialog {
 public:
  CFilterDlg(wxWindow* owner, const FilterChoices& current);

  /// An empty text where nothing is selected.
  FilterChoices Choices() const;

 private:
  wxChoice* AddRow(wxFlexGridSizer& grid, StringId label,
                   const std::vector<std::string_view>& choices, const std::string& selected);
  void Reset();

  wxChoice* eventClass_;
  wxChoice* severity_;
  wxChoice* updateTime_;
  wxChoice* initialTime_;
};

}  // namespace qvl

#endif  // QVL_VIEWER_UI_FILTER_DIALOG_H_
