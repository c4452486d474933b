#ifndef QVL_ACCESS_REMOTE_CALL_RUNTIME_H_
#define QVL_ACCESS_REMOTE_CALL_RUNTIME_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "access/remote_status.h"
#include "entries/raw_log_entry.h"

namespace qvl {

/// Bytes of the texts that a call carries: at most 227 characters and a terminating zero.
inline constexpr std::size_t kRemoteTextSize = 228;
using RemoteText = std::array<std::uint8_t, kRemoteTextSize>;

/// Where the remote monitor listens: a named pipe (MS-RPCE 2.1.1.2, NCACN_NP).
inline constexpr const char* kMonitorSequence = "ncacn_np";
inline constexpr const char* kMonitorEndpoint = "\\pipe\\zlkrcmc";

/// What a string binding is composed of (DCE 1.1 RPC, chapter 3, "String Bindings"). No options.
struct StringBindingParts {
  std::string objectUuid;
  std::string protocolSequence;
  std::string networkAddress;
  std::string endpoint;
};

/// How a binding proves who calls: Windows' RPC_C_AUTHN_* and RPC_C_AUTHZ_* numbers.
struct BindingAuthentication {
  std::uint32_t level = 0;
  std::uint32_t service = 0;
  std::uint32_t authorisation = 0;
};

/// A composed string and a binding, as the run time holds them. Null when there is none.
struct ComposedBinding;
struct BindingHandle;

/// The remote call run time as the client uses it: the steps that make and free a binding, and the
/// procedures of the remote monitor interface, in its order. Windows has one (rpcrt4, with stubs
/// generated from remote_monitor.idl); elsewhere a helper process speaks the protocol.
/// Every function answers a status and never throws; a call that the run time fails leaves its
/// outputs as they were. `binding` is one that this run time made.
class RemoteCallRuntime {
 public:
  virtual ~RemoteCallRuntime() = default;

  virtual RemoteStatus ComposeStringBinding(const StringBindingParts& parts,
                                            ComposedBinding*& composed) = 0;
  virtual RemoteStatus BindingFromComposed(ComposedBinding* composed, BindingHandle*& binding) = 0;
  virtual RemoteStatus FreeComposed(ComposedBinding*& composed) = 0;
  virtual RemoteStatus SetAuthentication(BindingHandle* binding,
                                         const BindingAuthentication& authentication) = 0;
  /// Also for a null binding, which it refuses with a status.
  virtual RemoteStatus FreeBinding(BindingHandle*& binding) = 0;

  virtual RemoteStatus QueryAdministratorAccess(BindingHandle* binding,
                                                std::int32_t& isAdministrator) = 0;
  virtual RemoteStatus ReadLogEntry(BindingHandle* binding, std::uint32_t entryNumber,
                                    std::uint32_t reserved, std::uint8_t& entryStatus,
                                    std::int32_t& entryCount, RawLogEntry& record) = 0;
  virtual RemoteStatus RemoteClearLog(BindingHandle* binding, std::uint8_t clearFlag,
                                      const RemoteText& userName, std::uint8_t& cleared) = 0;
  virtual RemoteStatus RemoteWriteMaintenanceNote(BindingHandle* binding, const RemoteText& note,
                                                  std::uint8_t& written,
                                                  std::int32_t& noteResult) = 0;
  virtual RemoteStatus QueryLogPresent(BindingHandle* binding, std::uint8_t& hasLog) = 0;
  virtual RemoteStatus MarkEntryRepaired(BindingHandle* binding, std::uint32_t entryNumber,
                                         std::uint8_t& repairStatus) = 0;
};

/// The run time of this system.
std::unique_ptr<RemoteCallRuntime> MakeSystemRuntime();

}  // namespace qvl

#endif  // QVL_ACCESS_REMOTE_CALL_RUNTIME_H_
