#include "viewer/ui/front_window.h"

#include <wx/app.h>
#include <wx/dialog.h>
#include <wx/toplevel.h>

namespace qvl {

wxWindow* FrontWindow() {
  for (auto* node = wxTopLevelWindows.GetLast(); node != nullptr; node = node->GetPrevious()) {
    auto* const dialog = dynamic_cast<wxDialog*>(node->GetData());
    if (dialog != nullptr && dialog->IsShown() && dialog->IsModal()) return dialog;
  }
  return wxTheApp->GetTopWindow();
}

}  // namespace qvl
