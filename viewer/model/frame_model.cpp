#include "viewer/model/frame_model.h"

#include <new>

#include "access/machine_name.h"
#include "entries/ascii_case.h"
#include "files/unicode_text.h"
#include "texts/filled_text.h"
#include "viewer/model/file_names.h"
#include "viewer/model/viewer_settings.h"

namespace qvl {
void FrameModel::Start() {
  history_.Assign(LoadMachineNames(environment_.settings));
  environment_.machineBox.SetNames(history_.names());
  environment_.window.ShowRecentFiles(document_.recentFiles().paths());
  document_.list().SetFilter(LoadFilterChoices(environment_.settings));
  environment_.window.SetCaption(FilledText(StringId::kApplicationTitle));
  UpdateControls();
}

void FrameModel::OnShow() {
  if (wasShown_) return;
  wasShown_ = true;
  MainWindow& window = environment_.window;
  window.SetPlacement(
      LoadPlacement(environment_.settings, window.GetPlacement(), window.GetWorkArea()));
}

void FrameModel::Remember() {
  SaveMachineNames(environment_.settings, history_.names());
  SavePlacement(environment_.settings, environment_.window.GetPlacement());
  SaveFilterChoices(environment_.settings, document_.list().filter());
  view_.Destroy();
  environment_.settings.Synchronise();
}

void FrameModel::Stop() {
  isOperating_ = true;
  Remember();
  environment_.work.Run([this] { environment_.client.Disconnect(); });
}

bool FrameModel::RunAlone(const std::function<void()>& operation) {
  if (isOperating_ || isPreviewShown_) return false;
  isOperating_ = true;
  view_.StopSearch();
  environment_.window.ShowSearchAnswer({});  // it was of rows that may change now
  try {
    operation();
  } catch (const std::bad_alloc&) {
    TellOutOfMemory();
  }
  isOperating_ = false;
  asksToClear_ = false;
  return true;
}

// What failed may have left fewer rows than the list shows, or a machine half opened.
void FrameModel::TellOutOfMemory() {
  if (environment_.list.RowCount() != document_.list().rowCount()) view_.OnUpdate();
  if (!machine_.empty()) isBusy_ = false;
  UpdateControls();
  ShowResourceMessage(environment_.messages, StringId::kNotEnoughMemory);
}

std::string FrameModel::Normalised(std::string_view name) const {
  return NormaliseMachineName(name, environment_.computerName());
}

void FrameModel::ResetFrame() {
  document_.DeleteContents();
  openLogFile_.clear();
  UpdateControls();
  environment_.window.SetCaption(FilledText(StringId::kApplicationTitle));
}

void FrameModel::EnterMachine(const std::string& name) {
  machine_ = name;
  history_.Add(machine_);
  environment_.machineBox.SetNames(history_.names());
  environment_.machineBox.Select(0);
  environment_.window.SetCaption(FilledText(StringId::kApplicationTitle) + " - " + machine_);
}

// Connects to a machine, makes it the one that is open, and looks for its log.
bool FrameModel::ConnectTo(const std::string& name) {
  ShownProgress progress(environment_.progress, FilledText(StringId::kProgressConnecting, {name}));
  RemoteStatus status = kRemoteOk;
  std::int32_t isAdministrator = 0;
  environment_.work.Run([this, &name, &status, &isAdministrator] {
    status = environment_.client.Connect(name, isAdministrator);
  });
  std::uint8_t hasLog = 0;
  if (status == kRemoteOk) {
    isAdministrator_ = isAdministrator;
    EnterMachine(name);
    environment_.work.Run(
        [this, &status, &hasLog] { status = environment_.client.IsLogPresent(hasLog); });
    UpdateControls();
  }
  progress.Close();
  if (status != kRemoteOk) {
    ShowStatusMessage(environment_.messages, status);
    return false;
  }
  if (hasLog == 0) ShowResourceMessage(environment_.messages, StringId::kNoLog);
  return hasLog != 0;
}

bool FrameModel::OpenMachine(std::string_view name) {
  isBusy_ = true;
  const std::string wanted(name);  // may be the box's own text, which is about to change
  ResetFrame();
  if (wanted.empty() || !ConnectTo(wanted)) return false;
  if (isAdministrator_ == 0) {
    ShowResourceMessage(environment_.messages, StringId::kStatusNotAdministrator);
  }
  document_.LoadFromMachine(false);
  isBusy_ = false;
  UpdateControls();
  return true;
}

bool FrameModel::SwitchToMachine(std::string_view name) {
  const std::string wanted(name);  // closing clears the current name and the box
  return CloseMachine() && OpenMachine(wanted);
}

void FrameModel::RefreshMachine() {
  const std::string wanted = Normalised(environment_.machineBox.Text());
  if (!wanted.empty() && !EqualsIgnoringCase(wanted, machine_)) {
    SwitchToMachine(wanted);
    return;
  }
  environment_.machineBox.SetText(machine_);
  const ListPosition position = view_.Position();
  if (document_.LoadFromMachine(true)) {
    view_.Restore(position);
    UpdateControls();
  } else {
    CloseMachine();
  }
}

bool FrameModel::CloseMachine() {
  environment_.work.Run([this] { environment_.client.Disconnect(); });
  isAdministrator_ = 0;
  if (machine_.empty()) {
    environment_.machineBox.SelectNothing();
    document_.SetViewsEnabled(false);
    return true;
  }
  environment_.window.SetCaption(FilledText(StringId::kApplicationTitle));
  isBusy_ = true;
  machine_.clear();
  environment_.machineBox.SelectNothing();
  document_.SetViewsEnabled(false);
  UpdateControls();
  return true;
}

void FrameModel::SwitchToNamed(std::string_view name) {
  const std::string wanted = Normalised(name);
  if (!wanted.empty() && !EqualsIgnoringCase(wanted, machine_)) SwitchToMachine(wanted);
}

void FrameModel::ChooseMachine(std::string_view name) {
  RunAlone([this, name] { SwitchToNamed(name); });
}

// A file in place of a machine leaves nothing connected behind it.
bool FrameModel::ShowLogFile(const std::string& path) {
  if (!machine_.empty()) CloseMachine();
  openLogFile_.clear();
  const bool loaded = document_.Load(path);
  if (loaded) {
    isBusy_ = false;
    openLogFile_ = path;
  }
  UpdateControls();
  return loaded;
}

bool FrameModel::OpenLogFile(const std::string& path) {
  bool loaded = false;
  RunAlone([this, &path, &loaded] { loaded = ShowLogFile(path); });
  return loaded;
}

void FrameModel::OpenRecentFile(std::size_t index) {
  RunAlone([this, index] {
    if (index >= document_.recentFiles().paths().size()) return;
    const std::string path = document_.recentFiles().paths()[index];
    if (!ShowLogFile(path)) document_.ForgetRecentFile(path);
  });
}

std::string FrameModel::LogName() const {
  return machine_.empty() ? Utf8FromText(FileNameOf(openLogFile_)) : machine_;
}

std::string FrameModel::FilterPane() const {
  return FilledText(document_.list().IsFiltered() ? StringId::kFiltered : StringId::kNotFiltered);
}

std::string FrameModel::CountsPane() const {
  return FilledText(StringId::kStatusCounts, {std::to_string(document_.list().rowCount()),
                                              std::to_string(environment_.list.SelectedRowCount()),
                                              std::to_string(document_.entries().size())});
}

}  // namespace qvl
