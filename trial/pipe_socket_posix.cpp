#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <system_error>

#include "trial/ntlm_helper.h"
#include "trial/pipe_handshake.h"
#include "trial/pipe_socket.h"
#include "trial/rpc_connection.h"

namespace qvl {
namespace {

// A program that connects and says nothing must not keep its thread for ever.
constexpr time_t kHandshakeSeconds = 30;
constexpr int kBacklog = 16;
constexpr std::size_t kLengthSize = 2;

Status Failure(const std::string& operation, const std::string& path, int error) {
  return Status::Failed("cannot " + operation + " '" + path +
                        "': " + std::generic_category().message(error));
}

bool SendAll(int descriptor, WireBytes bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::send(descriptor, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return false;
    bytes = bytes.subspan(static_cast<std::size_t>(count));
  }
  return true;
}

/// Reads in large pieces what is asked for in small ones.
class BufferedSocket {
 public:
  explicit BufferedSocket(int descriptor) : descriptor_(descriptor) {}

  bool ReadAll(std::span<std::uint8_t> into) {
    while (!into.empty()) {
      if (begin_ == end_ && !Fill()) return false;
      const std::size_t count = std::min(into.size(), end_ - begin_);
      std::memcpy(into.data(), buffer_.data() + begin_, count);
      begin_ += count;
      into = into.subspan(count);
    }
    return true;
  }

 private:
  bool Fill() {
    ssize_t count = 0;
    do {
      count = ::recv(descriptor_, buffer_.data(), buffer_.size(), 0);
    } while (count < 0 && errno == EINTR);
    if (count <= 0) return false;
    begin_ = 0;
    end_ = static_cast<std::size_t>(count);
    return true;
  }

  int descriptor_;
  std::array<std::uint8_t, 8192> buffer_;
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
};

void SetReceiveTimeout(int descriptor, time_t seconds) {
  timeval timeout = {};
  timeout.tv_sec = seconds;
  ::setsockopt(descriptor, SOL_SOCKET, SO_RCVTIMEO, &timeout, sizeof timeout);
}

bool ShakeHands(int descriptor, BufferedSocket& socket, Caller& caller) {
  SetReceiveTimeout(descriptor, kHandshakeSeconds);
  std::vector<std::uint8_t> request(kHandshakeLengthSize);
  if (!socket.ReadAll(request)) return false;
  const std::optional<std::size_t> length = HandshakeLength(request);
  if (!length) return false;
  request.resize(kHandshakeLengthSize + *length);
  if (!socket.ReadAll(std::span(request).subspan(kHandshakeLengthSize))) return false;
  const std::optional<PipeClient> client = ParseHandshake(request);
  if (!client || !SendAll(descriptor, HandshakeReply())) return false;
  if (!client->account.empty()) caller.name = client->domain + "\\" + client->account;
  caller.authentication = "smb";
  SetReceiveTimeout(descriptor, 0);
  return true;
}

bool SendMessages(int descriptor, const std::vector<std::vector<std::uint8_t>>& messages) {
  for (const std::vector<std::uint8_t>& message : messages) {
    WireWriter out;
    out.Add(static_cast<std::uint16_t>(message.size()));
    out.AddBytes(message);
    if (!SendAll(descriptor, out.bytes())) return false;
  }
  return true;
}

// A service that died leaves its socket, and nobody can listen there any more.
Status RemoveDeadSocket(const sockaddr_un& address) {
  struct stat properties = {};
  if (::lstat(address.sun_path, &properties) != 0) return Status::Ok();
  if (!S_ISSOCK(properties.st_mode)) return Failure("listen at", address.sun_path, EEXIST);
  const int probe = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (probe < 0) return Failure("make a socket for", address.sun_path, errno);
  const bool lives =
      ::connect(probe, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
  ::close(probe);
  if (lives) {
    return Status::Failed(std::string("another service listens at '") + address.sun_path + "'");
  }
  if (::unlink(address.sun_path) != 0) return Failure("remove", address.sun_path, errno);
  return Status::Ok();
}

}  // namespace

Status ListenAt(const std::string& path, int& descriptor) {
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  if (path.size() >= sizeof address.sun_path) {
    return Status::Failed("the path of the socket is too long: '" + path + "'");
  }
  std::memcpy(address.sun_path, path.data(), path.size());
  Status status = RemoveDeadSocket(address);
  if (!status.ok()) return status;
  descriptor = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (descriptor < 0) return Failure("make a socket for", path, errno);
  const mode_t before = ::umask(0177);
  const bool listens =
      ::bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
      ::listen(descriptor, kBacklog) == 0;
  const int error = errno;
  ::umask(before);
  if (listens) return Status::Ok();
  ::close(descriptor);
  descriptor = -1;
  return Failure("listen at", path, error);
}

void ServePipe(int descriptor, TrialService& service, const TrialOptions& options) {
  BufferedSocket socket(descriptor);
  Caller caller;
  if (!ShakeHands(descriptor, socket, caller)) return;
  RpcConnection connection(service, options, std::move(caller), MakeNtlmLogon(options.ntlmHelper));
  std::vector<std::uint8_t> message;
  std::vector<std::vector<std::uint8_t>> replies;
  for (;;) {
    std::array<std::uint8_t, kLengthSize> length{};
    if (!socket.ReadAll(length)) return;
    message.resize(static_cast<std::size_t>(length[0]) | static_cast<std::size_t>(length[1]) << 8U);
    if (!socket.ReadAll(message)) return;
    replies.clear();
    const RpcConnection::After after = connection.Take(message, replies);
    if (after == RpcConnection::After::kDie) ::_exit(1);
    if (!SendMessages(descriptor, replies) || after == RpcConnection::After::kClose) return;
  }
}

}  // namespace qvl
