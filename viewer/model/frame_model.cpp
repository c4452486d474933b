#include "viewer/model/frame_model.h"

#include "access/machine_name.h"
#include "entries/ascii_case.h"
#include "files/unicode_text.h"
#include "texts/filled_text.h"
#include "viewer/model/page_printout.h"
#include "viewer/model/viewer_settings.h"

namespace qvl {
void FrameModel::Start() {
  history_.Assign(LoadMachineNames(environment_.settings));
  environment_.machineBox.SetNames(history_.names());
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

void FrameModel::Stop() {
  SaveMachineNames(environment_.settings, history_.names());
  SavePlacement(environment_.settings, environment_.window.GetPlacement());
  SaveFilterChoices(environment_.settings, document_.list().filter());
  view_.Destroy();
  environment_.client.Disconnect();
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

void FrameModel::ShowMachines() {
  history_.Add(machine_);
  environment_.machineBox.SetNames(history_.names());
  environment_.machineBox.Select(0);
  environment_.window.SetCaption(FilledText(StringId::kApplicationTitle) + " - " + machine_);
}

bool FrameModel::OpenMachine(std::string_view name) {
  isBusy_ = true;
  const std::string wanted(name);  // may be the box's own text, which is about to change
  ResetFrame();
  if (wanted.empty()) return false;
  ShownProgress progress(environment_.progress,
                         FilledText(StringId::kProgressConnecting, {wanted}));
  RemoteStatus status = kRemoteOk;
  std::int32_t isAdministrator = 0;
  environment_.work.Run([this, &wanted, &status, &isAdministrator] {
    status = environment_.client.Connect(wanted, isAdministrator);
  });
  if (status != kRemoteOk) {
    progress.Close();
    ShowStatusMessage(environment_.messages, status);
    return false;
  }
  isAdministrator_ = isAdministrator;
  machine_ = wanted;
  ShowMachines();
  std::uint8_t hasLog = 0;
  environment_.work.Run(
      [this, &status, &hasLog] { status = environment_.client.IsLogPresent(hasLog); });
  progress.Close();
  UpdateControls();
  if (status != kRemoteOk) {
    ShowStatusMessage(environment_.messages, status);
    return false;
  }
  if (hasLog == 0) {
    ShowResourceMessage(environment_.messages, StringId::kNoLog);
    return false;
  }
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

void FrameModel::ChooseMachine(std::string_view name) {
  const std::string wanted = Normalised(name);
  if (!wanted.empty() && !EqualsIgnoringCase(wanted, machine_)) SwitchToMachine(wanted);
}

// A file in place of a machine leaves nothing connected behind it.
bool FrameModel::OpenLogFile(const std::string& path) {
  if (!machine_.empty()) CloseMachine();
  openLogFile_.clear();
  const bool loaded = document_.Load(path);
  if (loaded) {
    isBusy_ = false;
    openLogFile_ = path;
    environment_.window.NoteRecentFile(path);
  }
  UpdateControls();
  return loaded;
}

void FrameModel::FilterByTime(const std::optional<TimeRange>& range) {
  if (IsEnabled(Command::kFilter)) document_.ShowTimeRange(range);
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
