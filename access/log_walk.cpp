#include "access/log_walk.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <string_view>
#include <vector>

namespace qvl {
namespace {

std::size_t HashOf(const RawLogEntry& record) {
  return std::hash<std::string_view>()(
      std::string_view(reinterpret_cast<const char*>(&record), sizeof record));
}

}  // namespace

WalkResult WalkLog(RemoteMonitorClient& client,
                   const std::function<bool(const RawLogEntry&)>& take) {
  std::vector<std::size_t> seen;  // a number for each record: a log may be long
  for (std::uint32_t asked = 0;;) {
    std::uint8_t entryStatus = ENTRY_STATUS_NONE;
    std::int32_t entryCount = 0;
    RawLogEntry record{};
    const RemoteStatus status = client.ReadEntry(asked, 0, entryStatus, entryCount, record);
    if (status != kRemoteOk) {
      return {.end = seen.empty() ? WalkEnd::kFirstReadFailed : WalkEnd::kLaterReadFailed,
              .status = status};
    }
    if (entryStatus == ENTRY_STATUS_NONE || entryCount <= 0) return {.end = WalkEnd::kEndOfLog};

    const std::size_t hash = HashOf(record);
    const bool fellBack = record.entryNumber < asked;
    const bool repeated = fellBack && std::find(seen.begin(), seen.end(), hash) != seen.end();
    if (!repeated && !take(record)) return {.end = WalkEnd::kStopped};
    seen.push_back(hash);
    if (fellBack) {
      return {.end = WalkEnd::kNumberFellBack, .asked = asked, .delivered = record.entryNumber};
    }
    if (record.entryNumber == std::numeric_limits<std::uint32_t>::max()) {
      return {.end = WalkEnd::kEndOfLog};
    }
    asked = record.entryNumber + 1;
  }
}

}  // namespace qvl
