#include "trial/log_store.h"

#include <algorithm>
#include <filesystem>
#include <limits>
#include <system_error>

#include "entries/entry_list.h"
#include "entries/severity.h"
#include "files/buffered_writer.h"
#include "files/log_file.h"
#include "platform/exclusive_file.h"
#include "platform/local_time.h"

namespace qvl {
namespace {

constexpr std::uint32_t kHighestNumber = std::numeric_limits<std::uint32_t>::max();

bool NumberBelow(const RawLogEntry& entry, std::uint32_t number) {
  return entry.entryNumber < number;
}

bool SameEvent(const RawLogEntry& a, const RawLogEntry& b) {
  return a.eventClass == b.eventClass && a.eventCode == b.eventCode && a.data == b.data;
}

RawLogEntry MaintenanceEvent(std::uint16_t code, std::string_view text) {
  RawLogEntry event{};
  event.severity = kInformational;
  event.eventClass = kMaintenanceClass;
  event.eventCode = code;
  // The last data byte stays the terminating zero.
  std::copy_n(text.begin(), std::min(text.size(), event.data.size() - 1), event.data.begin());
  return event;
}

std::filesystem::path ToPath(const std::string& path) {
  return {std::u8string(path.begin(), path.end())};
}

Status WriteWhole(ExclusiveFile& file, const std::vector<RawLogEntry>& entries) {
  BufferedWriter out(file);
  AppendLogHeader(out);
  for (const RawLogEntry& entry : entries) {
    if (!out.ok()) break;
    AppendLogRecord(entry, out);
  }
  Status status = out.Finish();
  // Renaming a file whose bytes are not on the disk yet may leave an empty log after a crash.
  if (status.ok()) status = file.Flush();
  const Status closed = file.Close();
  return status.ok() ? closed : status;
}

Status WriteBeside(const std::string& path, const std::vector<RawLogEntry>& entries) {
  const std::string beside = path + ".new";
  ExclusiveFile file;
  // What could not be opened is not this program's to remove.
  Status status = file.Open(beside, ExclusiveFile::Mode::kReplace);
  if (!status.ok()) return status;
  status = WriteWhole(file, entries);
  std::error_code error;
  if (status.ok()) {
    std::filesystem::rename(ToPath(beside), ToPath(path), error);
    if (!error) return status;
    status = Status::Failed("cannot rename '" + beside + "': " + error.message());
  }
  std::filesystem::remove(ToPath(beside), error);
  return status;
}

}  // namespace

LogTime WallLogTime() {
  const WallTime now = ToWallTime(Now());
  const auto byte = [](int value) { return static_cast<std::uint8_t>(value); };
  return {byte(now.year / 100), byte(now.year % 100), byte(now.month),
          byte(now.day),        byte(now.hour),       byte(now.minute)};
}

Status LogStore::Open(const std::string& path) {
  EntryList loaded;
  const LogFileResult result = LoadLogFile(path, loaded);
  if (!result.ok()) return Status::Failed("cannot load '" + path + "': " + result.message);
  // By number, and of one number the last one first, which `unique` then keeps.
  std::vector<RawLogEntry> entries;
  entries.reserve(loaded.size());
  for (std::size_t i = loaded.size(); i-- > 0;) entries.push_back(loaded[i].raw());
  std::stable_sort(entries.begin(), entries.end(), [](const RawLogEntry& a, const RawLogEntry& b) {
    return a.entryNumber < b.entryNumber;
  });
  const auto sameNumber = [](const RawLogEntry& a, const RawLogEntry& b) {
    return a.entryNumber == b.entryNumber;
  };
  entries.erase(std::unique(entries.begin(), entries.end(), sameNumber), entries.end());

  const std::lock_guard lock(mutex_);
  path_ = path;
  entries_ = std::move(entries);
  highest_ = entries_.empty() ? 0 : entries_.back().entryNumber;
  return Status::Ok();
}

bool LogStore::ReadFrom(std::uint32_t number, RawLogEntry& entry) const {
  const std::lock_guard lock(mutex_);
  const auto found = std::lower_bound(entries_.begin(), entries_.end(), number, NumberBelow);
  if (found == entries_.end()) return false;
  entry = *found;
  return true;
}

Status LogStore::Clear(std::string_view userName) {
  const std::lock_guard lock(mutex_);
  const std::uint32_t number = highest_ == kHighestNumber ? 1 : highest_ + 1;
  return Replace({NewEntry(MaintenanceEvent(kLogClearedCode, userName), number)});
}

Status LogStore::WriteNote(std::string_view text) {
  const std::lock_guard lock(mutex_);
  return Add(MaintenanceEvent(kMaintenanceNoteCode, text), entries_);
}

Status LogStore::MarkRepaired(std::uint32_t number, bool& marked) {
  marked = false;
  const std::lock_guard lock(mutex_);
  const auto found = std::lower_bound(entries_.begin(), entries_.end(), number, NumberBelow);
  if (found == entries_.end() || found->entryNumber != number) return Status::Ok();
  if (found->severity < kLowestRepairable) return Status::Ok();
  std::vector<RawLogEntry> changed = entries_;
  changed[static_cast<std::size_t>(found - entries_.begin())].severity = kRepaired;
  Status status = Replace(std::move(changed));
  marked = status.ok();
  return status;
}

Status LogStore::Log(const RawLogEntry& event) {
  const std::lock_guard lock(mutex_);
  std::vector<RawLogEntry> changed = entries_;
  // From the newest on: an event that came again after a repair has an entry of its own.
  const auto found = std::find_if(changed.rbegin(), changed.rend(), [&](const RawLogEntry& entry) {
    return entry.severity != kRepaired && SameEvent(entry, event);
  });
  if (found == changed.rend()) return Add(event, std::move(changed));
  if (found->count != std::numeric_limits<std::uint32_t>::max()) ++found->count;
  found->updateTime = clock_();
  return Replace(std::move(changed));
}

bool LogStore::NewestEvent(RawLogEntry& event) const {
  const std::lock_guard lock(mutex_);
  const auto found = std::find_if(entries_.rbegin(), entries_.rend(), [](const RawLogEntry& entry) {
    return entry.severity != kRepaired && entry.eventClass != kMaintenanceClass;
  });
  if (found == entries_.rend()) return false;
  event = *found;
  return true;
}

std::size_t LogStore::size() const {
  const std::lock_guard lock(mutex_);
  return entries_.size();
}

RawLogEntry LogStore::NewEntry(const RawLogEntry& event, std::uint32_t number) const {
  RawLogEntry entry = event;
  entry.entryNumber = number;
  entry.initialTime = clock_();
  entry.updateTime = entry.initialTime;
  entry.count = 1;
  return entry;
}

Status LogStore::Add(const RawLogEntry& event, std::vector<RawLogEntry> entries) {
  if (highest_ == kHighestNumber) return Status::Failed("the log has no number left");
  entries.push_back(NewEntry(event, highest_ + 1));
  return Replace(std::move(entries));
}

Status LogStore::Replace(std::vector<RawLogEntry> entries) {
  Status status = WriteBeside(path_, entries);
  if (!status.ok()) return status;
  entries_ = std::move(entries);
  // The entries ascend, and a change never takes the last one away.
  if (!entries_.empty()) highest_ = entries_.back().entryNumber;
  return status;
}

}  // namespace qvl
