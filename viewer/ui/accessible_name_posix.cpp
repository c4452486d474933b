#include <gtk/gtk.h>

#include "viewer/ui/accessible_name.h"

namespace qvl {

namespace {

void NameWidget(GtkWidget* widget, const wxString& name) {
  AtkObject* const accessible = gtk_widget_get_accessible(widget);
  if (accessible != nullptr) atk_object_set_name(accessible, name.utf8_str());
}

}  // namespace

// What has the keyboard can stand inside: the field of a box with a list, the text of a scrolled
// control, the rows of a list.
void SetAccessibleName(wxWindow& control, const wxString& name) {
  GtkWidget* const widget = control.GetHandle();
  NameWidget(widget, name);
  const bool holdsField = GTK_IS_COMBO_BOX(widget) || GTK_IS_SCROLLED_WINDOW(widget);
  GtkWidget* const field = holdsField ? gtk_bin_get_child(GTK_BIN(widget)) : nullptr;
  if (field != nullptr) NameWidget(field, name);
  for (wxWindow* const part : control.GetChildren()) NameWidget(part->GetHandle(), name);
}

}  // namespace qvl
