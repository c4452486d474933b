#include <new>

#include "files/csv_export.h"
#include "files/log_file.h"
#include "files/unicode_text.h"
#include "platform/exclusive_file.h"
#include "texts/filled_text.h"
#include "viewer/model/event_viewer_doc.h"
#include "viewer/model/file_names.h"

namespace qvl {
namespace {

LogFileResult LoadWhatFits(const std::string& path, EntryList& entries, bool& outOfMemory) {
  try {
    return LoadLogFile(path, entries);
  } catch (const std::bad_alloc&) {
    outOfMemory = true;
    return {};
  }
}

}  // namespace

void CEventViewerDoc::NoteRecentFile(const std::string& path) {
  recentFiles_.Add(path);
  environment_.window.ShowRecentFiles(recentFiles_.paths());
}

void CEventViewerDoc::ForgetRecentFile(const std::string& path) {
  recentFiles_.Remove(path);
  environment_.window.ShowRecentFiles(recentFiles_.paths());
}

bool CEventViewerDoc::Load(const std::string& path) {
  list_.Reset();
  DeleteContents();
  bool outOfMemory = false;
  const LogFileResult result = LoadWhatFits(path, entries_, outOfMemory);
  if (result.error == LogFileError::kNotALog) {
    ShowResourceMessage(environment_.messages, StringId::kNotALogFile);
    return false;
  }
  if (result.error == LogFileError::kCannotOpen || (!result.ok() && entries_.empty())) {
    ShowResourceMessage(environment_.messages, StringId::kInvalidFileName);
    return false;
  }
  NoteRecentFile(path);
  UpdateViews();
  SetViewsEnabled(true);
  if (outOfMemory) ShowResourceMessage(environment_.messages, StringId::kOutOfMemory);
  if (!result.ok()) {
    ShowTextMessage(environment_.messages,
                    FilledText(StringId::kReadEndedInFile, {Utf8FromText(result.message)}));
  }
  return true;
}

Status CEventViewerDoc::OnSaveDocument(const std::string& path) {
  return SaveLogFile(path, entries_);
}

// A file that cannot be looked at is left to the saving to fail on.
std::uint64_t CEventViewerDoc::EntriesLeftBehind(const std::string& path) const {
  ExclusiveFile file;
  std::uint64_t size = 0;
  if (!file.Open(path, ExclusiveFile::Mode::kRead).ok() || !file.Size(size).ok()) return 0;
  if (size < kLogFileHeaderSize) return 0;
  const std::uint64_t there = (size - kLogFileHeaderSize) / kLogFileRecordSize;
  return there > entries_.size() ? there - entries_.size() : 0;
}

void CEventViewerDoc::SaveAsCommand() {
  const FileDialogRequest request = LogFileRequest(StringId::kSaveDialogTitle);
  const std::optional<std::string> chosen = environment_.files.AskSavePath(request);
  if (!chosen) return;
  const std::string path = PathWithExtension(*chosen, request.defaultExtension);
  MessageAnswer answer = MessageAnswer::kNo;
  const std::uint64_t left = EntriesLeftBehind(path);
  if (left > 0) {
    answer = environment_.messages.Show(
        {.caption = FilledText(StringId::kApplicationTitle),
         .text = FilledText(StringId::kTailRemains,
                            {Utf8FromText(FileNameOf(path)), std::to_string(left)}),
         .icon = MessageIcon::kQuestion,
         .yesLabel = FilledText(StringId::kReplaceFile),
         .noLabel = FilledText(StringId::kSaveOver)});
  }
  if (answer != MessageAnswer::kYes && answer != MessageAnswer::kNo) return;
  const std::string caption = environment_.window.GetCaption();
  const Status status =
      answer == MessageAnswer::kYes ? SaveLogFileAlone(path, entries_) : OnSaveDocument(path);
  if (status.ok()) NoteRecentFile(path);
  environment_.window.SetCaption(caption);
  if (!status.ok()) {
    ShowTextMessage(environment_.messages,
                    FilledText(StringId::kSaveFailed, {Utf8FromText(status.message())}));
  }
}

void CEventViewerDoc::ExportCommand(std::string_view machine) {
  const FileDialogRequest request = {.title = FilledText(StringId::kExportDialogTitle),
                                     .filter = FilledText(StringId::kExportFileFilter),
                                     .defaultExtension = ".csv"};
  const std::optional<std::string> path = environment_.files.AskSavePath(request);
  if (!path) return;
  static_cast<void>(
      ExportCsvFile(PathWithExtension(*path, request.defaultExtension), machine, entries_));
}

int CEventViewerDoc::FilterCommand() {
  std::optional<FilterChoices> choices = environment_.dialogs.AskFilter(list_.filter());
  if (!choices) return 0;
  // A list of a dialog in which nothing is selected restricts nothing.
  for (std::string* const choice :
       {&choices->eventClass, &choices->severity, &choices->updateTime, &choices->initialTime}) {
    if (choice->empty()) *choice = GetString(StringId::kAll);
  }
  list_.SetFilter(std::move(*choices));
  UpdateViews();
  return 1;
}

void CEventViewerDoc::ShowAllEntries() {
  list_.SetFilter(FilterChoices());
  list_.SetTimeRange(std::nullopt);
  UpdateViews();
}

void CEventViewerDoc::ShowTimeRange(const std::optional<TimeRange>& range) {
  list_.SetTimeRange(range);
  UpdateViews();
}

}  // namespace qvl
