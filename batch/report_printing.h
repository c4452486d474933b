#ifndef QVL_BATCH_REPORT_PRINTING_H_
#define QVL_BATCH_REPORT_PRINTING_H_

#include <string_view>

#include "entries/entry_list.h"
#include "platform/local_time.h"
#include "platform/printer.h"

namespace qvl {

/// Prints the report of a log, without asking anything.
/// machine  the name in every page's header.
/// now      the time in every page's header.
/// Returns  false when the printer did not take the whole document; nothing is then known of what
///          came out on paper. Throws only for want of memory.
bool PrintReport(Printer& printer, std::string_view machine, const EntryList& entries, Moment now);

}  // namespace qvl

#endif  // QVL_BATCH_REPORT_PRINTING_H_
