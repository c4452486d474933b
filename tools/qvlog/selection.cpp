#include "tools/qvlog/selection.h"

#include "entries/ascii_case.h"
#include "files/unicode_text.h"

namespace qvl {
Selection::Selection(const SelectionOptions& options, Moment now)
    : filter_(options.choices, now),
      since_(options.since),
      until_(options.until),
      text_(options.text) {}

bool Selection::Takes(const CEventLogEntry& entry) const {
  return filter_.Passes(entry) && TakesTime(entry.GetUpdateTime()) && TakesText(entry);
}

bool Selection::TakesTime(LogTime time) const {
  if (!since_ && !until_) return true;
  if (time.IsMissing() || !time.HasValidDate() || !time.HasValidTimeOfDay()) return false;
  return (!since_ || time >= *since_) && (!until_ || time <= *until_);
}

bool Selection::TakesText(const CEventLogEntry& entry) const {
  if (text_.empty()) return true;
  const std::string text = Utf8FromText(entry.GetColumnText(Column::kDescription));
  return HoldsIgnoringCase(text, text_);
}

}  // namespace qvl
