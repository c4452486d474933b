#ifndef QVL_TESTS_FAKES_FAKE_MACHINE_H_
#define QVL_TESTS_FAKES_FAKE_MACHINE_H_

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "access/remote_call_runtime.h"

namespace qvl::testing {

/// The steps that a run time is asked for.
enum class Step : std::uint8_t {
  kCompose,
  kBind,
  kFreeComposed,
  kAuthenticate,
  kFreeBinding,
  kAdministrator,
  kRead,
  kClear,
  kNote,
  kPresent,
  kRepair,
};

/// A machine in memory: answers as its fields say and keeps what it was asked.
class FakeMachine : public RemoteCallRuntime {
 public:
  /// RPC_S_INVALID_BINDING: what freeing or using no binding answers.
  static constexpr RemoteStatus kInvalidBinding = 1702;

  // What it answers. A read delivers the first record whose number is the one asked for or above.
  std::vector<RawLogEntry> records;
  std::int32_t isAdministrator = 1;
  std::uint8_t hasLog = 1;
  std::uint8_t cleared = 1;      ///< a clear that answers nonzero empties `records`
  std::uint8_t noteWritten = 1;  ///< a note that answers nonzero is kept in `notes`
  std::int32_t noteResult = 0;
  std::uint8_t repairStatus = 0;
  std::uint8_t lastEntryStatus = ENTRY_STATUS_NONE;  ///< the answer behind the last entry
  std::int32_t lastEntryCount = 0;

  /// Called at the start of every step, so that a test can look around or change the machine.
  std::function<void(Step)> onStep;
  /// Answers a read in place of `records`: the entry for a number, or none.
  std::function<std::optional<RawLogEntry>(std::uint32_t)> deliver;

  // What it was asked and given.
  std::vector<std::string> calls;  ///< "compose SERVER", "read 7", "clear Ada", "note text", ...
  std::vector<std::string> notes;
  std::vector<std::string> clearedBy;
  StringBindingParts parts;
  BindingAuthentication authentication;
  std::size_t liveBindings() const { return bindings_.size(); }
  std::size_t liveComposed() const { return composed_.size(); }

  /// Fails every call of a step.
  void Fail(Step step, RemoteStatus status) { failures_[{step, kEveryCall}] = status; }
  /// Fails one call of a step, counted from 1.
  void FailCall(Step step, std::size_t call, RemoteStatus status) {
    failures_[{step, call}] = status;
  }

  RemoteStatus ComposeStringBinding(const StringBindingParts& wanted,
                                    ComposedBinding*& composed) override {
    const RemoteStatus status = Begin(Step::kCompose, "compose " + wanted.networkAddress);
    if (status != kRemoteOk) return status;
    parts = wanted;
    composed = reinterpret_cast<ComposedBinding*>(Take(composed_));
    return kRemoteOk;
  }

  RemoteStatus BindingFromComposed(ComposedBinding* composed, BindingHandle*& binding) override {
    const RemoteStatus status = Begin(Step::kBind, "bind");
    if (status != kRemoteOk) return status;
    if (composed_.count(composed) == 0) return kInvalidBinding;
    binding = reinterpret_cast<BindingHandle*>(Take(bindings_));
    return kRemoteOk;
  }

  RemoteStatus FreeComposed(ComposedBinding*& composed) override {
    const RemoteStatus status = Begin(Step::kFreeComposed, "free composed");
    if (status != kRemoteOk) return status;
    if (composed_.erase(composed) == 0) return kInvalidBinding;
    composed = nullptr;
    return kRemoteOk;
  }

  RemoteStatus SetAuthentication(BindingHandle* binding,
                                 const BindingAuthentication& wanted) override {
    const RemoteStatus status = BeginCall(Step::kAuthenticate, "authenticate", binding);
    if (status == kRemoteOk) authentication = wanted;
    return status;
  }

  /// A scripted failure frees the handle all the same.
  RemoteStatus FreeBinding(BindingHandle*& binding) override {
    const RemoteStatus status = Begin(Step::kFreeBinding, "free binding");
    const bool wasLive = bindings_.erase(binding) != 0;
    binding = nullptr;
    if (status != kRemoteOk) return status;
    return wasLive ? kRemoteOk : kInvalidBinding;
  }

  RemoteStatus QueryAdministratorAccess(BindingHandle* binding, std::int32_t& answer) override {
    const RemoteStatus status = BeginCall(Step::kAdministrator, "administrator", binding);
    if (status == kRemoteOk) answer = isAdministrator;
    return status;
  }

