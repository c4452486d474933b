#ifndef QVL_ENTRIES_RAW_LOG_ENTRY_H_
#define QVL_ENTRIES_RAW_LOG_ENTRY_H_

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "entries/event_data.h"
#include "entries/log_time.h"

namespace qvl {

static_assert(std::endian::native == std::endian::little,
              "a record is little-endian and is read in place");

#pragma pack(push, 1)
/// One record of the log: 256 bytes, little-endian, unaligned, exactly as a machine delivers it
/// and as a log file stores it (docs/formats/record.md). The two reserved fields are carried
/// unchanged.
struct RawLogEntry {
  std::array<std::uint8_t, 2> reserved0;
  std::uint32_t entryNumber;
  std::uint8_t reserved6;
  std::uint8_t severity;
  std::uint16_t eventClass;
  std::uint16_t eventCode;
  LogTime initialTime;
  LogTime updateTime;
  std::uint32_t count;
  std::array<std::uint8_t, EventData::kSize> data;
};
#pragma pack(pop)

static_assert(sizeof(RawLogEntry) == 256);
static_assert(std::is_trivially_copyable_v<RawLogEntry>);
static_assert(offsetof(RawLogEntry, entryNumber) == 2);
static_assert(offsetof(RawLogEntry, severity) == 7);
static_assert(offsetof(RawLogEntry, eventClass) == 8);
static_assert(offsetof(RawLogEntry, eventCode) == 10);
static_assert(offsetof(RawLogEntry, initialTime) == 12);
static_assert(offsetof(RawLogEntry, updateTime) == 18);
static_assert(offsetof(RawLogEntry, count) == 24);
static_assert(offsetof(RawLogEntry, data) == 28);

}  // namespace qvl

#endif  // QVL_ENTRIES_RAW_LOG_ENTRY_H_
