#ifndef QVL_ACCESS_REMOTE_MONITOR_CLIENT_H_
#define QVL_ACCESS_REMOTE_MONITOR_CLIENT_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "access/remote_call_runtime.h"
#include "access/remote_status.h"
#include "entries/raw_log_entry.h"

namespace qvl {

/// The client of a machine's remote monitor service. Holds one binding, to one machine at a time.
/// Every operation blocks until the service has answered; not for several threads.
/// An operation while no machine is open answers RM_E_NOT_OPEN, after its preset.
class RemoteMonitorClient {
 public:
  explicit RemoteMonitorClient(RemoteCallRuntime& runtime) : runtime_(runtime) {}
  ~RemoteMonitorClient();
  RemoteMonitorClient(const RemoteMonitorClient&) = delete;
  RemoteMonitorClient& operator=(const RemoteMonitorClient&) = delete;

  /// Opens a machine. It counts as open only after the first procedure has really run there.
  /// machineName      without leading backslashes.
  /// isAdministrator  nonzero when the user may change the log.
  /// Returns RM_E_ALREADY_OPEN, changing nothing, while a machine is open.
  RemoteStatus Connect(const std::string& machineName, std::int32_t& isAdministrator);

  /// Safe after any failure. Returns RM_E_NOT_OPEN when there is nothing to close.
  RemoteStatus Disconnect();

  /// Asks for the entry of a number, or the next one after it. No output is preset.
  /// An entry was delivered when the status is 0, `entryStatus` is not ENTRY_STATUS_NONE and
  /// `entryCount` is above 0.
  RemoteStatus ReadEntry(std::uint32_t entryNumber, std::uint32_t reserved,
                         std::uint8_t& entryStatus, std::int32_t& entryCount, RawLogEntry& record);

  /// userName  who clears the log, ended by a zero; the service keeps it with the entry it writes.
  /// cleared   preset to 0; nonzero when the log was cleared.
  RemoteStatus ClearLog(std::uint8_t flag, const RemoteText& userName, std::uint8_t& cleared);

  /// note     1 to 227 characters, ended by a zero.
  /// written  nonzero when the note was logged. No output is preset.
  RemoteStatus WriteMaintenanceNote(const RemoteText& note, std::uint8_t& written,
                                    std::int32_t& noteResult);

  /// hasLog  preset to 0; nonzero when the machine keeps a log at all.
  RemoteStatus IsLogPresent(std::uint8_t& hasLog);

  /// repairStatus  preset to ENTRY_STATUS_NONE; 0 when the entry was marked.
  RemoteStatus MarkRepaired(std::uint32_t entryNumber, std::uint8_t& repairStatus);

 private:
  RemoteCallRuntime& runtime_;
  BindingHandle* binding_ = nullptr;
  bool bound_ = false;
};

/// The process's client, over the system's run time: every part of a program shares its one
/// binding.
RemoteMonitorClient& ProcessRemoteMonitorClient();

/// A text for a call: cut at 227 bytes, filled with zeros.
RemoteText ToRemoteText(std::string_view text);

}  // namespace qvl

#endif  // QVL_ACCESS_REMOTE_MONITOR_CLIENT_H_
