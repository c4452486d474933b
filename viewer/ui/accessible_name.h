#ifndef QVL_VIEWER_UI_ACCESSIBLE_NAME_H_
#define QVL_VIEWER_UI_ACCESSIBLE_NAME_H_

#include <wx/window.h>

namespace qvl {

/// Names a control for those who hear the window instead of seeing it: a label beside a control is
/// not tied to it on every system. Call when the control exists.
void SetAccessibleName(wxWindow& control, const wxString& name);

}  // namespace qvl

#endif  // QVL_VIEWER_UI_ACCESSIBLE_NAME_H_
