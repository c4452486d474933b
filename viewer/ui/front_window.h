#ifndef QVL_VIEWER_UI_FRONT_WINDOW_H_
#define QVL_VIEWER_UI_FRONT_WINDOW_H_

#include <wx/window.h>

#include "viewer/model/message_window.h"

namespace qvl {

/// The window that the user is working with: the dialog that waits for him, else the main window.
wxWindow* FrontWindow();

/// Message boxes over the front window.
class MessageBoxes : public MessageWindow {
 public:
  MessageAnswer Show(const UserMessage& message) override;
};

}  // namespace qvl

#endif  // QVL_VIEWER_UI_FRONT_WINDOW_H_
