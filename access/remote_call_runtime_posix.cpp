#include <chrono>
#include <new>
#include <string_view>

#include "access/helper_process.h"
#include "access/remote_call_codec.h"
#include "access/remote_call_frames.h"
#include "access/remote_call_runtime.h"
#include "platform/time_limit.h"

namespace qvl {

struct ComposedBinding {
  StringBindingParts parts;
};

struct BindingHandle {
  std::string machine;
  bool authenticated = false;
  HelperProcess helper;  // of the connection; runs from the first call on
};

namespace {

using std::chrono::milliseconds;

// What the helper speaks; it is the run time of this one interface.
constexpr std::uint32_t kConnectLevel = 2;  // RPC_C_AUTHN_LEVEL_CONNECT
constexpr std::uint32_t kNtlmService = 10;  // RPC_C_AUTHN_WINNT

// Long enough for a machine at the end of a slow line, short enough for a user who waits.
constexpr milliseconds kConnectLimit{20'000};
constexpr milliseconds kCallLimit{60'000};

class HelperRuntime : public RemoteCallRuntime {
 public:
  RemoteStatus ComposeStringBinding(const StringBindingParts& parts,
                                    ComposedBinding*& composed) override {
    auto* made = new (std::nothrow) ComposedBinding{parts};
    if (made == nullptr) return kNoMemory;
    composed = made;
    return kRemoteOk;
  }

  RemoteStatus BindingFromComposed(ComposedBinding* composed, BindingHandle*& binding) override {
    if (composed == nullptr) return kInvalidArgument;
    if (composed->parts.protocolSequence != kMonitorSequence) return kUnsupportedSequence;
    if (composed->parts.endpoint != kMonitorEndpoint) return kInvalidEndpoint;
    auto* made = new (std::nothrow) BindingHandle;
    if (made == nullptr) return kNoMemory;
    made->machine = composed->parts.networkAddress;
    binding = made;
    return kRemoteOk;
  }

  RemoteStatus FreeComposed(ComposedBinding*& composed) override {
    delete composed;
    composed = nullptr;
    return kRemoteOk;
  }

  RemoteStatus SetAuthentication(BindingHandle* binding,
                                 const BindingAuthentication& authentication) override {
    if (binding == nullptr) return kInvalidBinding;
    const bool known = authentication.level == kConnectLevel &&
                       authentication.service == kNtlmService && authentication.authorisation == 0;
    if (!known) return kUnknownAuthenticationService;
    binding->authenticated = true;
    return kRemoteOk;
  }

  RemoteStatus FreeBinding(BindingHandle*& binding) override {
    if (binding == nullptr) return kInvalidBinding;
    delete binding;
    binding = nullptr;
    return kRemoteOk;
  }

  RemoteStatus QueryAdministratorAccess(BindingHandle* binding,
                                        std::int32_t& isAdministrator) override {
    const RemoteStatus status = Call(binding, RemoteProcedure::kQueryAdministratorAccess, {});
    return status == kRemoteOk ? DecodeQueryAdministratorAccess(reply_, isAdministrator) : status;
  }

  RemoteStatus ReadLogEntry(BindingHandle* binding, std::uint32_t entryNumber,
                            std::uint32_t reserved, std::uint8_t& entryStatus,
                            std::int32_t& entryCount, RawLogEntry& record) override {
    const RemoteStatus status =
        Call(binding, RemoteProcedure::kReadLogEntry, EncodeReadLogEntry(entryNumber, reserved));
    if (status != kRemoteOk) return status;
    return DecodeReadLogEntry(reply_, entryStatus, entryCount, record);
  }

  RemoteStatus RemoteClearLog(BindingHandle* binding, std::uint8_t clearFlag,
                              const RemoteText& userName, std::uint8_t& cleared) override {
    const RemoteStatus status =
        Call(binding, RemoteProcedure::kRemoteClearLog, EncodeRemoteClearLog(clearFlag, userName));
    return status == kRemoteOk ? DecodeRemoteClearLog(reply_, cleared) : status;
  }

  RemoteStatus RemoteWriteMaintenanceNote(BindingHandle* binding, const RemoteText& note,
                                          std::uint8_t& written,
                                          std::int32_t& noteResult) override {
    const RemoteStatus status = Call(binding, RemoteProcedure::kRemoteWriteMaintenanceNote,
                                     EncodeRemoteWriteMaintenanceNote(note));
    if (status != kRemoteOk) return status;
    return DecodeRemoteWriteMaintenanceNote(reply_, written, noteResult);
  }

  RemoteStatus QueryLogPresent(BindingHandle* binding, std::uint8_t& hasLog) override {
    const RemoteStatus status = Call(binding, RemoteProcedure::kQueryLogPresent, {});
    return status == kRemoteOk ? DecodeQueryLogPresent(reply_, hasLog) : status;
  }

  RemoteStatus MarkEntryRepaired(BindingHandle* binding, std::uint32_t entryNumber,
                                 std::uint8_t& repairStatus) override {
    const RemoteStatus status =
        Call(binding, RemoteProcedure::kMarkEntryRepaired, EncodeMarkEntryRepaired(entryNumber));
    return status == kRemoteOk ? DecodeMarkEntryRepaired(reply_, repairStatus) : status;
  }

 private:
  // Runs a procedure. On success its answer lies in reply_, until the next call.
  RemoteStatus Call(BindingHandle* binding, RemoteProcedure procedure, const StubData& request) {
    if (binding == nullptr) return kInvalidBinding;
    if (!binding->authenticated) return kUnknownAuthenticationService;
    if (!binding->helper.running()) {
      const RemoteStatus connected = Connect(*binding);
      if (connected != kRemoteOk) return connected;
    }
    return Ask(binding->helper,
               {.kind = FrameKind::kCall,
                .code = static_cast<std::uint32_t>(procedure),
                .payload = request.View()},
               TimeLimit("QVL_CALL_TIMEOUT_MS", kCallLimit), kCallFailed);
  }

  // Each connection is a helper of its own: whatever the last one ended with is gone with it.
  RemoteStatus Connect(BindingHandle& binding) {
    if (binding.machine.size() > kLongestMachineName) return kServerUnavailable;
    RemoteStatus status = binding.helper.Start(HelperProgram());
    if (status != kRemoteOk) return status;
    const auto* name = reinterpret_cast<const std::uint8_t*>(binding.machine.data());
    status = Ask(binding.helper,
                 {
                     .kind = FrameKind::kConnect, .payload = {name, binding.machine.size()}
    },
                 TimeLimit("QVL_CONNECT_TIMEOUT_MS", kConnectLimit), kServerUnavailable);
    if (status != kRemoteOk) binding.helper.Stop(HelperProcess::Ending::kAtOnce);
    return status;
  }

  // broken  the status when the helper ends or sends nonsense.
  RemoteStatus Ask(HelperProcess& helper, const Frame& question, milliseconds limit,
                   RemoteStatus broken) {
    Frame answer;
    const HelperProcess::Outcome outcome = helper.Exchange(question, limit, buffer_, answer);
    bool lost = true;
    RemoteStatus status = broken;
    if (outcome == HelperProcess::Outcome::kLate) status = kServerUnavailable;
    if (outcome == HelperProcess::Outcome::kAnswered) {
      status = StatusOfAnswer(question.kind, answer, broken, lost);
    }
    if (lost && !helper.Stop(HelperProcess::Ending::kAtOnce)) status = kHelperMissing;
    reply_ = answer.payload;
    return status;
  }

  FrameBytes buffer_;
  std::span<const std::uint8_t> reply_;  // within buffer_
};

}  // namespace

std::unique_ptr<RemoteCallRuntime> MakeSystemRuntime() {
  return std::make_unique<HelperRuntime>();
}

}  // namespace qvl
