#include <wx/filename.h>
#include <wx/fs_zip.h>
#include <wx/html/helpctrl.h>

#include "platform/program_part.h"
#include "viewer/ui/help.h"
#include "viewer/ui/wx_text.h"

namespace qvl {

std::string HelpFilePath() {
  return PathOfProgramPart("zlkqvxv.htb");
}

std::unique_ptr<wxHelpControllerBase> OpenHelp() {
  const wxString path = PathToWx(HelpFilePath());
  if (!wxFileName::FileExists(path)) return nullptr;
  static const bool archivesAreRead = [] {
    wxFileSystem::AddHandler(new wxZipFSHandler);
    return true;
  }();
  auto help = std::make_unique<wxHtmlHelpController>();
  if (!archivesAreRead || !help->AddBook(wxFileName(path)) || !help->DisplayContents()) {
    return nullptr;
  }
  return help;
}

}  // namespace qvl
