#include "texts/filled_text.h"
#include "viewer/model/frame_model.h"

namespace qvl {

bool FrameModel::IsEnabled(Command command) const {
  switch (command) {
    case Command::kRefresh:
      return !machine_.empty() && !isBusy_;
    case Command::kSaveLogAs:
    case Command::kExportLog:
    case Command::kPrintPreview:
    case Command::kPrint:
      return !isBusy_;
    case Command::kClearAll:
    case Command::kAddNote:
      return isAdministrator();
    case Command::kMarkRepaired:
      return isAdministrator() && environment_.list.SelectedRowCount() > 0;
    case Command::kFilter:
    case Command::kAllEntries:
      return !isBusy_ && !document_.entries().empty();
    case Command::kCopy:
      return environment_.list.SelectedRowCount() > 0;
    case Command::kSelectAll:
    case Command::kFind:
    case Command::kFindNext:
    case Command::kFindPrevious:
      return document_.list().rowCount() > 0;
    default:
      return true;
  }
}

void FrameModel::Execute(Command command) {
  if (!IsEnabled(command)) return;
  switch (command) {
    case Command::kBrowse: {
      const std::optional<std::string> name = environment_.dialogs.AskMachine();
      if (name) ChooseMachine(*name);
      break;
    }
    case Command::kOpenLogFile:
      AskLogFile();
      break;
    case Command::kRefresh:
      RefreshMachine();
      break;
    case Command::kSaveLogAs:
    case Command::kExportLog:
    case Command::kClearAll:
    case Command::kMarkRepaired:
    case Command::kAddNote:
    case Command::kAllEntries:
    case Command::kFilter:
      ExecuteDocumentCommand(command);
      UpdateControls();
      break;
    case Command::kCopy:
    case Command::kSelectAll:
    case Command::kFindNext:
    case Command::kFindPrevious:
      ExecuteViewCommand(command);
      break;
    default:
      environment_.window.DoCommand(command);
      break;
  }
}

void FrameModel::ExecuteDocumentCommand(Command command) {
  switch (command) {
    case Command::kSaveLogAs:
      return document_.SaveAsCommand();
    case Command::kExportLog:
      return document_.ExportCommand(machine_);
    case Command::kClearAll:
      return document_.ClearCommand();
    case Command::kMarkRepaired:
      document_.MarkSelectedRepaired(environment_.list);
      return;
    case Command::kAddNote:
      return document_.AddMaintenanceNote();
    case Command::kAllEntries:
      return document_.ShowAllEntries();
    default:
      document_.FilterCommand();
      return;
  }
}

void FrameModel::ExecuteViewCommand(Command command) {
  if (command == Command::kCopy) return view_.CopySelection();
  if (command == Command::kSelectAll) {
    view_.SelectAll();
    return UpdateControls();
  }
  // F3 before anything was searched for asks for it.
  if (view_.searchText().empty()) return environment_.window.DoCommand(Command::kFind);
  const SearchDirection direction =
      command == Command::kFindNext ? SearchDirection::kForward : SearchDirection::kBackward;
  if (view_.FindAgain(direction)) return;
  ShowTextMessage(environment_.messages, FilledText(StringId::kNotFound, {view_.searchText()}));
}

void FrameModel::AskLogFile() {
  const std::optional<std::string> path =
      environment_.files.AskOpenPath({.title = std::string(GetString(StringId::kOpenDialogTitle)),
                                      .filter = std::string(GetString(StringId::kLogFileFilter)),
                                      .defaultExtension = ".qvx"});
  if (path) OpenLogFile(*path);
}

}  // namespace qvl
