#include <wx/access.h>

#include "viewer/ui/accessible_name.h"

namespace qvl {
namespace {

class NamedControl : public wxAccessible {
 public:
  NamedControl(wxWindow* control, wxString name) : wxAccessible(control), name_(std::move(name)) {}

  wxAccStatus GetName(int childId, wxString* name) override {
    if (childId != wxACC_SELF) return wxACC_NOT_IMPLEMENTED;
    *name = name_;
    return wxACC_OK;
  }

 private:
  wxString name_;
};

}  // namespace

void SetAccessibleName(wxWindow& control, const wxString& name) {
  control.SetAccessible(new NamedControl(&control, name));  // the control deletes it
}

}  // namespace qvl
