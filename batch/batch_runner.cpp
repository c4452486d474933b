#include "batch/batch_runner.h"

#include <cstdint>
#include <exception>
#include <new>
#include <string_view>

#include "access/log_walk.h"
#include "access/machine_name.h"
#include "access/status_texts.h"
#include "batch/output_file.h"
#include "batch/report_printing.h"
#include "batch/run_log.h"
#include "batch/switches.h"
#include "entries/entry_list.h"
#include "texts/filled_text.h"
#include "texts/strings.h"

namespace qvl {
namespace {

constexpr std::string_view kDefaultRunLog = "zlkqvxv.log";
constexpr std::string_view kUnknownUser = "<UNKNOWN USER>";
constexpr std::uint8_t kClearFlag = 1;

// ERROR_OUTOFMEMORY: there is a text for it.
constexpr RemoteStatus kOutOfMemory = 14;

// One run, from the first line of the run log to its last.
class BatchRun {
 public:
  BatchRun(const BatchEnvironment& environment, const std::vector<std::string>& arguments)
      : environment_(environment), arguments_(arguments), log_(environment.lineEnd) {}

  int Run() {
    std::string runLogName;
    ScanNames(runLogName);
    if (!log_.Open(runLogName).ok()) return kBatchExitNoRunLog;
    int status = kBatchExitDidNothing;
    try {
      status = Work();
    } catch (const std::exception&) {
      // Only memory can run out. What was written so far stands.
      status = reading_ ? kBatchExitSwitchFailed : kBatchExitDidNothing;
    }
    if (!machine_.empty()) environment_.client.Disconnect();
    log_.Close();
    return status == kBatchExitFinished && !log_.complete() ? kBatchExitSwitchFailed : status;
  }

 private:
  // The last /f: and the last /m: win, whatever else the arguments say.
  void ScanNames(std::string& runLogName) {
    runLogName = kDefaultRunLog;
    std::string_view machine = environment_.computerName;
    for (const std::string& argument : arguments_) {
      const Switch& found = switches_.emplace_back(ParseSwitch(argument));
      if (found.kind == SwitchKind::kRunLog) runLogName = WithExtension(found.value, ".log");
      if (found.kind == SwitchKind::kMachine) machine = found.value;
    }
    machine_ = NormaliseMachineName(machine, environment_.computerName);
  }

  int Work() {
    WriteHead();
    if (!CheckArguments() || !Connect()) {
      log_.WriteMessage(StringId::kBatchDidNothing);
      return kBatchExitDidNothing;
    }
    reading_ = true;
    if (!ReadEntries()) return kBatchExitDidNothing;
    WriteOutputs();
    for (const Switch& each : switches_) {
      if (each.kind == SwitchKind::kClear) Clear();
    }
    for (const Switch& each : switches_) {
      if (each.kind == SwitchKind::kNote) WriteNote(each.value);
    }
    entries_.Clear();
    log_.WriteMessage(StringId::kBatchFinished);
    return failed_ ? kBatchExitSwitchFailed : kBatchExitFinished;
  }

  void WriteHead() {
    log_.Write(FilledText(StringId::kBatchHead, {GetString(StringId::kReportTitle), machine_}));
    log_.Write(LongDateAndTime(environment_.now()) + "\n");
    log_.WriteMessage(StringId::kBatchExecuting, {environment_.commandLine});
  }

  bool CheckArguments() {
    bool understood = true;
    for (std::size_t i = 0; i < switches_.size(); ++i) {
      if (switches_[i].kind != SwitchKind::kUnknown) continue;
      log_.WriteMessage(StringId::kBatchUnknownCommand, {arguments_[i]});
      understood = false;
    }
    return understood;
  }

  bool Connect() {
    if (machine_.empty()) {
      log_.WriteMessage(StringId::kBatchNoMachine);
      return false;
    }
    log_.WriteMessage(StringId::kBatchConnecting, {machine_});
    std::int32_t isAdministrator = 0;
    if (!Succeeds(environment_.client.Connect(machine_, isAdministrator))) return false;
    log_.WriteMessage(StringId::kBatchConnected, {machine_});
    // Also for switches that change nothing: the service gives its log to administrators.
    if (isAdministrator == 0) {
      log_.WriteMessage(StringId::kBatchNotAdministrator);
      return false;
    }
    std::uint8_t hasLog = 0;
    if (!Succeeds(environment_.client.IsLogPresent(hasLog))) return false;
    if (hasLog == 0) log_.WriteMessage(StringId::kBatchNoLog);
    return hasLog != 0;
  }

  // False when there is nothing to work on; the run then ends without a further word.
  bool ReadEntries() {
    WalkResult walk;
    try {
      walk = WalkLog(environment_.client, [this](const RawLogEntry& record) {
        entries_.Append(record);
        return true;
      });
    } catch (const std::bad_alloc&) {
      walk = {.end = WalkEnd::kStopped, .status = kOutOfMemory};
    }
    if (walk.end == WalkEnd::kFirstReadFailed) return Succeeds(walk.status);
    if (walk.end != WalkEnd::kEndOfLog) failed_ = true;
    if (walk.end == WalkEnd::kNumberFellBack) {
      log_.WriteMessage(StringId::kBatchNumberFellBack,
                        {std::to_string(walk.delivered), std::to_string(walk.asked)});
    }
    if (walk.end == WalkEnd::kStopped) Succeeds(walk.status);
    restUnseen_ = walk.end == WalkEnd::kNumberFellBack || walk.end == WalkEnd::kStopped;
    return true;
  }

