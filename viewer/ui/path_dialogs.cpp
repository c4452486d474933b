#include "viewer/ui/path_dialogs.h"

#include <wx/filedlg.h>

#include "viewer/ui/front_window.h"
#include "viewer/ui/wx_text.h"

namespace qvl {
namespace {

// The toolkit wants no bar at the end.
wxString Wildcard(const std::string& filter) {
  wxString wildcard = ToWx(filter);
  while (wildcard.EndsWith("|")) wildcard.RemoveLast();
  return wildcard;
}

// Whether a file exists is not the dialog's business: what follows tells it.
std::optional<std::string> Ask(const FileDialogRequest& request, long style) {
  wxFileDialog dialog(FrontWindow(), ToWx(request.title), wxString(), wxString(),
                      Wildcard(request.filter), style);
  if (dialog.ShowModal() != wxID_OK) return std::nullopt;
  return PathFromWx(dialog.GetPath());
}

}  // namespace

std::optional<std::string> PathDialogs::AskOpenPath(const FileDialogRequest& request) {
  return Ask(request, wxFD_OPEN);
}

std::optional<std::string> PathDialogs::AskSavePath(const FileDialogRequest& request) {
  return Ask(request, wxFD_SAVE);
}

}  // namespace qvl
