#include "viewer/ui/path_dialogs.h"

#include <wx/filedlg.h>
#include <wx/filename.h>
#include <wx/msgdlg.h>

#include "texts/filled_text.h"
#include "viewer/ui/front_window.h"
#include "viewer/ui/wx_text.h"

namespace qvl {
namespace {

// The toolkit wants no bar at the end, and no blank at the end of a pattern.
wxString Wildcard(const std::string& filter) {
  wxString wildcard = ToWx(filter);
  while (wildcard.EndsWith("|")) wildcard.RemoveLast();
  return wildcard;
}

wxString WithExtension(const wxString& path, const std::string& extension) {
  return wxFileName(path).HasExt() ? path : path + ToWx(extension);
}

bool MayOverwrite(const wxString& path) {
  if (!wxFileName::FileExists(path)) return true;
  const std::string name = FromWx(wxFileName(path).GetFullName());
  wxMessageDialog question(FrontWindow(), ToWx(FilledText(StringId::kOverwriteFile, {name})),
                           TextOf(StringId::kApplicationTitle),
                           wxYES_NO | wxNO_DEFAULT | wxICON_EXCLAMATION);
  question.SetYesNoLabels(TextOf(StringId::kYes), TextOf(StringId::kNo));
  return question.ShowModal() == wxID_YES;
}

}  // namespace

std::optional<std::string> PathDialogs::AskOpenPath(const FileDialogRequest& request) {
  wxFileDialog dialog(FrontWindow(), ToWx(request.title), wxString(), wxString(),
                      Wildcard(request.filter), wxFD_OPEN | wxFD_FILE_MUST_EXIST);
  if (dialog.ShowModal() != wxID_OK) return std::nullopt;
  return PathFromWx(dialog.GetPath());
}

// Asks about an existing file itself: not every system's dialog knows of the extension by then.
std::optional<std::string> PathDialogs::AskSavePath(const FileDialogRequest& request) {
  wxFileDialog dialog(FrontWindow(), ToWx(request.title), wxString(), wxString(),
                      Wildcard(request.filter), wxFD_SAVE);
  while (dialog.ShowModal() == wxID_OK) {
    const wxString path = WithExtension(dialog.GetPath(), request.defaultExtension);
    if (MayOverwrite(path)) return PathFromWx(path);
  }
  return std::nullopt;
}

}  // namespace qvl
