#include <gtk/gtk.h>

#include "viewer/ui/accessible_name.h"

namespace qvl {

void SetAccessibleName(wxWindow& control, const wxString& name) {
  AtkObject* const accessible = gtk_widget_get_accessible(control.GetHandle());
  if (accessible != nullptr) atk_object_set_name(accessible, name.utf8_str());
}

}  // namespace qvl
