#ifndef QVL_VIEWER_MODEL_FRAME_MODEL_H_
#define QVL_VIEWER_MODEL_FRAME_MODEL_H_

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "viewer/model/commands.h"
#include "viewer/model/entry_list_view.h"
#include "viewer/model/event_viewer_doc.h"
#include "viewer/model/machine_history.h"
#include "viewer/model/viewer_environment.h"
#include "viewer/model/wall_minute.h"

namespace qvl {

/// The main window without its toolkit: which machine or file is open, what can be done, and what
/// each command does. Handlers of the window are one call to this.
///
/// What the user starts runs alone: while one thing waits for a machine or for the user's answer,
/// the next one is refused without a word. Dialogs alone do not see to that: dropped files and the
/// keys of other windows reach the program in spite of them. When memory runs out, the user is
/// told, and the window stays.
class FrameModel {
 public:
  FrameModel(const ViewerEnvironment& environment, CEventViewerDoc& document, EntryListView& view)
      : environment_(environment), document_(document), view_(view) {}
  FrameModel(const FrameModel&) = delete;
  FrameModel& operator=(const FrameModel&) = delete;

  /// At the start, when the controls exist: what is remembered of machines and filter.
  void Start();
  /// The first time the window is shown it takes the place that is remembered; later calls do
  /// nothing.
  void OnShow();
  /// Remembers machines, place, filter and widths, while the controls still exist.
  void Remember();
  /// At the end: the same, then closes the machine. Nothing can be started any more.
  void Stop();

  /// True while something that the user started has not ended; the window cannot go then.
  bool isOperating() const { return isOperating_; }
  /// Nothing starts while the pages are shown: they are made from the list as it is.
  void SetPreviewShown(bool shown) { isPreviewShown_ = shown; }

  // Machines. These are the steps, and run within what the user started.

  /// Opens a machine, named as `NormaliseMachineName` gives it, and reads its log. The caller has
  /// closed the one before. Every failure was told when this returns.
  /// Returns true when the machine is open, also when its log could not be read.
  bool OpenMachine(std::string_view name);
  /// Closes what is open, then the same.
  bool SwitchToMachine(std::string_view name);
  /// Reads the log again; filter, sort, selection and scroll position stay. Opens another machine
  /// when the box names one.
  void RefreshMachine();
  /// Always true.
  bool CloseMachine();

  // What the user starts.

  /// A name that was picked from the box or typed and confirmed with Enter. The machine that is
  /// open already stays as it is.
  void ChooseMachine(std::string_view name);

  /// Closes the machine that is open and shows a log file: a dropped one, or the command line's.
  /// Returns false when it is none, after telling so, and when something else runs.
  bool OpenLogFile(const std::string& path);
  /// A file of the list of recent ones; one that cannot be opened leaves the list.
  void OpenRecentFile(std::size_t index);

  bool IsEnabled(Command command) const;
  /// Does nothing for a command that is not enabled.
  void Execute(Command command);
  /// Saving, exporting or printing out of the dialog that asks whether to clear the log.
  void ExecuteBeforeClearing(Command command);

  /// Orders the list by a column.
  void ClickHeader(Column column);
  /// The entries of a stretch of update times alone; nothing for all times.
  void FilterByTime(const std::optional<TimeRange>& range);

  /// Searches for a text while it is typed.
  void FindTyped(const std::string& text);
  /// A slice of the search that is going on, when the window has nothing else to do. Returns true
  /// while there is more to search.
  bool ContinueSearch();

  // What the window shows.

  const std::string& machine() const { return machine_; }
  const std::string& openLogFile() const { return openLogFile_; }
  bool isAdministrator() const { return isAdministrator_ != 0; }
  bool isBusy() const { return isBusy_; }

  /// The log's name in the header of printed pages: the machine's, else the file's.
  std::string LogName() const;
  /// "Filtered" or "Not Filtered".
  std::string FilterPane() const;
  /// How many entries are shown and selected, and how many there are.
  std::string CountsPane() const;

 private:
  bool RunAlone(const std::function<void()>& operation);
  void TellOutOfMemory();
  void ResetFrame();
  bool ConnectTo(const std::string& name);
  void EnterMachine(const std::string& name);
  void SwitchToNamed(std::string_view name);
  bool ShowLogFile(const std::string& path);
  void AskLogFile();
  void Perform(Command command);
  void TellSearchEnd(SearchState state);
  void ExecuteDocumentCommand(Command command);
  void ExecuteViewCommand(Command command);
  std::string Normalised(std::string_view name) const;
  void UpdateControls() { environment_.window.UpdateControls(); }

  const ViewerEnvironment& environment_;
  CEventViewerDoc& document_;
  EntryListView& view_;
  MachineHistory history_;
  std::string machine_;
  std::string openLogFile_;
  std::int32_t isAdministrator_ = 0;
  bool isBusy_ = false;
  bool wasShown_ = false;
  bool isOperating_ = false;
  bool isPreviewShown_ = false;
  bool asksToClear_ = false;
  bool searchIsTyped_ = false;
};

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_FRAME_MODEL_H_
