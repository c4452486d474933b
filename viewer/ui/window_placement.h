#ifndef QVL_VIEWER_UI_WINDOW_PLACEMENT_H_
#define QVL_VIEWER_UI_WINDOW_PLACEMENT_H_

#include <wx/toplevel.h>

#include "viewer/model/main_window.h"

namespace qvl {

/// How a window stands. Where the system does not tell the normal rectangle of a maximised or
/// minimised window, it is `lastNormal`.
WindowPlacement PlacementOf(const wxTopLevelWindow& window, const wxRect& lastNormal);

/// For a window that is not shown yet.
void ApplyPlacement(wxTopLevelWindow& window, const WindowPlacement& placement);

}  // namespace qvl

#endif  // QVL_VIEWER_UI_WINDOW_PLACEMENT_H_
