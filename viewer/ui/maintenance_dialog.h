#ifndef QVL_VIEWER_UI_MAINTENANCE_DIALOG_H_
#define QVL_VIEWER_UI_MAINTENANCE_DIALOG_H_

#include <wx/dialog.h>
#include <wx/textctrl.h>

#include <string>

#include "viewer/model/message_window.h"

namespace qvl {

/// Asks for the text of a maintenance note, and stays open until it is one.
class CMaintenanceDlg : public wxDialog {
 public:
  CMaintenanceDlg(wxWindow* owner, MessageWindow& messages);

  /// As it was typed, UTF-8, its lines ended as the service knows them.
  std::string Note() const;

 private:
  void KeepLimit();
  void OnOk();

  MessageWindow& messages_;
  wxTextCtrl* note_;
};

}  // namespace qvl

#endif  // QVL_VIEWER_UI_MAINTENANCE_DIALOG_H_
