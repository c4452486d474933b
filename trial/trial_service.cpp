#include "trial/trial_service.h"

#include <algorithm>
#include <array>
#include <limits>

namespace qvl {
namespace {

// The run time's own codes; a procedure never returns one.
constexpr RemoteStatus kFirstRuntimeCode = 1700;
constexpr RemoteStatus kLastRuntimeCode = 1999;

CallOutcome Failing(RemoteStatus status) {
  const bool fault = status >= kFirstRuntimeCode && status <= kLastRuntimeCode;
  return {fault ? CallEnd::kFault : CallEnd::kReturned, status};
}

// A text of a call ends at its zero, or where the array leaves room for one.
std::string_view TextOf(const RemoteText& text) {
  const auto end = std::find(text.begin(), text.end() - 1, std::uint8_t{0});
  return {reinterpret_cast<const char*>(text.data()), static_cast<std::size_t>(end - text.begin())};
}

// One line and one word more in the log of calls, whatever a caller sends.
std::string Quoted(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string quoted = "\"";
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0x20 && byte < 0x7f && c != '"') {
      quoted += c;
    } else {
      quoted += {'\\', 'x', kDigits[byte >> 4U], kDigits[byte & 15U]};
    }
  }
  return quoted + '"';
}

std::string HexStatus(RemoteStatus status) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string text = "0x";
  for (int shift = 28; shift >= 0; shift -= 4) text += kDigits[status >> shift & 15U];
  return text;
}

std::string StatusWord(const CallOutcome& outcome) {
  if (outcome.end == CallEnd::kDie) return "died";
  const std::string code =
      outcome.status > 0xFFFF ? HexStatus(outcome.status) : std::to_string(outcome.status);
  return (outcome.end == CallEnd::kFault ? "fault " : "status ") + code;
}

}  // namespace

TrialService::TrialService(LogStore& store, const TrialOptions& options)
    : store_(store), options_(options) {}

TrialService::~TrialService() {
  Stop();
  if (events_.joinable()) events_.join();
}

Status TrialService::Start() {
  if (!options_.callLogPath.empty()) {
    Status status = callLog_.Open(options_.callLogPath, ExclusiveFile::Mode::kAppend);
    if (!status.ok()) return status;
  }
  if (options_.eventEvery.count() > 0) events_ = std::thread([this] { LogEventsUntilStopped(); });
  return Status::Ok();
}

void TrialService::Stop() {
  const std::lock_guard lock(mutex_);
  stopped_ = true;
  stopping_.notify_all();
}

CallOutcome TrialService::QueryAdministratorAccess(const Caller& caller,
                                                   std::int32_t& isAdministrator) {
  const Call call = Begin();
  isAdministrator = call.Works() && !options_.notAdministrator ? 1 : 0;
  return End(call, caller, "QueryAdministratorAccess", std::to_string(isAdministrator));
}

CallOutcome TrialService::ReadLogEntry(const Caller& caller, std::uint32_t entryNumber,
                                       std::uint32_t reserved, std::uint8_t& entryStatus,
                                       std::int32_t& entryCount, RawLogEntry& record) {
  Call call = Begin();
  entryStatus = ENTRY_STATUS_NONE;
  entryCount = 0;
  record = RawLogEntry{};
  const auto failure = options_.failEntries.find(entryNumber);
  if (call.Works() && failure != options_.failEntries.end()) {
    call.outcome = Failing(failure->second);
  }
  std::string answer = "none";
  if (call.Works() && Find(entryNumber, record)) {
    constexpr std::size_t kMost = std::numeric_limits<std::int32_t>::max();
    entryStatus = 0;
    // The log may have been cleared since: an entry is never delivered with a count of 0.
    entryCount = static_cast<std::int32_t>(std::clamp<std::size_t>(store_.size(), 1, kMost));
    answer = "entry " + std::to_string(record.entryNumber) + " of " + std::to_string(entryCount);
  }
  std::string text = "ReadLogEntry " + std::to_string(entryNumber);
  if (reserved != 0) text += " reserved " + std::to_string(reserved);
  return End(call, caller, text, answer);
}

CallOutcome TrialService::RemoteClearLog(const Caller& caller, std::uint8_t clearFlag,
                                         const RemoteText& userName, std::uint8_t& cleared) {
  const Call call = Begin();
  const std::string_view name = TextOf(userName);
  const bool may = call.Works() && MayChange(options_.refuseClear);
  cleared = may && store_.Clear(name).ok() ? 1 : 0;
  return End(call, caller, "RemoteClearLog " + std::to_string(clearFlag) + " " + Quoted(name),
             cleared != 0 ? "cleared" : "not cleared");
}

