#include <gtk/gtk.h>

#include "viewer/ui/input_block.h"

namespace qvl {

// A grab and not disabled windows: GTK would paint those grey.
struct InputBlock::State {
  GtkWidget* holder;
  bool isOwn;
};

InputBlock::InputBlock(wxWindow* allowed)
    : state_(std::make_unique<State>(State{
          allowed != nullptr ? allowed->GetHandle() : gtk_invisible_new(), allowed == nullptr})) {
  g_object_ref_sink(state_->holder);
  gtk_grab_add(state_->holder);
}

InputBlock::~InputBlock() {
  gtk_grab_remove(state_->holder);
  if (state_->isOwn) gtk_widget_destroy(state_->holder);
  g_object_unref(state_->holder);
}

}  // namespace qvl
