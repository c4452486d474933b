#ifndef QVL_TRIAL_TRIAL_SERVICE_H_
#define QVL_TRIAL_TRIAL_SERVICE_H_

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

#include "access/remote_call_runtime.h"
#include "access/remote_status.h"
#include "entries/raw_log_entry.h"
#include "platform/exclusive_file.h"
#include "platform/status.h"
#include "trial/log_store.h"
#include "trial/trial_options.h"

namespace qvl {

/// How a call ends, for the transport to carry out.
enum class CallEnd : std::uint8_t {
  kReturned,  ///< the procedure returns `status`; its outputs are set
  kFault,     ///< the run time fails the call with `status`; no output is sent
  kDie,       ///< the process ends now, without an answer
};

struct CallOutcome {
  CallEnd end = CallEnd::kReturned;
  RemoteStatus status = kRemoteOk;
};

/// Who calls, for the log of calls.
struct Caller {
  std::string name;            ///< DOMAIN\user, or empty when the transport does not know
  std::string authentication;  ///< how that was learnt, one word
};

/// The procedures of the remote monitor interface as values, on one log, for any number of threads.
/// The transport has admitted the caller before; it sends the outputs as they stand here.
/// Outputs are always set, also when the returned status is not 0.
class TrialService {
 public:
  /// Both must outlive the service. `options` does not change any more.
  TrialService(LogStore& store, const TrialOptions& options);
  ~TrialService();
  TrialService(const TrialService&) = delete;
  TrialService& operator=(const TrialService&) = delete;

  /// Opens the log of calls, if one is asked for, and begins with the events. Call once, first.
  Status Start();

  /// Ends every wait at once, that of calls which are under way too, and the events.
  /// For any thread, any number of times.
  void Stop();

  // In the order of the interface. `Reserved4` is the one without a use.
  CallOutcome QueryAdministratorAccess(const Caller& caller, std::int32_t& isAdministrator);
  CallOutcome ReadLogEntry(const Caller& caller, std::uint32_t entryNumber, std::uint32_t reserved,
                           std::uint8_t& entryStatus, std::int32_t& entryCount,
                           RawLogEntry& record);
  CallOutcome RemoteClearLog(const Caller& caller, std::uint8_t clearFlag,
                             const RemoteText& userName, std::uint8_t& cleared);
  CallOutcome RemoteWriteMaintenanceNote(const Caller& caller, const RemoteText& note,
                                         std::uint8_t& written, std::int32_t& noteResult);
  CallOutcome Reserved4(const Caller& caller, std::uint8_t& value);
  CallOutcome QueryLogPresent(const Caller& caller, std::uint8_t& hasLog);
  CallOutcome MarkEntryRepaired(const Caller& caller, std::uint32_t entryNumber,
                                std::uint8_t& repairStatus);

  /// Lets the newest event of the log occur once more, as a machine would. Nothing happens on a log
  /// without one.
  void RepeatNewestEvent();

 private:
  struct Call {
    std::uint64_t number = 0;  ///< from 1
    CallOutcome outcome;       ///< kReturned with 0 when the procedure is to do its work

    bool Works() const { return outcome.end == CallEnd::kReturned && outcome.status == kRemoteOk; }
  };

  Call Begin();
  CallOutcome End(const Call& call, const Caller& caller, const std::string& text,
                  const std::string& answer);
  bool MayChange(bool refused) const;
  bool Find(std::uint32_t entryNumber, RawLogEntry& record);
  void WriteCallLog(const std::string& line);
  void LogEventsUntilStopped();

  LogStore& store_;
  const TrialOptions& options_;
  std::atomic<std::uint64_t> calls_{0};
  std::mutex mutex_;
  std::condition_variable stopping_;
  bool stopped_ = false;                   ///< guarded by mutex_
  std::uint64_t delivered_ = 0;            ///< guarded by mutex_
  std::uint32_t lastDeliveredNumber_ = 0;  ///< guarded by mutex_
  ExclusiveFile callLog_;                  ///< guarded by mutex_
  std::thread events_;
};

}  // namespace qvl

#endif  // QVL_TRIAL_TRIAL_SERVICE_H_
