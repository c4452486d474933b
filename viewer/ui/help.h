#ifndef QVL_VIEWER_UI_HELP_H_
#define QVL_VIEWER_UI_HELP_H_

#include <wx/help.h>

#include <memory>
#include <string>
#include <string_view>

namespace qvl {

/// The help file in the process's language; the English one where that is missing, as it may be
/// itself.
std::string HelpFilePath();

/// A help file by what its name adds to the English one's, before the extension. The English one is
/// the program's own path with "chm" as its last three letters on Windows, a book of the toolkit's
/// help window elsewhere.
std::string HelpBookPath(std::string_view suffix);

/// The help and its window, which closes with it.
class Help {
 public:
  /// Opens the window, or brings it to the front. False when the file cannot be opened.
  bool Show();

 private:
  std::unique_ptr<wxHelpControllerBase> controller_;
};

}  // namespace qvl

#endif  // QVL_VIEWER_UI_HELP_H_
