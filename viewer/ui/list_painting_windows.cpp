#include "viewer/ui/list_painting.h"

namespace qvl {

void KeepScrollBarsBesideRows(wxListCtrl& /*list*/) {}

class RowTexts::Painter {};

RowTexts::RowTexts(wxListCtrl& /*list*/, TextOf /*textOf*/) {}

RowTexts::~RowTexts() = default;

bool RowTexts::TakesOver(long /*row*/) const {
  return false;
}

}  // namespace qvl
