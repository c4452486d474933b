#include "viewer/ui/list_painting.h"

namespace qvl {

void KeepScrollBarsBesideRows(wxListCtrl& /*list*/) {}

// The list shows the whole text beside the pointer.
wxString FittingText::Shorten(const wxString& text, int /*column*/) const {
  return text;
}

}  // namespace qvl
