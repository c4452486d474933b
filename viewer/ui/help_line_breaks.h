#ifndef QVL_VIEWER_UI_HELP_LINE_BREAKS_H_
#define QVL_VIEWER_UI_HELP_LINE_BREAKS_H_

namespace qvl {

/// Lets the toolkit's HTML windows and printouts begin a new line inside Japanese text. They know
/// only blanks as places for that, and Japanese has none. Does nothing when called again.
void BreakJapaneseLines();

}  // namespace qvl

#endif  // QVL_VIEWER_UI_HELP_LINE_BREAKS_H_
