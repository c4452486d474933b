#include <wx/filename.h>
#include <wx/msw/helpchm.h>
#include <wx/stdpaths.h>

#include "viewer/ui/help.h"
#include "viewer/ui/wx_text.h"

namespace qvl {

std::string HelpBookPath(std::string_view suffix) {
  wxString path = wxStandardPaths::Get().GetExecutablePath();
  path.RemoveLast(4);
  return FromWx(path) + std::string(suffix) + ".chm";
}

bool Help::Show() {
  const wxString path = ToWx(HelpFilePath());
  // Looked for every time: the system shows an empty window for a file that has gone.
  if (!wxFileName::FileExists(path)) return false;
  if (!controller_) controller_ = std::make_unique<wxCHMHelpController>();
  return controller_->Initialize(path) && controller_->DisplayContents();
}

}  // namespace qvl
