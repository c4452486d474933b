#include <gtk/gtk.h>

#include "viewer/ui/message_pictures.h"

namespace qvl {
namespace {

const char* PictureOf(GtkMessageType type) {
  return type == GTK_MESSAGE_QUESTION ? "dialog-question" : "dialog-warning";
}

gboolean AddPicture(GSignalInvocationHint* /*hint*/, guint /*count*/, const GValue* values,
                    gpointer /*data*/) {
  gpointer const shown = g_value_get_object(values);
  if (GTK_IS_MESSAGE_DIALOG(shown) == FALSE) return TRUE;
  GtkMessageType type = GTK_MESSAGE_OTHER;
  g_object_get(shown, "message-type", &type, nullptr);
  if (type != GTK_MESSAGE_WARNING && type != GTK_MESSAGE_QUESTION) return TRUE;
  GtkWidget* const texts = gtk_message_dialog_get_message_area(GTK_MESSAGE_DIALOG(shown));
  GtkWidget* const row = gtk_widget_get_parent(texts);
  GtkWidget* const picture = gtk_image_new_from_icon_name(PictureOf(type), GTK_ICON_SIZE_DIALOG);
  gtk_widget_set_valign(picture, GTK_ALIGN_START);
  gtk_box_pack_start(GTK_BOX(row), picture, FALSE, FALSE, 0);
  gtk_box_reorder_child(GTK_BOX(row), picture, 0);
  gtk_widget_show(picture);
  return TRUE;  // to be asked again
}

}  // namespace

void ShowPicturesInMessages() {
  g_type_class_ref(GTK_TYPE_WIDGET);
  g_signal_add_emission_hook(g_signal_lookup("show", GTK_TYPE_WIDGET), 0, AddPicture, nullptr,
                             nullptr);
}

}  // namespace qvl
