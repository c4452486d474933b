#ifndef QVL_ACCESS_REMOTE_CALL_FRAMES_H_
#define QVL_ACCESS_REMOTE_CALL_FRAMES_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "access/remote_status.h"

namespace qvl {

/// What the program and its helper (zlkqvxv-rpc) say to each other. Each frame is one message of a
/// SOCK_SEQPACKET socket: 16 bytes of little-endian numbers (magic, version, kind, code, length),
/// then the payload. The program asks, the helper answers once; it sends nothing else but, where it
/// was busy with work of its own, one kStarted before the answer.
enum class FrameKind : std::uint16_t {
  kConnect = 1,    ///< asks; payload: the machine's name
  kCall = 2,       ///< asks; code: the procedure; payload: its parameters
  kConnected = 3,  ///< answers kConnect
  kReturned = 4,   ///< answers kCall; payload: what the procedure returned
  kFailed = 5,     ///< answers either; code: a status; the connection stands if it stood
  kLost = 6,       ///< answers kCall; code: a status; the connection is gone
  kStarted = 7,    ///< the question is taken up only now; the time for it begins anew
};

/// Room for the longest machine name and the largest call with some to spare.
inline constexpr std::size_t kFrameHeaderSize = 16;
inline constexpr std::size_t kLargestPayload = 1024;
inline constexpr std::size_t kLargestFrame = kFrameHeaderSize + kLargestPayload;
inline constexpr std::size_t kLongestMachineName = 255;

/// The helper's descriptor of its end of the socket.
inline constexpr int kHelperSocket = 3;

struct Frame {
  FrameKind kind = FrameKind::kFailed;
  std::uint32_t code = 0;
  std::span<const std::uint8_t> payload = {};
};

/// A frame's bytes, in place.
struct FrameBytes {
  std::array<std::uint8_t, kLargestFrame> bytes{};
  std::size_t size = 0;
};

/// Writes a frame. Returns false for a payload above kLargestPayload.
bool EncodeFrame(const Frame& frame, FrameBytes& encoded);

/// Reads one message. The payload lies within `message`.
/// Returns false for another magic or version, a kind that is not listed, or a length that is not
/// the message's own.
bool DecodeFrame(std::span<const std::uint8_t> message, Frame& frame);

/// What an answer means to the one who asked for `kind`. An answer that does not fit the question,
/// or a failure without a status, is `misfit`.
/// lost  set when the helper is of no further use.
RemoteStatus StatusOfAnswer(FrameKind asked, const Frame& answer, RemoteStatus misfit, bool& lost);

}  // namespace qvl

#endif  // QVL_ACCESS_REMOTE_CALL_FRAMES_H_