CallOutcome TrialService::RemoteWriteMaintenanceNote(const Caller& caller, const RemoteText& note,
                                                     std::uint8_t& written,
                                                     std::int32_t& noteResult) {
  const Call call = Begin();
  const std::string_view text = TextOf(note);
  const bool may = call.Works() && MayChange(options_.refuseNote) && !text.empty();
  written = may && store_.WriteNote(text).ok() ? 1 : 0;
  noteResult = 0;
  return End(call, caller, "RemoteWriteMaintenanceNote " + Quoted(text),
             written != 0 ? "written" : "not written");
}

CallOutcome TrialService::Reserved4(const Caller& caller, std::uint8_t& value) {
  const Call call = Begin();
  value = 0;
  return End(call, caller, "Reserved4", "0");
}

CallOutcome TrialService::QueryLogPresent(const Caller& caller, std::uint8_t& hasLog) {
  const Call call = Begin();
  hasLog = call.Works() && !options_.noLog ? 1 : 0;
  return End(call, caller, "QueryLogPresent", std::to_string(hasLog));
}

CallOutcome TrialService::MarkEntryRepaired(const Caller& caller, std::uint32_t entryNumber,
                                            std::uint8_t& repairStatus) {
  const Call call = Begin();
  bool marked = false;
  if (call.Works() && MayChange(options_.refuseRepair) && entryNumber % options_.sparseStep == 0) {
    // A log that cannot be written is told by the status byte, as every other refusal is.
    marked = store_.MarkRepaired(entryNumber / options_.sparseStep, marked).ok() && marked;
  }
  repairStatus = marked ? 0 : ENTRY_STATUS_NONE;
  return End(call, caller, "MarkEntryRepaired " + std::to_string(entryNumber),
             marked ? "marked" : "not marked");
}

void TrialService::RepeatNewestEvent() {
  RawLogEntry event;
  const bool logged = store_.NewestEvent(event) && store_.Log(event).ok();
  WriteCallLog("event " + (logged ? std::to_string(event.entryNumber) : std::string("none")));
}

TrialService::Call TrialService::Begin() {
  Call call;
  call.number = ++calls_;
  if (call.number == options_.dieInCall) {
    call.outcome.end = CallEnd::kDie;
    return call;
  }
  const auto failure = options_.failCalls.find(call.number);
  if (failure != options_.failCalls.end()) {
    call.outcome = Failing(failure->second);
  } else if (options_.noDriver) {
    call.outcome.status = RM_E_NO_DRIVER;
  }
  return call;
}

CallOutcome TrialService::End(const Call& call, const Caller& caller, const std::string& text,
                              const std::string& answer) {
  if (!options_.callLogPath.empty()) {
    std::string line = std::to_string(call.number) + " " + Quoted(caller.name) + " " +
                       (caller.authentication.empty() ? "unknown" : caller.authentication) + " " +
                       text + ": " + StatusWord(call.outcome);
    if (call.Works()) line += ", " + answer;
    WriteCallLog(line);
  }
  if (call.outcome.end != CallEnd::kDie && options_.delay.count() > 0) {
    std::unique_lock lock(mutex_);
    stopping_.wait_for(lock, options_.delay, [this] { return stopped_; });
  }
  return call.outcome;
}

bool TrialService::MayChange(bool refused) const {
  return !refused && !options_.notAdministrator && !options_.noLog;
}

bool TrialService::Find(std::uint32_t entryNumber, RawLogEntry& record) {
  if (options_.noLog) return false;
  const std::uint32_t step = options_.sparseStep;
  const std::uint32_t wanted = entryNumber / step + (entryNumber % step != 0 ? 1 : 0);
  RawLogEntry stored;
  if (!store_.ReadFrom(wanted, stored)) return false;
  // Numbers that a machine could not have do not exist.
  if (stored.entryNumber > std::numeric_limits<std::uint32_t>::max() / step) return false;
  record = stored;
  record.entryNumber = stored.entryNumber * step;

  const std::lock_guard lock(mutex_);
  ++delivered_;
  if (options_.numberFallsBackAt != 0 && delivered_ >= options_.numberFallsBackAt) {
    record.entryNumber = lastDeliveredNumber_;
  }
  lastDeliveredNumber_ = record.entryNumber;
  return true;
}

void TrialService::WriteCallLog(const std::string& line) {
  if (options_.callLogPath.empty()) return;
  const std::lock_guard lock(mutex_);
  // A full disk must not stop the trial; the line is then missing.
  (void)callLog_.Write(line + "\n").ok();
}

void TrialService::LogEventsUntilStopped() {
  std::unique_lock lock(mutex_);
  while (!stopping_.wait_for(lock, options_.eventEvery, [this] { return stopped_; })) {
    lock.unlock();
    RepeatNewestEvent();
    lock.lock();
  }
}

}  // namespace qvl
