#ifndef QVL_TRIAL_LOG_STORE_H_
#define QVL_TRIAL_LOG_STORE_H_

#include <cstddef>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "entries/log_time.h"
#include "entries/raw_log_entry.h"
#include "platform/status.h"

namespace qvl {

/// The time that new entries and repeated events are stamped with.
using LogClock = std::function<LogTime()>;

/// The wall clock's time in the process's time zone, as the log counts it. Not for several threads
/// at once.
LogTime WallLogTime();

/// What the service itself writes into the log: class 33 (docs/formats/record.md).
inline constexpr std::uint16_t kMaintenanceClass = 33;
inline constexpr std::uint16_t kLogClearedCode = 1;
inline constexpr std::uint16_t kMaintenanceNoteCode = 2;

/// A machine's log: the entries of a .qvx file, by ascending number, kept in memory and written
/// back after every change. A change first makes a new file beside the old one (its name and
/// ".new") and then renames it, so that a crash leaves the one or the other, whole. For any number
/// of threads of one process; no second process may change the file meanwhile.
/// An operation that cannot write the file fails and changes nothing.
class LogStore {
 public:
  explicit LogStore(LogClock clock = &WallLogTime) : clock_(std::move(clock)) {}

  /// Loads a file, which must exist. Entries are sorted by number; of several with one number the
  /// last one in the file stands.
  Status Open(const std::string& path);

  /// The entry with the smallest number that is not below `number`. Returns false if none.
  bool ReadFrom(std::uint32_t number, RawLogEntry& entry) const;

  /// Removes every entry and writes the log-cleared entry with the user's name (cut at 227
  /// bytes). It takes the number after the highest one: numbers go on over a clear, so that a
  /// reader that was in the middle does not take new entries for those it has. Only when the
  /// highest number there is was given does it begin again, with 1.
  Status Clear(std::string_view userName);

  /// Adds a maintenance note (cut at 227 bytes) with the next number. Fails when every number is
  /// given; so does Log.
  Status WriteNote(std::string_view text);

  /// Sets the severity to repaired and leaves both times as they are: they tell when the event
  /// occurred. `marked` is false for a number that the log does not have, and for an entry whose
  /// severity cannot be marked.
  Status MarkRepaired(std::uint32_t number, bool& marked);

  /// Adds an event under the next number with the clock's time and count 1; number, times and
  /// count of `event` are not used. When an entry of the same class, code and data stands there
  /// that is not repaired, its count and update time change instead.
  Status Log(const RawLogEntry& event);

  /// The event with the highest number that is neither repaired nor written by the service itself.
  /// Returns false if none.
  bool NewestEvent(RawLogEntry& event) const;

  std::size_t size() const;

 private:
  RawLogEntry NewEntry(const RawLogEntry& event, std::uint32_t number) const;
  Status Add(const RawLogEntry& event, std::vector<RawLogEntry> entries);
  Status Replace(std::vector<RawLogEntry> entries);

  LogClock clock_;
  std::string path_;
  mutable std::mutex mutex_;
  std::vector<RawLogEntry> entries_;  ///< by ascending number, guarded by mutex_
  std::uint32_t highest_ = 0;         ///< number given so far, guarded by mutex_
};

}  // namespace qvl

#endif  // QVL_TRIAL_LOG_STORE_H_
