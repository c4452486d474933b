#ifndef QVL_VIEWER_UI_DIALOG_PARTS_H_
#define QVL_VIEWER_UI_DIALOG_PARTS_H_

#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/window.h>

#include <functional>

#include "texts/strings.h"

namespace qvl {

inline constexpr int kDialogTextWidth = 400;

/// A text with line ends, so that no line is wider where that can be avoided; also for languages
/// that have no blanks between words.
/// width  in the window's pixels.
wxString BrokenIntoLines(const wxWindow& window, const wxString& text, int width);

/// A text broken into lines, so that a dialog fits on a small screen in every language.
/// width  in pixels of a screen with 96 dots per inch.
wxStaticText* WrappedText(wxWindow& dialog, StringId text, int width = kDialogTextWidth);

/// The confirming button, which is the default one, and the cancelling one, in the system's order.
wxSizer* OkAndCancel(wxWindow& dialog, StringId okLabel = StringId::kOk);

/// Calls `confirm` for Enter in a field of one line. With Alt, Enter is the key of the details.
void BindEnter(wxWindow& field, const std::function<void()>& confirm);

}  // namespace qvl

#endif  // QVL_VIEWER_UI_DIALOG_PARTS_H_
