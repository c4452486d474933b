#ifndef QVL_TOOLS_QVLOG_COMMANDS_H_
#define QVL_TOOLS_QVLOG_COMMANDS_H_

#include <cstdint>
#include <functional>
#include <optional>

#include "entries/entry_list.h"
#include "entries/event_log_entry.h"
#include "files/buffered_writer.h"
#include "tools/qvlog/command_line.h"
#include "tools/qvlog/qvlog.h"
#include "tools/qvlog/selection.h"

namespace qvl {

// Each command returns its exit status.
int RunList(const CommandLine& line, Console& console);
int RunShow(const CommandLine& line, Console& console);
int RunInfo(const CommandLine& line, Console& console);
int RunExport(const CommandLine& line, Console& console);
int RunDescribe(Console& console);
int RunSample(const CommandLine& line, Console& console);
int RunRead(const CommandLine& line, Console& console);

/// Gives the selected entries of one log or several to a writer: as they come and in constant
/// memory, or, when the command line names a sort, at the end.
class SelectedEntries {
 public:
  using BeginOutput = std::function<bool()>;
  using WriteEntry = std::function<bool(const CEventLogEntry&)>;

  /// begin  begins the output; called once.
  /// write  returns false when writing failed; it is not called again.
  SelectedEntries(const CommandLine& line, Moment now, BeginOutput begin, WriteEntry write);

  /// A log is there, if only an empty one. Returns what `begin` returned.
  bool Begin();

  /// Only after a successful `Begin`. Returns false when there is no use in further entries.
  bool Take(const CEventLogEntry& entry);

  /// Writes what a sort has waited with.
  void Finish();

  /// How many entries were selected so far.
  std::uint64_t taken() const { return taken_; }

 private:
  Selection selection_;
  std::optional<SortState> sort_;
  BeginOutput begin_;
  WriteEntry write_;
  EntryList kept_;
  std::uint64_t taken_ = 0;
  bool begun_ = false;
  bool opened_ = false;
  bool writing_ = true;
};

/// Reads the files and gives the selected entries to `write`, in the order of the files or of the
/// sort; without a sort in constant memory.
/// begin  called once, before the first entry, when at least one file proved to be a log.
/// write  returns false when writing failed, which ends the reading.
/// Returns true when every file was read.
bool WriteSelected(const CommandLine& line, Console& console, const std::function<bool()>& begin,
                   const std::function<bool(const CEventLogEntry&)>& write);

/// Finishes the console's output and tells the exit status of a command that read `allRead`.
int FinishOutput(BufferedWriter& out, bool allRead, Console& console);

}  // namespace qvl

#endif  // QVL_TOOLS_QVLOG_COMMANDS_H_
