#include "tools/qvlog/selection.h"

#include <algorithm>
#include <array>

#include "entries/event_description.h"
#include "entries/text_sink.h"
#include "files/unicode_text.h"

namespace qvl {
namespace {

char LowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

Selection::Selection(const SelectionOptions& options, Moment now)
    : filter_(options.choices, now),
      since_(options.since),
      until_(options.until),
      text_(options.text) {
  std::transform(text_.begin(), text_.end(), text_.begin(), LowerAscii);
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
  std::array<char, kDescriptionSize> buffer;
  TextSink description(buffer);
  entry.GetColumnText(Column::kDescription, description);
  const std::string text = Utf8FromText(description.view());
  return std::search(text.begin(), text.end(), text_.begin(), text_.end(),
                     [](char a, char b) { return LowerAscii(a) == b; }) != text.end();
}

}  // namespace qvl
