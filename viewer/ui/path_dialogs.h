#ifndef QVL_VIEWER_UI_PATH_DIALOGS_H_
#define QVL_VIEWER_UI_PATH_DIALOGS_H_

#include "viewer/model/file_dialogs.h"

namespace qvl {

/// The system's file dialogs over the front window.
class PathDialogs : public FileDialogs {
 public:
  std::optional<std::string> AskOpenPath(const FileDialogRequest& request) override;
  std::optional<std::string> AskSavePath(const FileDialogRequest& request) override;
};

}  // namespace qvl

#endif  // QVL_VIEWER_UI_PATH_DIALOGS_H_
