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
    std::function<bool(const std::string&)> typed;  ///< false when no entry holds the text
    std::function<void(Command)> execute;
    std::function<void()> close;
  };
  FindBar(wxWindow* parent, Handlers handlers);

  wxWindow* field() const { return field_; }
  /// Shows what is typed already, selected, ready to be typed over.
  void Begin();

 private:
  void OnTyped();

  Handlers handlers_;
  wxTextCtrl* field_;
  wxStaticText* answer_;
};

}  // namespace qvl

#endif  // QVL_VIEWER_UI_FIND_BAR_H_
