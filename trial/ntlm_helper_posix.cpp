#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <string_view>

#include "trial/base64.h"
#include "trial/ntlm_helper.h"

extern char** environ;

namespace qvl {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds kLongestStep{20};
constexpr std::size_t kLongestLine = std::size_t{64} * 1024;

// A child with one end of a socket pair as its standard input and output.
pid_t Spawn(const std::string& program, int channel) {
  std::string name = program;
  std::string protocol = "--helper-protocol=squid-2.5-ntlmssp";
  std::array<char*, 3> arguments = {name.data(), protocol.data(), nullptr};
  posix_spawn_file_actions_t actions;
  ::posix_spawn_file_actions_init(&actions);
  ::posix_spawn_file_actions_adddup2(&actions, channel, STDIN_FILENO);
  ::posix_spawn_file_actions_adddup2(&actions, channel, STDOUT_FILENO);
  // The server holds some signals back, and a child would inherit that.
  posix_spawnattr_t attributes;
  ::posix_spawnattr_init(&attributes);
  sigset_t none;
  ::sigemptyset(&none);
  ::posix_spawnattr_setsigmask(&attributes, &none);
  ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK);
  pid_t child = -1;
  const int error =
      ::posix_spawnp(&child, program.c_str(), &actions, &attributes, arguments.data(), environ);
  ::posix_spawnattr_destroy(&attributes);
  ::posix_spawn_file_actions_destroy(&actions);
  return error == 0 ? child : -1;
}

class HelperLogon : public NtlmLogon {
 public:
  explicit HelperLogon(std::string program) : program_(std::move(program)) {}
  ~HelperLogon() override { End(); }
  HelperLogon(const HelperLogon&) = delete;
  HelperLogon& operator=(const HelperLogon&) = delete;

  bool Challenge(WireBytes negotiate, std::vector<std::uint8_t>& challenge) override {
    std::string answer;
    const bool asked = Start() && Ask("YR " + ToBase64(negotiate) + "\n", answer);
    if (asked && answer.starts_with("TT ") && FromBase64(answer.substr(3), challenge)) return true;
    End();
    return false;
  }

  bool Verify(WireBytes authenticate, std::string& who) override {
    std::string answer;
    const bool asked = channel_ >= 0 && Ask("KK " + ToBase64(authenticate) + "\n", answer);
    End();
    if (!asked || !answer.starts_with("AF ")) return false;
    who = answer.substr(3);
    return true;
  }

 private:
  bool Start() {
    std::array<int, 2> pair{};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, pair.data()) != 0) return false;
    channel_ = pair[0];
    child_ = Spawn(program_, pair[1]);
    ::close(pair[1]);
    return child_ > 0;
  }

  // One line there, one line back.
  bool Ask(std::string_view line, std::string& answer) {
    const Clock::time_point deadline = Clock::now() + kLongestStep;
    while (!line.empty()) {
      const ssize_t count = ::send(channel_, line.data(), line.size(), MSG_NOSIGNAL);
      if (count < 0 && errno == EINTR) continue;
      if (count <= 0) return false;
      line.remove_prefix(static_cast<std::size_t>(count));
    }
    while (answer.size() < kLongestLine && WaitReadable(deadline)) {
      std::array<char, 4096> buffer;
      const ssize_t count = ::read(channel_, buffer.data(), buffer.size());
      if (count < 0 && errno == EINTR) continue;
      if (count <= 0) return false;
      answer.append(buffer.data(), static_cast<std::size_t>(count));
      if (answer.back() != '\n') continue;
      answer.pop_back();
      return true;
    }
    return false;
  }

  bool WaitReadable(Clock::time_point deadline) const {
    for (;;) {
      const auto left =
          std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
      if (left.count() <= 0) return false;
      pollfd wanted = {channel_, POLLIN, 0};
      const int ready = ::poll(&wanted, 1, static_cast<int>(left.count()));
      if (ready > 0) return true;
      if (ready < 0 && errno != EINTR) return false;
    }
  }

  void End() {
    if (channel_ >= 0) ::close(channel_);
    channel_ = -1;
    if (child_ <= 0) return;
    // It would end by itself with its input, but nobody may wait for one that hangs.
    ::kill(child_, SIGKILL);
    while (::waitpid(child_, nullptr, 0) < 0 && errno == EINTR) {
    }
    child_ = -1;
  }

  std::string program_;
  int channel_ = -1;
  pid_t child_ = -1;
};

}  // namespace

std::unique_ptr<NtlmLogon> MakeNtlmLogon(const std::string& program) {
  return std::make_unique<HelperLogon>(program);
}

}  // namespace qvl
