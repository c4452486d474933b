#include <gtk/gtk.h>

#include <memory>

#include "viewer/ui/window_placement.h"

namespace qvl {
namespace {

struct WantedPlace {
  gulong handler = 0;
  int left = 0;
  int top = 0;
};

gboolean MoveOnce(GtkWidget* window, GdkEvent* /*event*/, gpointer data) {
  const std::unique_ptr<WantedPlace> place(static_cast<WantedPlace*>(data));
  g_signal_handler_disconnect(window, place->handler);
  gtk_window_move(GTK_WINDOW(window), place->left, place->top);
  return FALSE;
}

// Window managers place a new window where they like, and move it where it belongs when asked.
void MoveWhenShown(wxTopLevelWindow& window, int left, int top) {
  auto place = std::make_unique<WantedPlace>(WantedPlace{.left = left, .top = top});
  WantedPlace* const data = place.release();  // MoveOnce deletes it
  data->handler = g_signal_connect(window.GetHandle(), "map-event", G_CALLBACK(MoveOnce), data);
}

// Otherwise the toolkit lays the window out in one pixel first, and the menu bar complains about
// it.
void LayOutBeforeShown(wxTopLevelWindow& window, int width, int height) {
  window.SendSizeEvent();
  GtkRequisition smallest;
  gtk_widget_get_preferred_size(window.GetHandle(), &smallest, nullptr);
  GtkAllocation whole = {0, 0, width, height};
  gtk_widget_size_allocate(window.GetHandle(), &whole);
}

}  // namespace

WindowPlacement PlacementOf(const wxTopLevelWindow& window, const wxRect& lastNormal) {
  WindowPlacement placement;
  placement.left = lastNormal.x;
  placement.top = lastNormal.y;
  placement.right = lastNormal.x + lastNormal.width;
  placement.bottom = lastNormal.y + lastNormal.height;
  if (window.IsMaximized()) placement.state = WindowPlacement::kMaximised;
  if (window.IsIconized()) placement.state = WindowPlacement::kMinimised;
  return placement;
}

void ApplyPlacement(wxTopLevelWindow& window, const WindowPlacement& placement) {
  const int width = placement.right - placement.left;
  const int height = placement.bottom - placement.top;
  window.SetSize(placement.left, placement.top, width, height);
  LayOutBeforeShown(window, width, height);
  if (placement.state == WindowPlacement::kMaximised) window.Maximize();
  if (placement.state == WindowPlacement::kMinimised) window.Iconize();
  if (placement.state == WindowPlacement::kNormal) {
    MoveWhenShown(window, placement.left, placement.top);
  }
}

}  // namespace qvl
