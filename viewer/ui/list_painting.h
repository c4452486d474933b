#ifndef QVL_VIEWER_UI_LIST_PAINTING_H_
#define QVL_VIEWER_UI_LIST_PAINTING_H_

#include <wx/listctrl.h>

#include <functional>
#include <memory>
#include <string>

namespace qvl {

// What keeps the painting of a list quick where the toolkit draws it itself. A list that the
// system draws is left as it is.

/// Gives the list scroll bars beside its rows. Those that fade in and out above the rows have them
/// all drawn anew for each step, a dozen times after every click.
void KeepScrollBarsBesideRows(wxListCtrl& list);

/// Draws the texts of a list over the rows that the list itself has painted without them. The
/// toolkit lays each text out three times, and measures one that is too long for every character
/// that it leaves out, which would be most of what painting takes.
class RowTexts {
 public:
  /// A cell's text, UTF-8.
  using TextOf = std::function<std::string(long row, long column)>;

  /// list  outlives this object.
  RowTexts(wxListCtrl& list, TextOf textOf);
  ~RowTexts();

  /// True while the list paints: it is to get no text for this row then, which this object draws.
  bool TakesOver(long row) const;

 private:
  class Painter;
  const std::unique_ptr<Painter> painter_;  // none where the list is left as it is
};

}  // namespace qvl

#endif  // QVL_VIEWER_UI_LIST_PAINTING_H_
