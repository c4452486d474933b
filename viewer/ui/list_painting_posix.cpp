#include "viewer/ui/list_painting.h"

#include <gtk/gtk.h>
#include <wx/fontutil.h>
#include <wx/settings.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace qvl {
namespace {

// Where the toolkit draws texts: what it leaves free in a column, and what a picture takes.
constexpr int kLeftOfText = 2;
constexpr int kMarginOfColumn = 8;
constexpr int kMarginOfPicture = 5;
constexpr int kWidthOfPicture = 16;  // at 96 dots per inch

struct ObjectDeleter {
  void operator()(gpointer object) const { g_object_unref(object); }
};
using Layout = std::unique_ptr<PangoLayout, ObjectDeleter>;

// For one line, cut off with an ellipsis where it does not fit.
Layout LayoutFor(cairo_t* cairo, const wxListCtrl& list) {
  Layout layout(gtk_widget_create_pango_layout(list.GetHandle(), nullptr));
  pango_cairo_update_layout(cairo, layout.get());
  pango_layout_set_font_description(layout.get(), list.GetFont().GetNativeFontInfo()->description);
  pango_layout_set_single_paragraph_mode(layout.get(), TRUE);
  pango_layout_set_auto_dir(layout.get(), FALSE);
  pango_layout_set_ellipsize(layout.get(), PANGO_ELLIPSIZE_END);
  return layout;
}

// A column of a sorted list mostly holds one text many times over: it stays laid out then.
// A column may be too narrow for the ellipsis even.
void DrawText(cairo_t* cairo, PangoLayout* layout, std::string text, const wxRect& room) {
  if (room.width <= 0) return;
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == '\t' || c == '\r' || c == '\n'; }, ' ');
  if (text != pango_layout_get_text(layout)) {
    pango_layout_set_text(layout, text.data(), static_cast<int>(text.size()));
  }
  pango_layout_set_width(layout, room.width * PANGO_SCALE);
  int width = 0;
  int height = 0;
  pango_layout_get_pixel_size(layout, &width, &height);
  const bool isTooWide = width > room.width;
  if (isTooWide) {
    cairo_save(cairo);
    cairo_rectangle(cairo, room.x, room.y, room.width, room.height);
    cairo_clip(cairo);
  }
  const int top = room.y + room.height / 2 - (height + 1) / 2;
  cairo_move_to(cairo, room.x, top);
  pango_cairo_show_layout(cairo, layout);
  if (isTooWide) cairo_restore(cairo);
}

}  // namespace

void KeepScrollBarsBesideRows(wxListCtrl& list) {
  GtkWidget* const widget = list.GetHandle();
  if (!GTK_IS_SCROLLED_WINDOW(widget)) return;
  gtk_scrolled_window_set_overlay_scrolling(GTK_SCROLLED_WINDOW(widget), FALSE);
}

// The list asks for the texts of a row when it paints it, and for those of no other.
class RowTexts::Painter {
 public:
  Painter(wxListCtrl& list, TextOf textOf) : list_(list), textOf_(std::move(textOf)) {
    wxWindow* const rows = list.GetTargetWindow();
    rows->Bind(wxEVT_PAINT, [this](wxPaintEvent& event) {
      event.Skip();
      isPainting_ = true;
      rows_.clear();
    });
    const auto draw = +[](GtkWidget* /*widget*/, cairo_t* cairo, gpointer self) -> gboolean {
      static_cast<Painter*>(self)->Draw(cairo);
      return FALSE;
    };
    g_signal_connect_after(rows->GetHandle(), "draw", G_CALLBACK(draw), this);
  }

  bool TakesOver(long row) {
    if (isPainting_ && (rows_.empty() || rows_.back() != row)) rows_.push_back(row);
    return isPainting_;
  }

 private:
  void Draw(cairo_t* cairo) {
    isPainting_ = false;
    if (rows_.empty()) return;
    std::vector<Layout> columns;
    while (static_cast<int>(columns.size()) < list_.GetColumnCount()) {
      columns.push_back(LayoutFor(cairo, list_));
    }
    for (const long row : rows_) DrawRow(cairo, columns, row);
    rows_.clear();
  }

  void DrawRow(cairo_t* cairo, const std::vector<Layout>& columns, long row) {
    gdk_cairo_set_source_rgba(cairo, ColourOf(row));
    wxRect cell;
    list_.GetItemRect(row, cell);
    list_.CalcScrolledPosition(kLeftOfText, static_cast<int>(row) * cell.height, &cell.x, &cell.y);
    int column = 0;
    for (const Layout& layout : columns) {
      const int columnWidth = list_.GetColumnWidth(column);
      const int picture = column > 0 ? 0 : list_.FromDIP(kWidthOfPicture) + kMarginOfPicture;
      const wxRect room(cell.x + picture, cell.y, columnWidth - kMarginOfColumn - picture,
                        cell.height);
      DrawText(cairo, layout.get(), textOf_(row, column), room);
      cell.x += columnWidth;
      ++column;
    }
  }

  wxColour ColourOf(long row) const {
    if (list_.GetItemState(row, wxLIST_STATE_SELECTED) == 0) return list_.GetForegroundColour();
    return wxSystemSettings::GetColour(list_.HasFocus() ? wxSYS_COLOUR_HIGHLIGHTTEXT
                                                        : wxSYS_COLOUR_LISTBOXHIGHLIGHTTEXT);
  }

  wxListCtrl& list_;
  const TextOf textOf_;
  bool isPainting_ = false;
  std::vector<long> rows_;  // painted without their texts
};

// A mirrored list is painted by the toolkit alone.
RowTexts::RowTexts(wxListCtrl& list, TextOf textOf)
    : painter_(list.GetLayoutDirection() == wxLayout_RightToLeft
                   ? nullptr
                   : std::make_unique<Painter>(list, std::move(textOf))) {}

RowTexts::~RowTexts() = default;

bool RowTexts::TakesOver(long row) const {
  return painter_ != nullptr && painter_->TakesOver(row);
}

}  // namespace qvl
