#ifndef QVL_VIEWER_UI_FIND_BAR_H_
#define QVL_VIEWER_UI_FIND_BAR_H_

#include <wx/panel.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <functional>
#include <string>

#include "viewer/model/commands.h"

namespace qvl {

/// The bar in which a text is typed and found meanwhile.
class FindBar : public wxPanel {
 public:
  struct Handlers {
    std::function<void(const std::string&)> typed;
    std::function<void(Command)> execute;
    std::function<void()> close;
  };
  FindBar(wxWindow* parent, Handlers handlers);

  /// Shows what is typed already, selected, ready to be typed over.
  void Begin();
  /// What is known of the typed text; empty for nothing.
  void ShowAnswer(const std::string& answer);

 private:
  Handlers handlers_;
  wxTextCtrl* field_;
  wxStaticText* answer_;
};

}  // namespace qvl

#endif  // QVL_VIEWER_UI_FIND_BAR_H_
