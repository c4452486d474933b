#ifndef QVL_VIEWER_UI_ABOUT_DIALOG_H_
#define QVL_VIEWER_UI_ABOUT_DIALOG_H_

#include <wx/dialog.h>

namespace qvl {

/// Says which program and which version this is.
class CAboutDlg : public wxDialog {
 public:
  explicit CAboutDlg(wxWindow* owner);
};

}  // namespace qvl

#endif  // QVL_VIEWER_UI_ABOUT_DIALOG_H_