  void WriteOutputs() {
    for (const Switch& each : switches_) {
      if (each.kind == SwitchKind::kSave) Save(WithExtension(each.value, ".qvx"));
    }
    for (const Switch& each : switches_) {
      if (each.kind == SwitchKind::kExport) Export(WithExtension(each.value, ".csv"));
    }
    for (const Switch& each : switches_) {
      if (each.kind == SwitchKind::kPrint) Print();
      if (each.kind == SwitchKind::kReport) Report(WithExtension(each.value, ".txt"));
    }
  }

  void Save(const std::string& path) {
    const bool saved = WriteLogOutput(path, entries_) == OutputResult::kWritten;
    Count(saved);
    log_.WriteMessage(saved ? StringId::kBatchSaved : StringId::kBatchSaveFailed, {path});
  }

  void Export(const std::string& path) {
    const bool exported = WriteExportOutput(path, machine_, entries_) == OutputResult::kWritten;
    Count(exported);
    log_.WriteMessage(exported ? StringId::kBatchExported : StringId::kBatchExportFailed, {path});
  }

  void Report(const std::string& path) {
    const OutputResult result =
        WriteReportOutput(path, machine_, environment_.lineEnd, environment_.now(), entries_);
    Count(result == OutputResult::kWritten);
    StringId text = StringId::kBatchReportWritten;
    if (result == OutputResult::kNotOpened) text = StringId::kBatchReportOpenFailed;
    if (result == OutputResult::kNotWritten) text = StringId::kBatchReportWriteFailed;
    log_.WriteMessage(text, {path});
  }

  void Print() {
    StringId text = StringId::kBatchPrintFailed;
    try {
      const std::unique_ptr<Printer> printer = environment_.openDefaultPrinter();
      if (printer == nullptr) {
        text = StringId::kBatchNoPrinter;
      } else if (PrintReport(*printer, machine_, entries_, environment_.now())) {
        text = StringId::kBatchPrinted;
      }
    } catch (const std::exception&) {
      text = StringId::kBatchPrintFailed;
    }
    Count(text == StringId::kBatchPrinted);
    log_.WriteMessage(text);
  }

  void Count(bool succeeded) {
    ++outputAttempts_;
    if (succeeded) outputSucceeded_ = true;
    Note(succeeded);
  }

  void Clear() {
    const bool copied = outputAttempts_ == 0 || outputSucceeded_;
    // Who asked for a copy first means one of the whole log.
    const bool whole = outputAttempts_ == 0 || !restUnseen_;
    if (!copied || !whole) {
      log_.WriteMessage(copied ? StringId::kBatchClearOfUnread : StringId::kBatchClearRefused);
      Note(false);
      return;
    }
    std::string user = environment_.userName();
    if (user.empty()) user = kUnknownUser;
    std::uint8_t cleared = 0;
    if (!Succeeds(environment_.client.ClearLog(kClearFlag, ToRemoteText(user), cleared))) return;
    log_.WriteMessage(cleared != 0 ? StringId::kBatchCleared : StringId::kBatchClearFailed);
    Note(cleared != 0);
  }

  void WriteNote(std::string_view text) {
    if (text.empty() || text.size() >= kRemoteTextSize) {
      log_.WriteMessage(text.empty() ? StringId::kBatchNoteEmpty : StringId::kBatchNoteTooLong);
      Note(false);
      return;
    }
    std::uint8_t written = 0;
    std::int32_t noteResult = 0;
    if (!Succeeds(
            environment_.client.WriteMaintenanceNote(ToRemoteText(text), written, noteResult))) {
      return;
    }
    log_.WriteMessage(written != 0 ? StringId::kBatchNoteWritten : StringId::kBatchNoteFailed);
    Note(written != 0);
  }

  // Writes what a status other than success says.
  bool Succeeds(RemoteStatus status) {
    if (status == kRemoteOk) return true;
    log_.WriteMessage(StatusText(status, StatusReader::kBatch));
    failed_ = true;
    return false;
  }

  void Note(bool succeeded) {
    if (!succeeded) failed_ = true;
  }

  const BatchEnvironment& environment_;
  const std::vector<std::string>& arguments_;
  std::vector<Switch> switches_;
  std::string machine_;
  RunLog log_;
  EntryList entries_;
  std::uint32_t outputAttempts_ = 0;
  bool outputSucceeded_ = false;
  bool restUnseen_ = false;
  bool reading_ = false;
  bool failed_ = false;
};

}  // namespace

bool IsBatchCommandLine(const std::vector<std::string>& arguments) {
  return !arguments.empty() && !arguments.front().empty() &&
         BeginsSwitch(arguments.front().front());
}

int BatchRunner::Run(const std::vector<std::string>& arguments) {
  try {
    return BatchRun(environment_, arguments).Run();
  } catch (const std::exception&) {
    return kBatchExitNoRunLog;  // not even memory for its name
  }
}

}  // namespace qvl
