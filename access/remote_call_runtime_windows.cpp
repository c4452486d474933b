#include <windows.h>

#include <remote_monitor.h>
#include <rpc.h>

#include "access/guarded_call_windows.h"
#include "access/remote_call_runtime.h"

namespace qvl {
namespace {

static_assert(sizeof(LONG) == sizeof(std::int32_t));
static_assert(sizeof(RawLogEntry) == 256);

RPC_CSTR AsRpcText(const std::string& text) {
  return reinterpret_cast<RPC_CSTR>(const_cast<char*>(text.c_str()));  // none is written to
}

RPC_BINDING_HANDLE Handle(BindingHandle* binding) {
  return reinterpret_cast<RPC_BINDING_HANDLE>(binding);
}

RemoteStatus ToStatus(RPC_STATUS status) {
  return static_cast<RemoteStatus>(status);
}

// The stubs write into the caller's variables while they read the answer, and may still fail then.
// So each call has variables of its own, and hands them on when it has come back.
class RpcRuntime final : public RemoteCallRuntime {
 public:
  RemoteStatus ComposeStringBinding(const StringBindingParts& parts,
                                    ComposedBinding*& composed) override {
    RPC_CSTR text = nullptr;
    const RPC_STATUS status = ::RpcStringBindingComposeA(
        AsRpcText(parts.objectUuid), AsRpcText(parts.protocolSequence),
        AsRpcText(parts.networkAddress), AsRpcText(parts.endpoint), nullptr, &text);
    if (status == RPC_S_OK) composed = reinterpret_cast<ComposedBinding*>(text);
    return ToStatus(status);
  }

  RemoteStatus BindingFromComposed(ComposedBinding* composed, BindingHandle*& binding) override {
    RPC_BINDING_HANDLE handle = nullptr;
    const RPC_STATUS status =
        ::RpcBindingFromStringBindingA(reinterpret_cast<RPC_CSTR>(composed), &handle);
    if (status == RPC_S_OK) binding = reinterpret_cast<BindingHandle*>(handle);
    return ToStatus(status);
  }

  RemoteStatus FreeComposed(ComposedBinding*& composed) override {
    auto* text = reinterpret_cast<RPC_CSTR>(composed);
    const RPC_STATUS status = ::RpcStringFreeA(&text);
    if (status == RPC_S_OK) composed = nullptr;
    return ToStatus(status);
  }

  RemoteStatus SetAuthentication(BindingHandle* binding,
                                 const BindingAuthentication& authentication) override {
    return ToStatus(::RpcBindingSetAuthInfoA(Handle(binding), nullptr, authentication.level,
                                             authentication.service, nullptr,
                                             authentication.authorisation));
  }

  RemoteStatus FreeBinding(BindingHandle*& binding) override {
    RPC_BINDING_HANDLE handle = Handle(binding);
    const RPC_STATUS status = ::RpcBindingFree(&handle);
    if (status == RPC_S_OK) binding = nullptr;
    return ToStatus(status);
  }

  RemoteStatus QueryAdministratorAccess(BindingHandle* binding,
                                        std::int32_t& isAdministrator) override {
    return CallGuarded([&]() -> std::uint32_t {
      LONG answer = 0;
      const error_status_t status = Call_QueryAdministratorAccess(Handle(binding), &answer);
      isAdministrator = answer;
      return status;
    });
  }

  RemoteStatus ReadLogEntry(BindingHandle* binding, std::uint32_t entryNumber,
                            std::uint32_t reserved, std::uint8_t& entryStatus,
                            std::int32_t& entryCount, RawLogEntry& record) override {
    return CallGuarded([&]() -> std::uint32_t {
      char statusByte = 0;
      LONG count = 0;
      RawLogEntry bytes{};
      const error_status_t status = Call_ReadLogEntry(
          Handle(binding), static_cast<LONG>(entryNumber), static_cast<LONG>(reserved), &statusByte,
          &count, reinterpret_cast<char*>(&bytes));
      entryStatus = static_cast<std::uint8_t>(statusByte);
      entryCount = count;
      record = bytes;
      return status;
    });
  }

  RemoteStatus RemoteClearLog(BindingHandle* binding, std::uint8_t clearFlag,
                              const RemoteText& userName, std::uint8_t& cleared) override {
    return CallGuarded([&]() -> std::uint32_t {
      RemoteText text = userName;  // the stub's parameter is not const
      char answer = 0;
      const error_status_t status =
          Call_RemoteClearLog(Handle(binding), static_cast<char>(clearFlag),
                              reinterpret_cast<char*>(text.data()), &answer);
      cleared = static_cast<std::uint8_t>(answer);
      return status;
    });
  }

  RemoteStatus RemoteWriteMaintenanceNote(BindingHandle* binding, const RemoteText& note,
                                          std::uint8_t& written,
                                          std::int32_t& noteResult) override {
    return CallGuarded([&]() -> std::uint32_t {
      RemoteText text = note;
      char answer = 0;
      LONG result = 0;
      const error_status_t status = Call_RemoteWriteMaintenanceNote(
          Handle(binding), reinterpret_cast<char*>(text.data()), &answer, &result);
      written = static_cast<std::uint8_t>(answer);
      noteResult = result;
      return status;
    });
  }

  RemoteStatus QueryLogPresent(BindingHandle* binding, std::uint8_t& hasLog) override {
    return CallGuarded([&]() -> std::uint32_t {
      char answer = 0;
      const error_status_t status = Call_QueryLogPresent(Handle(binding), &answer);
      hasLog = static_cast<std::uint8_t>(answer);
      return status;
    });
  }

  RemoteStatus MarkEntryRepaired(BindingHandle* binding, std::uint32_t entryNumber,
                                 std::uint8_t& repairStatus) override {
    return CallGuarded([&]() -> std::uint32_t {
      char answer = 0;
      const error_status_t status =
          Call_MarkEntryRepaired(Handle(binding), static_cast<LONG>(entryNumber), &answer);
      repairStatus = static_cast<std::uint8_t>(answer);
      return status;
    });
  }
};

}  // namespace

std::unique_ptr<RemoteCallRuntime> MakeSystemRuntime() {
  return std::make_unique<RpcRuntime>();
}

}  // namespace qvl
