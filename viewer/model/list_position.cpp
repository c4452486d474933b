#include "viewer/model/list_position.h"

#include <algorithm>
#include <functional>
#include <string_view>
#include <unordered_map>

namespace qvl {
namespace {

constexpr std::size_t kNoRow = ListControl::kNoRow;

EntryIdentity IdentityOf(const CEventLogEntry& entry) {
  const RawLogEntry& raw = entry.raw();
  return {raw.entryNumber, raw.eventClass, raw.eventCode, raw.initialTime};
}

struct IdentityHash {
  std::size_t operator()(const EntryIdentity& identity) const {
    const std::uint64_t codes =
        std::uint64_t{identity.eventClass} << 48U | std::uint64_t{identity.eventCode} << 32U;
    return std::hash<std::uint64_t>()(codes ^ identity.number ^
                                      identity.initialTime.Packed() * 0x9E3779B97F4A7C15U);
  }
};

// The row of each wanted entry, kNoRow until it is met. Of several alike the first one counts.
using RowsByIdentity = std::unordered_map<EntryIdentity, std::size_t, IdentityHash>;

// Ascending. The last one ends the walk, and the usual single one that has the focus needs none:
// a control looks at every row of a long list to find no further one.
std::vector<std::size_t> SelectedRows(const ListControl& control, std::size_t rowCount) {
  const std::size_t count = control.SelectedRowCount();
  const std::size_t focused = control.FocusedRow();
  if (count == 1 && focused < rowCount && control.NextSelectedRow(focused) == focused) {
    return {focused};
  }
  std::vector<std::size_t> rows;
  for (std::size_t row = 0; rows.size() < count; ++row) {
    row = control.NextSelectedRow(row);
    if (row >= rowCount) break;
    rows.push_back(row);
  }
  return rows;
}

// The rows that show these entries, ascending. A single entry, which is the usual case, is found
// without a look at what else there is.
std::vector<std::size_t> RowsOf(const std::vector<EntryIndex>& entries, const ListModel& model) {
  if (entries.empty()) return {};
  if (entries.size() == 1) return {model.RowOf(entries.front())};
  std::vector<bool> isWanted(*std::max_element(entries.begin(), entries.end()) + std::size_t{1});
  for (const EntryIndex entry : entries) isWanted[entry] = true;
  std::vector<std::size_t> rows;
  for (std::size_t row = 0; row < model.rowCount(); ++row) {
    const EntryIndex entry = model.EntryIndexAt(row);
    if (entry < isWanted.size() && isWanted[entry]) rows.push_back(row);
  }
  return rows;
}

std::optional<EntryIdentity> IdentityAt(const ListModel& model, std::size_t row) {
  if (row >= model.rowCount()) return std::nullopt;
  return IdentityOf(model.EntryAt(row));
}

void FindRows(const ListModel& model, RowsByIdentity& rows) {
  if (rows.empty()) return;
  for (std::size_t row = 0; row < model.rowCount(); ++row) {
    const auto found = rows.find(IdentityOf(model.EntryAt(row)));
    if (found != rows.end() && found->second == kNoRow) found->second = row;
  }
}

std::size_t RowOf(const RowsByIdentity& rows, const std::optional<EntryIdentity>& identity) {
  return identity ? rows.at(*identity) : kNoRow;
}

}  // namespace

ListPosition PositionOf(const ListControl& control, const ListModel& model) {
  ListPosition position;
  for (const std::size_t row : SelectedRows(control, model.rowCount())) {
    position.selected.push_back(IdentityOf(model.EntryAt(row)));
  }
  position.focused = IdentityAt(model, control.FocusedRow());
  position.topRow = control.TopRow();
  position.top = IdentityAt(model, position.topRow);
  return position;
}

void RestorePosition(const ListPosition& position, ListControl& control, const ListModel& model) {
  if (model.rowCount() == 0) return;
  RowsByIdentity rows;
  for (const EntryIdentity& identity : position.selected) rows.emplace(identity, kNoRow);
  if (position.focused) rows.emplace(*position.focused, kNoRow);
  if (position.top) rows.emplace(*position.top, kNoRow);
  FindRows(model, rows);

  std::vector<std::size_t> selected;
  for (const EntryIdentity& identity : position.selected) {
    const std::size_t row = rows.at(identity);
    if (row != kNoRow) selected.push_back(row);
  }
  std::sort(selected.begin(), selected.end());
  selected.erase(std::unique(selected.begin(), selected.end()), selected.end());
  std::size_t focused = RowOf(rows, position.focused);
  if (focused == kNoRow && !selected.empty()) focused = selected.front();
  if (!selected.empty() || position.selected.empty()) control.SetSelection(selected, focused);

  const std::size_t top = RowOf(rows, position.top);
  control.ScrollToTop(top != kNoRow ? top : std::min(position.topRow, model.rowCount() - 1));
}

void ClickHeader(Column column, ListControl& control, ListModel& model) {
  // By position in the log here: nothing was read anew, and alike entries stay apart.
  std::vector<EntryIndex> selected;
  for (const std::size_t row : SelectedRows(control, model.rowCount())) {
    selected.push_back(model.EntryIndexAt(row));
  }
  std::vector<EntryIndex> focused;
  const std::size_t focusedRow = control.FocusedRow();
  if (focusedRow < model.rowCount()) focused.push_back(model.EntryIndexAt(focusedRow));
  const std::size_t topRow = control.TopRow();

  model.ClickHeader(column);
  control.RowsReordered();
  const std::vector<std::size_t> selectedRows = RowsOf(selected, model);
  const std::vector<std::size_t> focusedRows =
      focused == selected ? selectedRows : RowsOf(focused, model);
  control.SetSelection(selectedRows, focusedRows.empty() ? kNoRow : focusedRows.front());
  if (model.rowCount() > 0) control.ScrollToTop(topRow);
  control.ShowSortArrow(model.sort().column, model.sort().ascending);
}

}  // namespace qvl
