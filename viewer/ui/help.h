#ifndef QVL_VIEWER_UI_HELP_H_
#define QVL_VIEWER_UI_HELP_H_

#include <wx/help.h>

#include <memory>
#include <string>

namespace qvl {

/// The program's help file: the program's own path with "chm" as its last three letters on
/// Windows, a book of the toolkit's help window elsewhere.
std::string HelpFilePath();

/// Opens the help's window. Null when the file cannot be opened; the window lives as long as what
/// is returned.
std::unique_ptr<wxHelpControllerBase> OpenHelp();

}  // namespace qvl

#endif  // QVL_VIEWER_UI_HELP_H_
