#include "texts/filled_text.h"
#include "viewer/model/file_names.h"
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
  if (isOperating_ || isPreviewShown_ || !IsEnabled(command)) return;
  // The window goes with it, which it cannot while something runs.
  if (command == Command::kExit) return environment_.window.DoCommand(command);
  RunAlone([this, command] {
    asksToClear_ = command == Command::kClearAll;
    Perform(command);
  });
}

// One of them at a time, too.
void FrameModel::ExecuteBeforeClearing(Command command) {
  const bool isOffered = command == Command::kSaveLogAs || command == Command::kExportLog ||
                         command == Command::kPrint;
  if (!asksToClear_ || !isOffered || !IsEnabled(command)) return;
  asksToClear_ = false;
  Perform(command);
  asksToClear_ = true;
}

void FrameModel::Perform(Command command) {
  switch (command) {
    case Command::kBrowse: {
      const std::optional<std::string> name = environment_.dialogs.AskMachine();
      if (name) SwitchToNamed(*name);
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
  searchIsTyped_ = false;
  TellSearchEnd(view_.FindAgain(command == Command::kFindNext ? SearchDirection::kForward
                                                              : SearchDirection::kBackward));
}

void FrameModel::AskLogFile() {
  const FileDialogRequest request = LogFileRequest(StringId::kOpenDialogTitle);
  const std::optional<std::string> path = environment_.files.AskOpenPath(request);
  if (path) ShowLogFile(PathToRead(*path, request.defaultExtension));
}

void FrameModel::ClickHeader(Column column) {
  RunAlone([this, column] { view_.OnHeaderClick(column); });
}

void FrameModel::FilterByTime(const std::optional<TimeRange>& range) {
  if (!IsEnabled(Command::kFilter)) return;
  RunAlone([this, &range] { document_.ShowTimeRange(range); });
}

void FrameModel::FindTyped(const std::string& text) {
  RunAlone([this, &text] {
    searchIsTyped_ = true;
    const SearchState state = view_.FindTyped(text);
    if (!text.empty()) TellSearchEnd(state);  // an empty field is no question
  });
}

bool FrameModel::ContinueSearch() {
  if (isOperating_ || !view_.isSearching()) return false;
  const SearchState state = view_.ContinueSearch();
  if (state == SearchState::kNotFound) RunAlone([this, state] { TellSearchEnd(state); });
  return state == SearchState::kSearching;
}

// A typed text is answered beside its field, F3 with a message.
void FrameModel::TellSearchEnd(SearchState state) {
  if (state != SearchState::kNotFound) return;
  const std::string answer = FilledText(StringId::kNotFound, {view_.searchText()});
  if (searchIsTyped_) {
    environment_.window.ShowSearchAnswer(answer);
  } else {
    ShowTextMessage(environment_.messages, answer);
  }
}

}  // namespace qvl
