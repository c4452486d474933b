#include "access/remote_monitor_client.h"

#include <algorithm>

namespace qvl {
namespace {

// The interface is its own object: the service registers it under the same UUID.
constexpr const char* kObjectUuid = "5c2e9a41-7b3d-4f08-a6e2-19d04c7b3e55";

// RPC_C_AUTHN_LEVEL_CONNECT, RPC_C_AUTHN_WINNT and RPC_C_AUTHZ_NONE.
constexpr BindingAuthentication kAuthentication = {.level = 2, .service = 10, .authorisation = 0};

}  // namespace

RemoteMonitorClient::~RemoteMonitorClient() {
  Disconnect();
}

RemoteStatus RemoteMonitorClient::Connect(const std::string& machineName,
                                          std::int32_t& isAdministrator) {
  if (bound_) return RM_E_ALREADY_OPEN;
  ComposedBinding* composed = nullptr;
  RemoteStatus status = runtime_.ComposeStringBinding({.objectUuid = kObjectUuid,
                                                       .protocolSequence = kMonitorSequence,
                                                       .networkAddress = machineName,
                                                       .endpoint = kMonitorEndpoint},
                                                      composed);
  if (status != kRemoteOk) return status;

  // A string whose binding failed is not freed: one short string for each failed attempt.
  status = runtime_.BindingFromComposed(composed, binding_);
  if (status == kRemoteOk) status = runtime_.FreeComposed(composed);
  if (status == kRemoteOk) status = runtime_.SetAuthentication(binding_, kAuthentication);
  if (status == kRemoteOk) status = runtime_.QueryAdministratorAccess(binding_, isAdministrator);
  if (status == kRemoteOk) {
    bound_ = true;
  } else {
    runtime_.FreeBinding(binding_);
    binding_ = nullptr;
  }
  return status;
}

RemoteStatus RemoteMonitorClient::Disconnect() {
  if (!bound_) return RM_E_NOT_OPEN;
  const RemoteStatus status = runtime_.FreeBinding(binding_);
  binding_ = nullptr;
  bound_ = false;
  return status;
}

RemoteStatus RemoteMonitorClient::ReadEntry(std::uint32_t entryNumber, std::uint32_t reserved,
                                            std::uint8_t& entryStatus, std::int32_t& entryCount,
                                            RawLogEntry& record) {
  if (!bound_) return RM_E_NOT_OPEN;
  return runtime_.ReadLogEntry(binding_, entryNumber, reserved, entryStatus, entryCount, record);
}

RemoteStatus RemoteMonitorClient::ClearLog(std::uint8_t flag, const RemoteText& userName,
                                           std::uint8_t& cleared) {
  cleared = 0;
  if (!bound_) return RM_E_NOT_OPEN;
  return runtime_.RemoteClearLog(binding_, flag, userName, cleared);
}

RemoteStatus RemoteMonitorClient::WriteMaintenanceNote(const RemoteText& note,
                                                       std::uint8_t& written,
                                                       std::int32_t& noteResult) {
  if (!bound_) return RM_E_NOT_OPEN;
  return runtime_.RemoteWriteMaintenanceNote(binding_, note, written, noteResult);
}

RemoteStatus RemoteMonitorClient::IsLogPresent(std::uint8_t& hasLog) {
  hasLog = 0;
  if (!bound_) return RM_E_NOT_OPEN;
  return runtime_.QueryLogPresent(binding_, hasLog);
}

RemoteStatus RemoteMonitorClient::MarkRepaired(std::uint32_t entryNumber,
                                               std::uint8_t& repairStatus) {
  repairStatus = ENTRY_STATUS_NONE;
  if (!bound_) return RM_E_NOT_OPEN;
  return runtime_.MarkEntryRepaired(binding_, entryNumber, repairStatus);
}

RemoteText ToRemoteText(std::string_view text) {
  RemoteText bytes{};
  std::copy_n(text.begin(), std::min(text.size(), bytes.size() - 1), bytes.begin());
  return bytes;
}

}  // namespace qvl
