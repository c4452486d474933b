#include "viewer/model/maintenance_note.h"

#include <algorithm>

namespace qvl {

std::string MaintenanceNoteLine(std::string_view typed) {
  std::string line;
  for (const char c : typed) {
    if (c == '\r') {
      if (line.empty() || line.back() != ' ') line += ' ';
    } else if (c != '\n') {
      line += c;
    }
  }
  line.erase(0, std::min(line.find_first_not_of(' '), line.size()));
  line.resize(line.find_last_not_of(' ') + 1);  // nothing found is the largest number: 0
  return line;
}

// What was put in ends at the caret, so what was there before stays on both sides of it.
std::wstring WithinNoteLimit(std::wstring text, std::size_t& caret) {
  if (text.size() <= kMaintenanceNoteLimit) return text;
  const std::size_t excess = text.size() - kMaintenanceNoteLimit;
  const std::size_t end = std::clamp(caret, excess, text.size());
  caret = end - excess;
  text.erase(caret, excess);
  return text;
}

bool AcceptMaintenanceNote(MessageWindow& messages, std::string_view typed) {
  const std::string line = MaintenanceNoteLine(typed);
  if (!line.empty() && line.size() <= kMaintenanceNoteLimit) return true;
  ShowResourceMessage(messages, StringId::kNotePrompt);
  return false;
}

}  // namespace qvl
