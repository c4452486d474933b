#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <span>
#include <thread>
#include <utility>

#include "access/remote_call_codec.h"
#include "access/remote_call_frames.h"
#include "access/remote_call_helper/frame_service.h"
#include "access/remote_call_helper/read_ahead.h"
#include "access/remote_call_helper/samba_connection.h"

namespace qvl {
namespace {

// While a call blocks nobody reads the socket. This thread, which touches nothing of Samba's, ends
// the process when the program is gone or has had enough, in the middle of whatever it is doing.
void EndWithProgram(int socket) {
  pollfd program = {.fd = socket, .events = POLLRDHUP, .revents = 0};
  while (::poll(&program, 1, -1) < 0 && errno == EINTR) {
  }
  ::_exit(0);
}

bool Receive(int socket, FrameBytes& message) {
  ssize_t size = 0;
  do {
    size = ::recv(socket, message.bytes.data(), message.bytes.size(), MSG_TRUNC);
  } while (size < 0 && errno == EINTR);
  if (size <= 0 || static_cast<std::size_t>(size) > message.bytes.size()) return false;
  message.size = static_cast<std::size_t>(size);
  return true;
}

bool Send(int socket, const Frame& frame, FrameBytes& message) {
  if (!EncodeFrame(frame, message)) return false;
  ssize_t sent = 0;
  do {
    sent = ::send(socket, message.bytes.data(), message.size, MSG_NOSIGNAL);
  } while (sent < 0 && errno == EINTR);
  return sent == static_cast<ssize_t>(message.size);
}

Frame AnswerConnect(SambaConnection& connection, const Frame& question) {
  const std::string machine(question.payload.begin(), question.payload.end());
  const RemoteStatus status = connection.Connect(machine);
  return {.kind = status == kRemoteOk ? FrameKind::kConnected : FrameKind::kFailed, .code = status};
}

Frame FrameOf(const CallResult& result) {
  switch (result.end) {
    case CallEnd::kReturned:
      return {.kind = FrameKind::kReturned, .payload = result.reply};
    case CallEnd::kRefused:
      return {.kind = FrameKind::kFailed, .code = result.status};
    case CallEnd::kLost:
      break;
  }
  return {.kind = FrameKind::kLost, .code = result.status};
}

CallResult CallMachine(SambaConnection& connection, std::uint32_t procedure,
                       std::span<const std::uint8_t> request) {
  const auto begun = ReadAhead::Clock::now();
  CallResult result = connection.Call(procedure, request);
  result.took = ReadAhead::Clock::now() - begun;
  return result;
}

// Calls the machine, or hands out what was fetched from it. Returns false when the program is gone.
bool AnswerCall(int socket, SambaConnection& connection, ReadAhead& ahead, const Frame& question,
                CallResult& result) {
  const bool fetchedBefore = ahead.holds();
  std::optional<CallResult> fetched =
      ahead.Take(question.code, question.payload, ReadAhead::Clock::now());
  if (fetched.has_value()) {
    result = std::move(*fetched);
    return true;
  }
  // The program may have waited for a fetch that it has no use for. Its call begins now.
  FrameBytes message;
  if (fetchedBefore && !Send(socket, {.kind = FrameKind::kStarted}, message)) return false;
  result = CallMachine(connection, question.code, question.payload);
  return true;
}

void Fetch(SambaConnection& connection, ReadAhead& ahead, std::uint32_t number) {
  const StubData request = EncodeReadLogEntry(number, 0);
  CallResult result = CallMachine(
      connection, static_cast<std::uint32_t>(RemoteProcedure::kReadLogEntry), request.View());
  ahead.Keep(number, std::move(result), ReadAhead::Clock::now());
}

// Returns false when the program is gone.
bool ServeCall(int socket, SambaConnection& connection, ReadAhead& ahead, const Frame& question) {
  CallResult result;
  FrameBytes message;
  if (!AnswerCall(socket, connection, ahead, question, result)) return false;
  if (!Send(socket, FrameOf(result), message)) return false;
  const auto next = ahead.Next(question.code, question.payload, result);
  if (next.has_value()) Fetch(connection, ahead, *next);
  return true;
}

}  // namespace

int ServeFrames(int socket) {
  std::thread(EndWithProgram, socket).detach();
  SambaConnection connection;
  ReadAhead ahead;
  FrameBytes message;
  FrameBytes reply;
  while (Receive(socket, message)) {
    Frame question;
    if (!DecodeFrame({message.bytes.data(), message.size}, question)) return 1;
    bool served = false;
    if (question.kind == FrameKind::kConnect) {
      served = Send(socket, AnswerConnect(connection, question), reply);
    } else if (question.kind == FrameKind::kCall) {
      served = ServeCall(socket, connection, ahead, question);
    }
    if (!served) return 1;
  }
  return 0;
}

}  // namespace qvl
