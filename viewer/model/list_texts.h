#ifndef QVL_VIEWER_MODEL_LIST_TEXTS_H_
#define QVL_VIEWER_MODEL_LIST_TEXTS_H_

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "viewer/model/list_control.h"
#include "viewer/model/list_model.h"

namespace qvl {

/// A cell's text as a window shows it, UTF-8.
std::string CellText(const ListModel& model, std::size_t row, Column column);

/// The selected rows as lines of cells with tabs between them, below a line of the headings,
/// UTF-8. Tabs and line ends inside a cell become blanks. Empty when no row is selected.
std::string SelectedRowsText(const ListControl& control, const ListModel& model,
                             std::string_view lineEnd);

enum class SearchDirection : std::uint8_t { kForward, kBackward };

/// The first row from `start` on, round over the ends, of which any cell holds `text`, ignoring
/// ASCII case; nothing when none does, and for an empty text.
/// text  UTF-8.
std::optional<std::size_t> SearchRows(const ListModel& model, std::string_view text,
                                      std::size_t start, SearchDirection direction);

/// A field of an entry as the details show it, UTF-8.
struct EntryField {
  std::string label;
  std::string value;
};

/// Every field of an entry: the list's columns, the numbers behind the names, code and entry
/// number.
std::vector<EntryField> EntryFields(const CEventLogEntry& entry);

/// The data bytes of an entry, sixteen a line: offset and bytes in hexadecimal, then the printable
/// ASCII characters, a dot for every other byte. Lines end with a line feed.
std::string DataDump(const CEventLogEntry& entry);

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_LIST_TEXTS_H_
