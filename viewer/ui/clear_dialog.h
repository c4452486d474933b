#ifndef QVL_VIEWER_UI_CLEAR_DIALOG_H_
#define QVL_VIEWER_UI_CLEAR_DIALOG_H_

#include <wx/dialog.h>
#include <wx/sizer.h>

#include <functional>

#include "viewer/model/commands.h"

namespace qvl {

/// Warns before a log is cleared and offers to save, export and print it first, in any
/// combination: those buttons leave the dialog open.
class CClearDlg : public wxDialog {
 public:
  CClearDlg(wxWindow* owner, std::function<void(Command)> execute);

 private:
  void AddOffer(wxFlexGridSizer& grid, StringId button, StringId text, Command command);

  std::function<void(Command)> execute_;
};

}  // namespace qvl

#endif  // QVL_VIEWER_UI_CLEAR_DIALOG_H_
