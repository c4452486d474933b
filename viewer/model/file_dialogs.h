#ifndef QVL_VIEWER_MODEL_FILE_DIALOGS_H_
#define QVL_VIEWER_MODEL_FILE_DIALOGS_H_

#include <optional>
#include <string>

namespace qvl {

/// What a file dialog shows, UTF-8.
struct FileDialogRequest {
  std::string title;
  /// Names and patterns by turns, each ended by a bar, a further bar at the end.
  std::string filter;
  /// Put behind a chosen name that has no extension, before the dialog asks about an existing file.
  std::string defaultExtension;
};

/// Asks the user for a path; no file is suggested. Nothing when the user cancels. Paths are UTF-8
/// on Windows and bytes elsewhere.
class FileDialogs {
 public:
  virtual ~FileDialogs() = default;

  virtual std::optional<std::string> AskOpenPath(const FileDialogRequest& request) = 0;
  virtual std::optional<std::string> AskSavePath(const FileDialogRequest& request) = 0;
};

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_FILE_DIALOGS_H_
