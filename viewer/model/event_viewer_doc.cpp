#include "viewer/model/event_viewer_doc.h"

#include <new>
#include <utility>

#include "entries/severity.h"
#include "texts/filled_text.h"
#include "viewer/model/maintenance_note.h"

namespace qvl {
namespace {

// Room for the name of the user who clears a log, its terminating zero included.
constexpr std::size_t kUserNameSize = 32;

}  // namespace

void CEventViewerDoc::SetViewsEnabled(bool enabled) {
  if (view_ != nullptr) view_->SetEnabled(enabled);
}

void CEventViewerDoc::UpdateViews() {
  list_.Refill(environment_.clock.GetNow());
  if (view_ != nullptr) view_->OnUpdate();
}

void CEventViewerDoc::DeleteContents() {
  SetViewsEnabled(false);
  entries_.Clear();
  UpdateViews();
}

// Reads into a list of its own: windows are painted meanwhile, and ask for the document's.
CEventViewerDoc::ReadOutcome CEventViewerDoc::ReadMachine() {
  ReadOutcome outcome;
  ProgressWindow& progress = environment_.progress;
  environment_.work.Run([this, &outcome, &progress] {
    try {
      outcome.walk = WalkLog(environment_.client, [&outcome, &progress](const RawLogEntry& raw) {
        outcome.entries.Append(raw);
        progress.SetEntriesRead(outcome.entries.size());
        return !progress.CancelRequested();
      });
    } catch (const std::bad_alloc&) {
      outcome.outOfMemory = true;
    }
  });
  return outcome;
}

// A later read that failed is not told: users know a short log from the entries it has.
void CEventViewerDoc::TellEarlyEnd(const ReadOutcome& outcome) {
  if (outcome.outOfMemory) ShowResourceMessage(environment_.messages, StringId::kOutOfMemory);
  if (outcome.walk.end == WalkEnd::kNumberFellBack) {
    ShowTextMessage(environment_.messages, FilledText(StringId::kBatchNumberFellBack,
                                                      {std::to_string(outcome.walk.delivered),
                                                       std::to_string(outcome.walk.asked)}));
  }
}

bool CEventViewerDoc::LoadFromMachine(bool keepFilter) {
  if (!keepFilter) list_.Reset();
  ShownProgress progress(environment_.progress, FilledText(StringId::kProgressLoading), true);
  entries_.Clear();
  UpdateViews();
  ReadOutcome outcome = ReadMachine();
  if (outcome.walk.end == WalkEnd::kFirstReadFailed) {
    progress.Close();
    DeleteContents();
    ShowStatusMessage(environment_.messages, outcome.walk.status);
    return false;
  }
  entries_ = std::exchange(outcome.entries, EntryList());
  UpdateViews();
  progress.Close();
  SetViewsEnabled(true);
  TellEarlyEnd(outcome);
  return true;
}

std::uint8_t CEventViewerDoc::ClearMachineLog() {
  ShownProgress progress(environment_.progress, FilledText(StringId::kProgressClearing));
  std::string user = "<UNKNOWN USER>";
  environment_.userName(kUserNameSize, user);
  RemoteStatus status = kRemoteOk;
  std::uint8_t cleared = 0;
  environment_.work.Run([this, &user, &status, &cleared] {
    status = environment_.client.ClearLog(1, ToRemoteText(user), cleared);
  });
  progress.Close();
  if (status == kRemoteOk) return cleared;
  ShowStatusMessage(environment_.messages, status);
  return 0;
}

void CEventViewerDoc::ClearCommand() {
  if (!environment_.dialogs.ConfirmClear()) return;
  if (ClearMachineLog() != 0) {
    LoadFromMachine(false);
  } else {
    ShowResourceMessage(environment_.messages, StringId::kClearFailed);
  }
}

bool CEventViewerDoc::MarkSelectedRepaired(ListControl& control) {
  ShownProgress progress(environment_.progress, FilledText(StringId::kProgressMarking));
  bool skipped = false;
  bool failed = false;
  for (std::size_t row = control.NextSelectedRow(0); row != ListControl::kNoRow;
       row = control.NextSelectedRow(row + 1)) {
    const MarkResult result = MarkOneRepaired(list_.EntryIndexAt(row));
    if (result == MarkResult::kDone) control.RedrawRow(row);
    skipped = skipped || result == MarkResult::kNotEligible;
    failed = failed || result == MarkResult::kFailed;
  }
  progress.Close();
  if (skipped) ShowResourceMessage(environment_.messages, StringId::kNotMarked);
  if (failed) ShowResourceMessage(environment_.messages, StringId::kMarkFailed);
  return true;
}

MarkResult CEventViewerDoc::MarkOneRepaired(EntryIndex index) {
  const CEventLogEntry& entry = entries_[index];
  if (entry.GetSeverity() < kLowestRepairable) return MarkResult::kNotEligible;
  const std::uint32_t number = entry.GetEntryNumber();
  bool marked = false;
  std::optional<RawLogEntry> readBack;
  environment_.work.Run([this, number, &marked, &readBack] {
    std::uint8_t status = 0;
    marked = environment_.client.MarkRepaired(number, status) == kRemoteOk && status == 0;
    if (!marked) return;
    std::int32_t count = 0;
    RawLogEntry raw{};
    const bool read =
        environment_.client.ReadEntry(number, 0, status, count, raw) == kRemoteOk && status == 0;
    if (read) readBack = raw;
  });
  if (!marked) return MarkResult::kFailed;
  if (readBack) entries_.Replace(index, *readBack);
  return MarkResult::kDone;
}

void CEventViewerDoc::AddMaintenanceNote() {
  const std::optional<std::string> typed = environment_.dialogs.AskMaintenanceNote();
  if (!typed) return;
  const RemoteText note = ToRemoteText(MaintenanceNoteLine(*typed));
  RemoteStatus status = kRemoteOk;
  std::uint8_t written = 0;
  environment_.work.Run([this, &note, &status, &written] {
    std::int32_t result = 0;
    status = environment_.client.WriteMaintenanceNote(note, written, result);
  });
  if (status != kRemoteOk) {
    ShowStatusMessage(environment_.messages, status);
    return;
  }
  // Told for a nonzero answer, though that means success to the service: users know the message.
  if (written != 0) ShowResourceMessage(environment_.messages, StringId::kNoteFailed);
  LoadFromMachine(false);
}

}  // namespace qvl
