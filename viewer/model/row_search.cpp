#include "viewer/model/row_search.h"

#include <array>
#include <string_view>
#include <utility>

#include "entries/ascii_case.h"
#include "entries/event_description.h"
#include "files/unicode_text.h"

namespace qvl {
namespace {

bool RowHolds(const CEventLogEntry& entry, std::string_view part) {
  std::array<char, kDescriptionSize> buffer;
  for (const ListColumn& column : ListColumns()) {
    TextSink cell(buffer);
    entry.GetColumnText(column.column, cell);
    const std::string_view text = cell.view();
    const bool holds =
        IsUtf8(text) ? HoldsIgnoringCase(text, part) : HoldsIgnoringCase(Utf8FromText(text), part);
    if (holds) return true;
  }
  return false;
}

}  // namespace

RowSearch::RowSearch(const ListModel& model, std::string text, std::size_t start,
                     SearchDirection direction)
    : model_(model),
      text_(std::move(text)),
      direction_(direction),
      row_(model.rowCount() == 0 ? 0 : start % model.rowCount()),
      left_(text_.empty() ? 0 : model.rowCount()) {}

SearchState RowSearch::Continue(std::size_t rows) {
  const std::size_t all = model_.rowCount();
  for (; left_ > 0 && rows > 0; --left_, --rows) {
    if (RowHolds(model_.EntryAt(row_), text_)) return SearchState::kFound;
    row_ = direction_ == SearchDirection::kForward ? (row_ + 1) % all : (row_ + all - 1) % all;
  }
  return left_ > 0 ? SearchState::kSearching : SearchState::kNotFound;
}

}  // namespace qvl
