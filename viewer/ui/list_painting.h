#ifndef QVL_VIEWER_UI_LIST_PAINTING_H_
#define QVL_VIEWER_UI_LIST_PAINTING_H_

#include <wx/listctrl.h>

#include <array>

namespace qvl {

// What keeps the painting of a list quick where the toolkit draws it itself. A list that the
// system draws is left as it is.

/// Gives the list scroll bars beside its rows. Those that fade in and out above the rows have them
/// all drawn anew for each step, a dozen times after every click.
void KeepScrollBarsBesideRows(wxListCtrl& list);

/// Shortens texts for a list that measures a text again for every character it leaves out, which
/// would be most of what painting takes.
class FittingText {
 public:
  /// list  outlives this object; texts are measured in its font.
  explicit FittingText(const wxListCtrl& list) : list_(list) {}

  /// `text`, or the beginning of it that fits into the column, with an ellipsis behind it.
  wxString Shorten(const wxString& text, int column) const;

 private:
  int RoomIn(int column) const;
  double WidthOf(wxUniChar character) const;

  const wxListCtrl& list_;
  mutable std::array<double, 128> widths_{};  // 0 until measured
};

}  // namespace qvl

#endif  // QVL_VIEWER_UI_LIST_PAINTING_H_
