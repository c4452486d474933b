#ifndef QVL_VIEWER_MODEL_SORT_H_
#define QVL_VIEWER_MODEL_SORT_H_

#include <span>
#include <vector>

#include "entries/entry_list.h"
#include "entries/event_log_entry.h"

namespace qvl {

/// The rows of a list in the order of `CompareEntries`; rows that it calls equal keep their order.
/// rows  positions in `entries`, in list order.
/// Each description is decoded once and each distinct one kept once while sorting; keys are
/// packed into one number a row and radix-sorted where they fit.
std::vector<EntryIndex> SortedRows(const EntryList& entries, std::span<const EntryIndex> rows,
                                   Column column, bool ascending);

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_SORT_H_
