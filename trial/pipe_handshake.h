#ifndef QVL_TRIAL_PIPE_HANDSHAKE_H_
#define QVL_TRIAL_PIPE_HANDSHAKE_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "trial/wire.h"

namespace qvl {

/// How smbd hands a client's connection of a named pipe to the process behind the pipe's socket:
/// one request that says who the client is, one reply, then messages with their length before them.
/// The layout is that of Samba's named_pipe_auth.idl, level 7, which Samba 4.17 speaks; a smbd with
/// another level is refused.

/// Bytes of the request's length field, which is big-endian and does not count itself.
inline constexpr std::size_t kHandshakeLengthSize = 4;
/// A request is some hundred bytes and grows with the groups of the user.
inline constexpr std::size_t kLongestHandshake = std::size_t{64} * 1024;

/// The length that a request's first four bytes tell; nothing when it is out of bounds.
std::optional<std::size_t> HandshakeLength(WireBytes lengthField);

struct PipeClient {
  std::string account;  ///< empty when the request does not tell
  std::string domain;
};

/// Reads a whole request, its length field included. Nothing when it is not one of level 7.
std::optional<PipeClient> ParseHandshake(WireBytes request);

/// What is answered to a request that was understood: a pipe in message mode.
std::vector<std::uint8_t> HandshakeReply();

}  // namespace qvl

#endif  // QVL_TRIAL_PIPE_HANDSHAKE_H_
