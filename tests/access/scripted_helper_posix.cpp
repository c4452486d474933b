// Plays the helper's part in a test. $QVL_TEST_STEPS lists what it does at each frame it gets, in
// turn: connected, returned:HEX, failed:STATUS, lost:STATUS, started, misfit, garbage, oversize,
// silent, busy:MILLISECONDS, die. Several at one frame are joined with +. Each start and each frame
// is a line in the file $QVL_TEST_TRACE.
#include <dirent.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "access/remote_call_frames.h"

namespace {

using qvl::Frame;
using qvl::FrameKind;
using Bytes = std::vector<std::uint8_t>;

std::string Descriptors() {
  std::set<std::string> names;
  DIR* folder = ::opendir("/proc/self/fd");
  const std::string own = std::to_string(::dirfd(folder));
  while (const dirent* each = ::readdir(folder)) {
    if (each->d_name[0] != '.' && each->d_name != own) names.insert(each->d_name);
  }
  ::closedir(folder);
  std::string text;
  for (const std::string& name : names) text += ' ' + name;
  return text;
}

void Trace(const std::string& line) {
  std::ofstream(std::getenv("QVL_TEST_TRACE"), std::ios::app) << line << '\n';
}

std::string Hex(std::span<const std::uint8_t> bytes) {
  std::string text;
  for (const std::uint8_t each : bytes) {
    text += "0123456789abcdef"[each >> 4U];
    text += "0123456789abcdef"[each & 15U];
  }
  return text;
}

Bytes FromHex(const std::string& text) {
  Bytes bytes;
  for (std::size_t i = 0; i + 1 < text.size(); i += 2) {
    bytes.push_back(static_cast<std::uint8_t>(std::stoul(text.substr(i, 2), nullptr, 16)));
  }
  return bytes;
}

std::string Described(const Frame& frame) {
  if (frame.kind == FrameKind::kConnect) {
    return "connect " + std::string(frame.payload.begin(), frame.payload.end());
  }
  return "call " + std::to_string(frame.code) + ' ' + Hex(frame.payload);
}

void SendBytes(const Bytes& bytes) {
  ::send(qvl::kHelperSocket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
}

void SendFrame(const Frame& frame) {
  qvl::FrameBytes encoded;
  qvl::EncodeFrame(frame, encoded);
  SendBytes({encoded.bytes.begin(), encoded.bytes.begin() + static_cast<long>(encoded.size)});
}

void Play(const std::string& step) {
  const std::size_t colon = std::min(step.find(':'), step.size());
  const std::string verb = step.substr(0, colon);
  const std::string value = step.substr(std::min(colon + 1, step.size()));
  const auto status = [&value] { return static_cast<std::uint32_t>(std::stoul(value)); };
  if (verb == "connected") SendFrame({.kind = FrameKind::kConnected});
  if (verb == "failed") SendFrame({.kind = FrameKind::kFailed, .code = status()});
  if (verb == "lost") SendFrame({.kind = FrameKind::kLost, .code = status()});
  if (verb == "started") SendFrame({.kind = FrameKind::kStarted});
  if (verb == "busy") std::this_thread::sleep_for(std::chrono::milliseconds(status()));
  if (verb == "misfit") SendFrame({.kind = FrameKind::kCall});
  if (verb == "garbage") SendBytes({'h', 'e', 'l', 'l', 'o'});
  if (verb == "oversize") SendBytes(Bytes(qvl::kLargestFrame + 1, 0));
  if (verb == "die") ::_exit(3);
  if (verb == "returned") {
    const Bytes payload = FromHex(value);
    SendFrame({.kind = FrameKind::kReturned, .payload = payload});
  }
}

}  // namespace

int main() {
  Trace("start" + Descriptors());
  std::istringstream steps(std::getenv("QVL_TEST_STEPS"));
  std::array<std::uint8_t, qvl::kLargestFrame + 1> buffer{};
  for (;;) {
    const ssize_t size = ::recv(qvl::kHelperSocket, buffer.data(), buffer.size(), 0);
    if (size <= 0) break;
    Frame frame;
    const bool good = qvl::DecodeFrame({buffer.data(), static_cast<std::size_t>(size)}, frame);
    Trace(good ? Described(frame) : "no frame");
    std::string joined;
    steps >> joined;
    std::istringstream parts(joined);
    for (std::string step; std::getline(parts, step, '+');) Play(step);
  }
  Trace("end");
  return 0;
}
