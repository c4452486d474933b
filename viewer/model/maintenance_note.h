#ifndef QVL_VIEWER_MODEL_MAINTENANCE_NOTE_H_
#define QVL_VIEWER_MODEL_MAINTENANCE_NOTE_H_

#include <string>
#include <string_view>

#include "viewer/model/message_window.h"

namespace qvl {

/// The most characters that the note's edit field takes, and the most bytes that a note has.
inline constexpr std::size_t kMaintenanceNoteLimit = 227;

/// A typed text as one line: a carriage return becomes a blank, unless one stands before it
/// already; line feeds are dropped; blanks at both ends go.
std::string MaintenanceNoteLine(std::string_view typed);

/// What an edit field holds that refuses further characters, after something was typed or pasted
/// that was too long: the last characters before the caret are gone.
/// text   what the field holds now; its length is counted in the toolkit's characters.
/// caret  where the caret stands now, and in the end where it shall stand.
std::wstring WithinNoteLimit(std::wstring text, std::size_t& caret);

/// What the dialog asks when the user confirms: says why a note cannot be sent, or returns true.
/// A note without a character is refused, and one that is longer in bytes than the service takes:
/// letters beyond ASCII take several.
bool AcceptMaintenanceNote(MessageWindow& messages, std::string_view typed);

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_MAINTENANCE_NOTE_H_
