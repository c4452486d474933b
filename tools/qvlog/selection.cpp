#include "tools/qvlog/selection.h"

#include <algorithm>

#include "entries/field_formatters.h"
#include "files/unicode_text.h"

namespace qvl {
Selection::Selection(const SelectionOptions& options, Moment now)
    : filter_(options.choices, now),
      since_(options.since),
      until_(options.until),
      text_(options.text) {
  std::transform(text_.begin(), text_.end(), text_.begin(), ToAsciiLower);
}

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
  return std::search(text.begin(), text.end(), text_.begin(), text_.end(),
                     [](char a, char b) { return ToAsciiLower(a) == b; }) != text.end();
}

}  // namespace qvl
