#ifndef QVL_VIEWER_UI_MACHINE_BAR_H_
#define QVL_VIEWER_UI_MACHINE_BAR_H_

#include <wx/button.h>
#include <wx/combobox.h>
#include <wx/panel.h>

#include <functional>

#include "viewer/model/machine_box.h"

namespace qvl {

/// The bar below the menu: the box of machine names with its two buttons.
class MachineBar : public wxPanel, public MachineBox {
 public:
  struct Handlers {
    std::function<void()> choose;  ///< a name was picked, or confirmed with Enter
    std::function<void()> browse;
    std::function<void()> refresh;
  };
  MachineBar(wxWindow* parent, const Handlers& handlers);

  void EnableRefresh(bool enabled) { refresh_->Enable(enabled); }
  wxWindow* box() const { return box_; }
  wxWindow* browseButton() const { return browse_; }
  wxWindow* refreshButton() const { return refresh_; }

  std::string Text() const override;
  void SetText(const std::string& text) override;
  void SetNames(const std::vector<std::string>& names) override;
  void Select(std::size_t index) override;
  void SelectNothing() override;

 private:
  wxComboBox* box_;
  wxButton* browse_;
  wxButton* refresh_;
};

}  // namespace qvl

#endif  // QVL_VIEWER_UI_MACHINE_BAR_H_
