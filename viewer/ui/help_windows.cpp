#include <wx/filename.h>
#include <wx/msw/helpchm.h>
#include <wx/stdpaths.h>

#include "viewer/ui/help.h"
#include "viewer/ui/wx_text.h"

namespace qvl {

std::string HelpFilePath() {
  wxString path = wxStandardPaths::Get().GetExecutablePath();
  path.RemoveLast(3);
  return FromWx(path + "chm");
}

std::unique_ptr<wxHelpControllerBase> OpenHelp() {
  const wxString path = ToWx(HelpFilePath());
  if (!wxFileName::FileExists(path)) return nullptr;
  auto help = std::make_unique<wxCHMHelpController>();
  if (!help->Initialize(path) || !help->DisplayContents()) return nullptr;
  return help;
}

}  // namespace qvl
