#ifndef QVL_VIEWER_MODEL_LIST_TEXTS_H_
#define QVL_VIEWER_MODEL_LIST_TEXTS_H_

#include <cstddef>
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

/// A field of an entry as the details show it, UTF-8.
struct EntryField {
  std::string label;
  std::string value;
};

/// Every field of an entry: the list's columns, the numbers behind the names, code and entry
/// number.
std::vector<EntryField> EntryFields(const CEventLogEntry& entry);

/// The data bytes of an entry: offset and bytes in hexadecimal, then the printable ASCII
/// characters, a dot for every other byte. Lines end with a line feed.
/// bytesPerLine  at least 1; a line has `DataDumpWidth` characters at most.
std::string DataDump(const CEventLogEntry& entry, std::size_t bytesPerLine = 16);
constexpr std::size_t DataDumpWidth(std::size_t bytesPerLine) {
  return 5 + 4 * bytesPerLine;
}

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_LIST_TEXTS_H_
