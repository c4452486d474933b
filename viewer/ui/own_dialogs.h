#ifndef QVL_VIEWER_UI_OWN_DIALOGS_H_
#define QVL_VIEWER_UI_OWN_DIALOGS_H_

#include <wx/window.h>

#include <functional>
#include <utility>

#include "viewer/model/commands.h"
#include "viewer/model/message_window.h"
#include "viewer/model/viewer_dialogs.h"

namespace qvl {

/// The program's own dialogs over the main window.
class OwnDialogs : public ViewerDialogs {
 public:
  /// execute  what the buttons of the clear dialog call.
  OwnDialogs(wxWindow* owner, MessageWindow& messages, std::function<void(Command)> execute)
      : owner_(owner), messages_(messages), execute_(std::move(execute)) {}

  std::optional<FilterChoices> AskFilter(const FilterChoices& current) override;
  bool ConfirmClear() override;
  std::optional<std::string> AskMaintenanceNote() override;
  std::optional<std::string> AskMachine() override;

 private:
  wxWindow* owner_;
  MessageWindow& messages_;
  std::function<void(Command)> execute_;
};

}  // namespace qvl

#endif  // QVL_VIEWER_UI_OWN_DIALOGS_H_
