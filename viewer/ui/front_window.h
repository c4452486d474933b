#ifndef QVL_VIEWER_UI_FRONT_WINDOW_H_
#define QVL_VIEWER_UI_FRONT_WINDOW_H_

#include <wx/window.h>

namespace qvl {

/// The window that the user is working with: the dialog that waits for him, else the main window.
wxWindow* FrontWindow();

}  // namespace qvl

#endif  // QVL_VIEWER_UI_FRONT_WINDOW_H_
