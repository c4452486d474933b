#ifndef QVL_VIEWER_MODEL_EVENT_VIEWER_DOC_H_
#define QVL_VIEWER_MODEL_EVENT_VIEWER_DOC_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "access/log_walk.h"
#include "entries/entry_list.h"
#include "platform/status.h"
#include "viewer/model/document_view.h"
#include "viewer/model/list_model.h"
#include "viewer/model/recent_files.h"
#include "viewer/model/viewer_environment.h"

namespace qvl {

enum class MarkResult : std::uint8_t { kDone = 0, kNotEligible = 1, kFailed = 2 };

/// The log that the viewer shows: its entries, its filter and sort, and what can be done with it.
/// Whatever fails is told to the user here, in the order that users know; a caller only learns how
/// it ended.
class CEventViewerDoc {
 public:
  explicit CEventViewerDoc(const ViewerEnvironment& environment)
      : environment_(environment), list_(entries_), recentFiles_(environment.settings) {}
  CEventViewerDoc(const CEventViewerDoc&) = delete;
  CEventViewerDoc& operator=(const CEventViewerDoc&) = delete;

  /// view  outlives the document; null to take it away.
  void AttachView(DocumentView* view) { view_ = view; }

  const EntryList& entries() const { return entries_; }
  ListModel& list() { return list_; }
  const ListModel& list() const { return list_; }

  /// Disables the view and deletes every entry.
  void DeleteContents();
  void SetViewsEnabled(bool enabled);

  // On the open machine.

  /// Reads the whole log, after resetting filter and sort unless `keepFilter`. What was read
  /// before the user cancelled, or before a later read failed, is kept.
  /// Returns false when nothing could be read, after telling why.
  bool LoadFromMachine(bool keepFilter);

  /// Nonzero when the service cleared the log. Tells a failed call, but not a zero answer.
  std::uint8_t ClearMachineLog();

  /// Asks, clears, and reads the log again. A failed call makes two messages, one by its status
  /// and one that the clearing failed: users have always seen both.
  void ClearCommand();

  /// Marks the control's selected rows; their entries are replaced in place. Always true.
  bool MarkSelectedRepaired(ListControl& control);
  MarkResult MarkOneRepaired(EntryIndex index);

  void AddMaintenanceNote();

  // Log files. One that was opened or saved heads the list of recent files.

  const RecentFiles& recentFiles() const { return recentFiles_; }
  /// A file of the list that cannot be opened any more.
  void ForgetRecentFile(const std::string& path);

  /// Shows a log file in place of what is shown now. Returns false when it is none, after telling
  /// so, with the document empty. A file that cannot be read to its end shows what came before.
  bool Load(const std::string& path);

  /// Writes every entry over what `path` holds without truncating it.
  Status OnSaveDocument(const std::string& path);

  /// Asks for a path and saves. Where the end of a longer file would stay behind the saved entries,
  /// asks whether to cut it off. The window's caption stays.
  void SaveAsCommand();

  /// Asks for a path and exports every entry. Tells nothing, success or failure.
  /// machine  the name in the title line; empty when none is open.
  void ExportCommand(std::string_view machine);

  // Filter.

  /// Asks for the filter and applies it. Returns 1 when the user confirmed, else 0.
  int FilterCommand();
  /// Every entry is shown again.
  void ShowAllEntries();
  /// Shows the entries of a stretch of time; nothing for all times.
  void ShowTimeRange(const std::optional<TimeRange>& range);

  /// Fills the list anew and tells the view.
  void UpdateViews();

 private:
  struct ReadOutcome {
    WalkResult walk;
    EntryList entries;
    bool outOfMemory = false;
  };
  ReadOutcome ReadMachine();
  void TellEarlyEnd(const ReadOutcome& outcome);
  std::uint64_t EntriesLeftBehind(const std::string& path) const;
  void NoteRecentFile(const std::string& path);

  const ViewerEnvironment& environment_;
  EntryList entries_;
  ListModel list_;
  RecentFiles recentFiles_;
  DocumentView* view_ = nullptr;
};

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_EVENT_VIEWER_DOC_H_
