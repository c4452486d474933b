#ifndef QVL_VIEWER_UI_MACHINE_BROWSER_H_
#define QVL_VIEWER_UI_MACHINE_BROWSER_H_

#include <wx/window.h>

#include <optional>
#include <string>

namespace qvl {

/// Lets the user pick a machine of the network: the shell's folder browser on Windows, elsewhere a
/// list of what the network announces. Returns its display name, UTF-8, or nothing.
std::optional<std::string> BrowseForMachine(wxWindow* owner);

}  // namespace qvl

#endif  // QVL_VIEWER_UI_MACHINE_BROWSER_H_
