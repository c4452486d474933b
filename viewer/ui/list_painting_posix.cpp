#include "viewer/ui/list_painting.h"

#include <gtk/gtk.h>

namespace qvl {
namespace {

// Many at once: a single one is measured in whole pixels.
constexpr std::size_t kSamples = 64;
constexpr std::size_t kEllipsisLength = 3;
// Characters side by side may take less room than each alone: up to this the text is measured.
constexpr double kSurelyTooWide = 1.1;

// What the toolkit leaves free in a column, and behind a picture, in pixels of any screen.
constexpr int kMarginOfColumn = 8;
constexpr int kMarginOfPicture = 5;
constexpr int kWidthOfPicture = 16;  // at 96 dots per inch

}  // namespace

void KeepScrollBarsBesideRows(wxListCtrl& list) {
  GtkWidget* const widget = list.GetHandle();
  if (!GTK_IS_SCROLLED_WINDOW(widget)) return;
  gtk_scrolled_window_set_overlay_scrolling(GTK_SCROLLED_WINDOW(widget), FALSE);
}

int FittingText::RoomIn(int column) const {
  const int width = list_.GetColumnWidth(column) - kMarginOfColumn;
  return column > 0 ? width : width - list_.FromDIP(kWidthOfPicture) - kMarginOfPicture;
}

// A character outside of ASCII counts for nothing here: a text that is too wide then is left to the
// list, which measures it.
double FittingText::WidthOf(wxUniChar character) const {
  const wxUniChar::value_type code = character.GetValue();
  if (code >= widths_.size()) return 0;
  double& width = widths_[code];
  if (width == 0) width = list_.GetTextExtent(wxString(character, kSamples)).x / double{kSamples};
  return width;
}

wxString FittingText::Shorten(const wxString& text, int column) const {
  const int room = RoomIn(column);
  const double roomForText = room - kEllipsisLength * WidthOf('.');
  double sum = 0;
  std::size_t length = 0;
  for (const wxUniChar character : text) {
    sum += WidthOf(character);
    if (sum <= roomForText) ++length;
    if (sum > kSurelyTooWide * room) break;
  }
  const bool fits =
      sum <= room || (sum <= kSurelyTooWide * room && list_.GetTextExtent(text).x <= room);
  return fits ? text : text.Left(length) + wxString('.', kEllipsisLength);
}

}  // namespace qvl
