#include "tools/qvlog/commands.h"

#include <numeric>

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

SelectedEntries::SelectedEntries(const CommandLine& line, Moment now, BeginOutput begin,
                                 WriteEntry write)
    : selection_(line.selection, now),
      sort_(line.sort),
      begin_(std::move(begin)),
      write_(std::move(write)) {}

bool SelectedEntries::Begin() {
  if (!begun_) opened_ = begin_();
  begun_ = true;
  return opened_;
}

bool SelectedEntries::Take(const CEventLogEntry& entry) {
  if (!writing_ || !selection_.Takes(entry)) return writing_;
  ++taken_;
  if (sort_) {
    kept_.Append(entry.raw());
  } else {
    writing_ = write_(entry);
  }
  return writing_;
}

void SelectedEntries::Finish() {
  if (sort_ && opened_) writing_ = WriteSorted(kept_, *sort_, write_);
}

bool WriteSelected(const CommandLine& line, Console& console, const std::function<bool()>& begin,
                   const std::function<bool(const CEventLogEntry&)>& write) {
  SelectedEntries selected(line, console.now, begin, write);
  const bool allRead = ReadLogs(line.files, console, [&](std::span<const CEventLogEntry> entries) {
    bool writing = selected.Begin();
    for (const CEventLogEntry& entry : entries) {
      if (!writing) break;
      writing = selected.Take(entry);
    }
    return writing;
  });
  selected.Finish();
  return allRead;
}

int FinishOutput(BufferedWriter& out, bool allRead, Console& console) {
  const Status status = out.Finish();
  if (!status.ok()) Report(console, status.message());
  return status.ok() && allRead ? kExitDone : kExitFailure;
}

}  // namespace qvl
