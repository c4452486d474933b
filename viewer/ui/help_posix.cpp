#include <wx/filename.h>
#include <wx/fs_zip.h>
#include <wx/html/helpctrl.h>

#include "platform/program_part.h"
#include "viewer/ui/help.h"
#include "viewer/ui/help_line_breaks.h"
#include "viewer/ui/wx_text.h"

namespace qvl {
namespace {

// One book only, so its chapters stand at the top. Bookmarks would be lost with the window.
constexpr int kParts =
    wxHF_TOOLBAR | wxHF_CONTENTS | wxHF_INDEX | wxHF_SEARCH | wxHF_PRINT | wxHF_MERGE_BOOKS;

void ReadArchives() {
  if (!wxFileSystem::HasHandlerForPath("book.htb#zip:page.html")) {
    wxFileSystem::AddHandler(new wxZipFSHandler);
  }
}

}  // namespace

std::string HelpBookPath(std::string_view suffix) {
  return PathOfProgramPart("zlkqvxv" + std::string(suffix) + ".htb");
}

bool Help::Show() {
  if (!controller_) {
    const wxString path = PathToWx(HelpFilePath());
    if (!wxFileName::FileExists(path)) return false;
    ReadArchives();
    BreakJapaneseLines();
    auto controller = std::make_unique<wxHtmlHelpController>(kParts);
    if (!controller->AddBook(wxFileName(path))) return false;
    controller_ = std::move(controller);
  }
  return controller_->DisplayContents();
}

}  // namespace qvl
