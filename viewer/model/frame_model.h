#ifndef QVL_VIEWER_MODEL_FRAME_MODEL_H_
#define QVL_VIEWER_MODEL_FRAME_MODEL_H_

#include <cstdint>
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
  /// At the end, while the controls still exist: closes the machine and remembers everything.
  void Stop();

  // Machines.

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

  /// A name that was picked from the box or typed and confirmed with Enter. The machine that is
  /// open already stays as it is.
  void ChooseMachine(std::string_view name);

  // Files.

  /// Closes the machine that is open and shows a log file; for the open dialog, recent files,
  /// dropped files and the command line.
  bool OpenLogFile(const std::string& path);

  // Commands.

  bool IsEnabled(Command command) const;
  /// Does nothing for a command that is not enabled.
  void Execute(Command command);

  /// The entries of a stretch of update times alone; nothing for all times.
  void FilterByTime(const std::optional<TimeRange>& range);

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
  void ResetFrame();
  void ShowMachines();
  void AskLogFile();
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
};

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_FRAME_MODEL_H_
