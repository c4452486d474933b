#ifndef QVL_VIEWER_MODEL_LIST_POSITION_H_
#define QVL_VIEWER_MODEL_LIST_POSITION_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "viewer/model/list_control.h"
#include "viewer/model/list_model.h"

namespace qvl {

/// What tells an entry from all others when its log is read again: its count, its last update and
/// its severity may have changed meanwhile.
struct EntryIdentity {
  std::uint32_t number = 0;
  std::uint16_t eventClass = 0;
  std::uint16_t eventCode = 0;
  LogTime initialTime;

  friend bool operator==(const EntryIdentity&, const EntryIdentity&) = default;
};

/// The selection and the scroll position of a list, by its entries.
struct ListPosition {
  std::vector<EntryIdentity> selected;
  std::optional<EntryIdentity> focused;
  std::optional<EntryIdentity> top;
  std::size_t topRow = 0;
};

ListPosition PositionOf(const ListControl& control, const ListModel& model);

/// Selects, focuses and scrolls to what is still there of a position. Where the entry at the top is
/// gone, the list stands at the same row again. Where the whole selection is gone, the control is
/// left as it was filled.
void RestorePosition(const ListPosition& position, ListControl& control, const ListModel& model);

/// Orders the rows by a click on a header; the same entries stay selected and focused, and the
/// list keeps standing at the same row.
void ClickHeader(Column column, ListControl& control, ListModel& model);

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_LIST_POSITION_H_
