#include "access/remote_call_helper/read_ahead.h"

#include <limits>
#include <utility>

#include "access/remote_call_codec.h"

namespace qvl {
namespace {

std::optional<std::uint32_t> NumberAskedFor(std::uint32_t procedure,
                                            std::span<const std::uint8_t> request) {
  std::uint32_t number = 0;
  const bool read = procedure == static_cast<std::uint32_t>(RemoteProcedure::kReadLogEntry) &&
                    DecodeReadRequest(request, number);
  return read ? std::optional(number) : std::nullopt;
}

// The number that follows the delivered entry's; nothing when the answer ends the walk.
std::optional<std::uint32_t> NumberAfter(std::uint32_t asked, const CallResult& result) {
  std::uint8_t entryStatus = ENTRY_STATUS_NONE;
  std::int32_t entryCount = 0;
  RawLogEntry record{};
  const bool delivered =
      result.end == CallEnd::kReturned &&
      DecodeReadLogEntry(result.reply, entryStatus, entryCount, record) == kRemoteOk &&
      entryStatus != ENTRY_STATUS_NONE && entryCount > 0;
  const std::uint32_t number = record.entryNumber;
  const bool ends = number < asked || number == std::numeric_limits<std::uint32_t>::max();
  return delivered && !ends ? std::optional(number + 1) : std::nullopt;
}

}  // namespace

std::optional<CallResult> ReadAhead::Take(std::uint32_t procedure,
                                          std::span<const std::uint8_t> request,
                                          Clock::time_point now) {
  std::optional<Fetched> fetched = std::exchange(fetched_, std::nullopt);
  const bool fits = fetched.has_value() && now - fetched->returned <= kFresh &&
                    NumberAskedFor(procedure, request) == fetched->number;
  return fits ? std::optional(std::move(fetched->result)) : std::nullopt;
}

std::optional<std::uint32_t> ReadAhead::Next(std::uint32_t procedure,
                                             std::span<const std::uint8_t> request,
                                             const CallResult& result) {
  const std::optional<std::uint32_t> expected = std::exchange(expected_, std::nullopt);
  const std::optional<std::uint32_t> asked = NumberAskedFor(procedure, request);
  if (!asked.has_value()) return std::nullopt;
  expected_ = NumberAfter(*asked, result);
  return asked == expected && result.took <= kQuick ? expected_ : std::nullopt;
}

void ReadAhead::Keep(std::uint32_t number, CallResult result, Clock::time_point returned) {
  fetched_ = Fetched{number, std::move(result), returned};
}

}  // namespace qvl
