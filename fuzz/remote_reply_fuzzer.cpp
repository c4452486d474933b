// Whatever a machine or the helper sends is either read whole or refused, with the outputs as they
// were. The first byte chooses who reads the rest.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <span>

#include "access/remote_call_codec.h"
#include "access/remote_call_frames.h"
#include "access/remote_call_helper/read_ahead.h"

namespace {

using qvl::RemoteStatus;
using Bytes = std::span<const std::uint8_t>;

constexpr std::uint8_t kMark = 0xA5;

void Check(bool good) {
  if (!good) std::abort();
}

void ReadEntry(Bytes reply) {
  std::uint8_t entryStatus = kMark;
  std::int32_t count = kMark;
  qvl::RawLogEntry record;
  std::memset(&record, kMark, sizeof record);
  const qvl::RawLogEntry before = record;
  const RemoteStatus status = qvl::DecodeReadLogEntry(reply, entryStatus, count, record);
  if (reply.size() == qvl::kLargestStub) {
    Check(std::memcmp(&record, reply.data() + 8, sizeof record) == 0);
    return;
  }
  Check(status == qvl::kBadStubData && entryStatus == kMark && count == kMark);
  Check(std::memcmp(&record, &before, sizeof record) == 0);
}

void ReadLong(Bytes reply) {
  std::int32_t value = kMark;
  const RemoteStatus status = qvl::DecodeQueryAdministratorAccess(reply, value);
  if (reply.size() != 8) Check(status == qvl::kBadStubData && value == kMark);
}

void ReadNote(Bytes reply) {
  std::uint8_t written = kMark;
  std::int32_t result = kMark;
  const RemoteStatus status = qvl::DecodeRemoteWriteMaintenanceNote(reply, written, result);
  if (reply.size() != 12) Check(status == qvl::kBadStubData && written == kMark && result == kMark);
}

void ReadByte(Bytes reply, RemoteStatus (*decode)(Bytes, std::uint8_t&)) {
  std::uint8_t value = kMark;
  const RemoteStatus status = decode(reply, value);
  if (reply.size() == 8) Check(value == reply[0]);
  if (reply.size() != 8) Check(status == qvl::kBadStubData && value == kMark);
}

void ReadFrame(Bytes message) {
  qvl::Frame frame;
  if (!qvl::DecodeFrame(message, frame)) return;
  Check(frame.payload.size() + qvl::kFrameHeaderSize == message.size());
  qvl::FrameBytes again;
  Check(qvl::EncodeFrame(frame, again) && again.size == message.size());
  Check(std::memcmp(again.bytes.data(), message.data(), message.size()) == 0);
  bool lost = false;
  const RemoteStatus status =
      qvl::StatusOfAnswer(qvl::FrameKind::kCall, frame, qvl::kCallFailed, lost);
  Check((status == qvl::kRemoteOk) == (frame.kind == qvl::FrameKind::kReturned));
}

// A walk over whatever two answers come never fetches from below what was asked for.
void ReadAhead(Bytes replies) {
  const Bytes first = replies.first(std::min(replies.size(), qvl::kLargestStub));
  const Bytes second = replies.subspan(first.size());
  std::uint32_t asked = 0;
  if (first.size() == qvl::kLargestStub) std::memcpy(&asked, &first[10], sizeof asked);
  ++asked;

  qvl::ReadAhead ahead;
  const auto procedure = static_cast<std::uint32_t>(qvl::RemoteProcedure::kReadLogEntry);
  ahead.Next(procedure, qvl::EncodeReadLogEntry(0, 0).View(),
             {
                 .end = qvl::CallEnd::kReturned, .reply = {first.begin(), first.end()}
  });
  const auto next =
      ahead.Next(procedure, qvl::EncodeReadLogEntry(asked, 0).View(),
                 {
                     .end = qvl::CallEnd::kReturned, .reply = {second.begin(), second.end()}
  });
  if (next.has_value()) Check(*next > asked && second.size() == qvl::kLargestStub);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  // On the heap and of the exact size, so that the sanitizer sees a read beside it.
  const std::unique_ptr<std::uint8_t[]> exact(new std::uint8_t[size - 1]);
  std::memcpy(exact.get(), data + 1, size - 1);
  const Bytes bytes(exact.get(), size - 1);
  switch (data[0] % 8) {
    case 0:
      ReadLong(bytes);
      break;
    case 1:
      ReadEntry(bytes);
      break;
    case 2:
      ReadByte(bytes, &qvl::DecodeRemoteClearLog);
      break;
    case 3:
      ReadNote(bytes);
      break;
    case 4:
      ReadFrame(bytes);
      break;
    case 5:
      ReadByte(bytes, &qvl::DecodeQueryLogPresent);
      break;
    case 6:
      ReadByte(bytes, &qvl::DecodeMarkEntryRepaired);
      break;
    default:
      ReadAhead(bytes);
      break;
  }
  return 0;
}
