#include "tools/qvlog/commands.h"

#include <numeric>

#include "entries/entry_list.h"
#include "tools/qvlog/log_input.h"
#include "viewer/model/sort.h"

namespace qvl {
namespace {

bool WriteSorted(const EntryList& entries, SortState sort,
                 const std::function<bool(const CEventLogEntry&)>& write) {
  std::vector<EntryIndex> rows(entries.size());
  std::iota(rows.begin(), rows.end(), EntryIndex{0});
  for (const EntryIndex row : SortedRows(entries, rows, sort.column, sort.ascending)) {
    if (!write(entries[row])) return false;
  }
  return true;
}

}  // namespace

bool WriteSelected(const CommandLine& line, Console& console, const std::function<bool()>& begin,
                   const std::function<bool(const CEventLogEntry&)>& write) {
  const Selection selection(line.selection, console.now);
  EntryList kept;
  bool begun = false;
  bool writing = true;
  const bool allRead = ReadLogs(line.files, console, [&](std::span<const CEventLogEntry> entries) {
    if (!begun) writing = begin();
    begun = true;
    for (const CEventLogEntry& entry : entries) {
      if (!writing) break;
      if (!selection.Takes(entry)) continue;
      if (line.sort) {
        kept.Append(entry.raw());
      } else {
        writing = write(entry);
      }
    }
    return writing;
  });
  if (line.sort && writing) WriteSorted(kept, *line.sort, write);
  return allRead;
}

int FinishOutput(BufferedWriter& out, bool allRead, Console& console) {
  const Status status = out.Finish();
  if (!status.ok()) Report(console, status.message());
  return status.ok() && allRead ? kExitDone : kExitFailure;
}

}  // namespace qvl
