#ifndef QVL_TESTS_TRIAL_TRIAL_FIXTURES_H_
#define QVL_TESTS_TRIAL_TRIAL_FIXTURES_H_

#include <array>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "entries/event_description.h"
#include "entries/raw_log_entry.h"
#include "entries/severity.h"
#include "tests/files/file_fixtures.h"
#include "trial/log_store.h"

namespace qvl::testing {

/// Bytes of a log file.
inline std::string LogBytes(const std::vector<RawLogEntry>& entries) {
  std::string bytes = "Zelkor QVX Log v1.0";
  for (const RawLogEntry& entry : entries) {
    bytes.append(reinterpret_cast<const char*>(&entry), sizeof entry);
    bytes.append(sizeof entry, '\0');
  }
  return bytes;
}

/// An event that can be repaired.
inline RawLogEntry Event(std::uint32_t number, std::string_view data = "fan") {
  RawLogEntry entry = Record(number, 2, 7, data);
  entry.severity = kCaution;
  entry.initialTime = {20, 26, 1, 2, 3, 4};
  entry.updateTime = {20, 26, 1, 2, 3, 5};
  entry.count = 1;
  return entry;
}

inline std::string Description(const RawLogEntry& entry) {
  std::array<char, 350> text{};
  FormatEventDescription(entry.eventClass, entry.eventCode, EventData(entry.data), text.data(),
                         text.size());
  return text.data();
}

inline bool SameBytes(const RawLogEntry& a, const RawLogEntry& b) {
  return std::memcmp(&a, &b, sizeof a) == 0;
}

inline constexpr LogTime kNoon = {20, 26, 11, 21, 12, 0};

}  // namespace qvl::testing

#endif  // QVL_TESTS_TRIAL_TRIAL_FIXTURES_H_
