#ifndef QVL_VIEWER_MODEL_VIEWER_DIALOGS_H_
#define QVL_VIEWER_MODEL_VIEWER_DIALOGS_H_

#include <optional>
#include <string>

#include "viewer/model/filter.h"

namespace qvl {

/// The program's own dialogs. Each one waits for the user; nothing or false when the user cancels.
class ViewerDialogs {
 public:
  virtual ~ViewerDialogs() = default;

  virtual std::optional<FilterChoices> AskFilter(const FilterChoices& current) = 0;

  /// Its save, export and print buttons execute the frame's commands and leave it open.
  virtual bool ConfirmClear() = 0;

  /// Returns a text that `AcceptMaintenanceNote` let pass, as it was typed, UTF-8.
  virtual std::optional<std::string> AskMaintenanceNote() = 0;

  /// The display name of a machine that the network announces.
  virtual std::optional<std::string> AskMachine() = 0;
};

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_VIEWER_DIALOGS_H_
