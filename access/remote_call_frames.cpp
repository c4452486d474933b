#include "access/remote_call_frames.h"

#include <algorithm>
#include <cstring>

namespace qvl {
namespace {

constexpr std::uint32_t kMagic = 0x52565A51;  // "QZVR"
constexpr std::uint16_t kVersion = 1;

struct Header {
  std::uint32_t magic;
  std::uint16_t version;
  std::uint16_t kind;
  std::uint32_t code;
  std::uint32_t length;
};
static_assert(sizeof(Header) == kFrameHeaderSize);

bool Listed(std::uint16_t kind) {
  return kind >= static_cast<std::uint16_t>(FrameKind::kConnect) &&
         kind <= static_cast<std::uint16_t>(FrameKind::kStarted);
}

}  // namespace

bool EncodeFrame(const Frame& frame, FrameBytes& encoded) {
  if (frame.payload.size() > kLargestPayload) return false;
  const Header header = {kMagic, kVersion, static_cast<std::uint16_t>(frame.kind), frame.code,
                         static_cast<std::uint32_t>(frame.payload.size())};
  std::memcpy(encoded.bytes.data(), &header, sizeof header);
  std::copy(frame.payload.begin(), frame.payload.end(), encoded.bytes.begin() + sizeof header);
  encoded.size = sizeof header + frame.payload.size();
  return true;
}

bool DecodeFrame(std::span<const std::uint8_t> message, Frame& frame) {
  Header header{};
  if (message.size() < sizeof header || message.size() > kLargestFrame) return false;
  std::memcpy(&header, message.data(), sizeof header);
  if (header.magic != kMagic || header.version != kVersion || !Listed(header.kind)) return false;
  if (header.length != message.size() - sizeof header) return false;
  frame.kind = static_cast<FrameKind>(header.kind);
  frame.code = header.code;
  frame.payload = message.subspan(sizeof header);
  return true;
}

RemoteStatus StatusOfAnswer(FrameKind asked, const Frame& answer, RemoteStatus misfit, bool& lost) {
  const FrameKind success =
      asked == FrameKind::kConnect ? FrameKind::kConnected : FrameKind::kReturned;
  lost = answer.kind != success && answer.kind != FrameKind::kFailed;
  if (answer.kind == success) return kRemoteOk;
  const bool failure = answer.kind == FrameKind::kFailed || answer.kind == FrameKind::kLost;
  if (failure && answer.code != kRemoteOk) return answer.code;
  lost = true;
  return misfit;
}

}  // namespace qvl
