#ifndef QVL_VIEWER_MODEL_FILE_DIALOGS_H_
#define QVL_VIEWER_MODEL_FILE_DIALOGS_H_

#include <optional>
#include <string>

#include "texts/strings.h"

namespace qvl {

/// What a file dialog shows, UTF-8.
struct FileDialogRequest {
  std::string title;
  /// Names and patterns by turns, each ended by a bar, a further bar at the end.
  std::string filter;
  /// For dialogs that put one behind a name without any; the model sees to the others.
  std::string defaultExtension;
};

/// What the dialogs for log files ask.
/// title  the number of the dialog's title.
FileDialogRequest LogFileRequest(StringId title);

/// Asks the user for a path, as typed or picked; no file is suggested, and whether it exists is not
/// asked. Nothing when the user cancels. Paths are UTF-8 on Windows and bytes elsewhere.
class FileDialogs {
 public:
  virtual ~FileDialogs() = default;

  virtual std::optional<std::string> AskOpenPath(const FileDialogRequest& request) = 0;
  virtual std::optional<std::string> AskSavePath(const FileDialogRequest& request) = 0;
};

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_FILE_DIALOGS_H_