  RemoteStatus ReadLogEntry(BindingHandle* binding, std::uint32_t entryNumber,
                            std::uint32_t reserved, std::uint8_t& entryStatus,
                            std::int32_t& entryCount, RawLogEntry& record) override {
    const std::string more = reserved == 0 ? "" : " reserved " + std::to_string(reserved);
    const RemoteStatus status =
        BeginCall(Step::kRead, "read " + std::to_string(entryNumber) + more, binding);
    if (status != kRemoteOk) return status;
    const std::optional<RawLogEntry> found = deliver ? deliver(entryNumber) : Find(entryNumber);
    entryStatus = found ? std::uint8_t{0} : lastEntryStatus;
    entryCount = found ? static_cast<std::int32_t>(records.size()) : lastEntryCount;
    if (found) {
      record = *found;
      if (entryCount == 0) entryCount = 1;
    }
    return kRemoteOk;
  }

  RemoteStatus RemoteClearLog(BindingHandle* binding, std::uint8_t clearFlag,
                              const RemoteText& userName, std::uint8_t& answer) override {
    const std::string flag = clearFlag == 1 ? "" : " flag " + std::to_string(clearFlag);
    const RemoteStatus status =
        BeginCall(Step::kClear, "clear " + TextOf(userName) + flag, binding);
    if (status != kRemoteOk) return status;
    answer = cleared;
    if (cleared != 0) {
      records.clear();
      clearedBy.push_back(TextOf(userName));
    }
    return kRemoteOk;
  }

  RemoteStatus RemoteWriteMaintenanceNote(BindingHandle* binding, const RemoteText& note,
                                          std::uint8_t& written, std::int32_t& result) override {
    const RemoteStatus status = BeginCall(Step::kNote, "note " + TextOf(note), binding);
    if (status != kRemoteOk) return status;
    written = noteWritten;
    result = noteResult;
    if (noteWritten != 0) notes.push_back(TextOf(note));
    return kRemoteOk;
  }

  RemoteStatus QueryLogPresent(BindingHandle* binding, std::uint8_t& answer) override {
    const RemoteStatus status = BeginCall(Step::kPresent, "present", binding);
    if (status == kRemoteOk) answer = hasLog;
    return status;
  }

  RemoteStatus MarkEntryRepaired(BindingHandle* binding, std::uint32_t entryNumber,
                                 std::uint8_t& answer) override {
    const RemoteStatus status =
        BeginCall(Step::kRepair, "repair " + std::to_string(entryNumber), binding);
    if (status == kRemoteOk) answer = repairStatus;
    return status;
  }

 private:
  static constexpr std::size_t kEveryCall = 0;

  // A text without its zero is kept whole, and shows.
  static std::string TextOf(const RemoteText& text) {
    std::size_t length = 0;
    while (length < text.size() && text[length] != 0) ++length;
    const std::string whole(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(length));
    return length < text.size() ? whole : whole + " (without a zero)";
  }

  std::optional<RawLogEntry> Find(std::uint32_t entryNumber) const {
    for (const RawLogEntry& record : records) {
      if (record.entryNumber >= entryNumber) return record;
    }
    return std::nullopt;
  }

  RemoteStatus Begin(Step step, std::string call) {
    calls.push_back(std::move(call));
    const std::size_t number = ++counts_[step];
    if (onStep) onStep(step);
    for (const std::size_t wanted : {number, kEveryCall}) {
      const auto failure = failures_.find({step, wanted});
      if (failure != failures_.end()) return failure->second;
    }
    return kRemoteOk;
  }

  RemoteStatus BeginCall(Step step, std::string call, BindingHandle* binding) {
    const RemoteStatus status = Begin(step, std::move(call));
    if (status != kRemoteOk) return status;
    return bindings_.count(binding) == 0 ? kInvalidBinding : kRemoteOk;
  }

  // Handles are addresses that no other handle ever has.
  void* Take(std::set<void*>& live) {
    handles_.push_back(0);
    live.insert(&handles_.back());
    return &handles_.back();
  }

  std::deque<char> handles_;
  std::set<void*> bindings_;
  std::set<void*> composed_;
  std::map<Step, std::size_t> counts_;
  std::map<std::pair<Step, std::size_t>, RemoteStatus> failures_;
};

}  // namespace qvl::testing

#endif  // QVL_TESTS_FAKES_FAKE_MACHINE_H_
