#include <wx/init.h>
// After the one above, which it needs.
#include <wx/msw/init.h>

#include "viewer/ui/event_viewer_app.h"
#include "viewer/ui/start_window.h"

namespace qvl {

int StartWindow(const std::vector<std::string>& arguments) {
  InstallEventViewerApp(arguments);
  return wxEntry(::GetModuleHandleW(nullptr), nullptr, nullptr, SW_SHOWDEFAULT);
}

}  // namespace qvl
