#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "access/helper_process.h"
#include "platform/program_part.h"

namespace qvl {
namespace {

using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

constexpr const char* kHelperName = "zlkqvxv-rpc";

// What a shell and the dynamic linker end a program with that could not be loaded.
constexpr int kNotLoaded = 127;

// An idle helper ends within a millisecond; one in the middle of a call is not waited for long.
constexpr milliseconds kGrace{500};

// The attributes and file actions of a spawn, freed together.
class SpawnSettings {
 public:
  SpawnSettings() {
    good_ = ::posix_spawnattr_init(&attributes_) == 0 &&
            ::posix_spawn_file_actions_init(&actions_) == 0;
  }
  ~SpawnSettings() {
    ::posix_spawn_file_actions_destroy(&actions_);
    ::posix_spawnattr_destroy(&attributes_);
  }
  SpawnSettings(const SpawnSettings&) = delete;
  SpawnSettings& operator=(const SpawnSettings&) = delete;

  // The helper gets its socket and nothing else of ours. Its libraries' messages go nowhere: this
  // program's screen and pipes are not theirs.
  bool Prepare(int socket) {
    sigset_t all;
    sigset_t none;
    ::sigfillset(&all);
    ::sigemptyset(&none);
    constexpr auto kFlags =
        static_cast<short>(POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSID);
    good_ = good_ && ::posix_spawnattr_setflags(&attributes_, kFlags) == 0 &&
            ::posix_spawnattr_setsigdefault(&attributes_, &all) == 0 &&
            ::posix_spawnattr_setsigmask(&attributes_, &none) == 0 &&
            ::posix_spawn_file_actions_adddup2(&actions_, socket, kHelperSocket) == 0;
    for (int stream = 0; stream < kHelperSocket; ++stream) {
      good_ = good_ &&
              ::posix_spawn_file_actions_addopen(&actions_, stream, "/dev/null", O_RDWR, 0) == 0;
    }
    return good_ && ::posix_spawn_file_actions_addclosefrom_np(&actions_, kHelperSocket + 1) == 0;
  }

  // Returns an errno value; 0 for success.
  int Spawn(const std::string& program, pid_t& process) {
    std::string name = kHelperName;
    char* arguments[] = {name.data(), nullptr};
    return ::posix_spawn(&process, program.c_str(), &actions_, &attributes_, arguments, environ);
  }

 private:
  posix_spawnattr_t attributes_ = {};
  posix_spawn_file_actions_t actions_ = {};
  bool good_ = false;
};

RemoteStatus StatusOfSpawn(int error) {
  const bool resources = error == ENOMEM || error == EAGAIN || error == EMFILE || error == ENFILE;
  return resources ? kNoMemory : kHelperMissing;
}

// Where the signal of an ended child is ignored, which is inherited from whoever started this
// program, the system collects children by itself: their exit status is lost, and their number goes
// to others before it is used here for the last time.
void KeepEndedChildren() {
  struct sigaction action = {};
  if (::sigaction(SIGCHLD, nullptr, &action) != 0) return;
  const bool ignored = action.sa_handler == SIG_IGN;
  if (!ignored && (action.sa_flags & SA_NOCLDWAIT) == 0) return;
  if (ignored) action.sa_handler = SIG_DFL;
  action.sa_flags &= ~SA_NOCLDWAIT;
  ::sigaction(SIGCHLD, &action, nullptr);
}

// Waits until there is something to read, or the other side is gone. Signals do not prolong it.
bool WaitReadable(int socket, milliseconds limit) {
  const Clock::time_point end = Clock::now() + limit;
  for (;;) {
    const auto left = std::chrono::ceil<milliseconds>(end - Clock::now());
    if (left.count() < 0) return false;
    pollfd waiting = {.fd = socket, .events = POLLIN, .revents = 0};
    const int ready = ::poll(&waiting, 1, static_cast<int>(left.count()));
    if (ready > 0) return true;
    if (ready == 0) return false;
    if (errno != EINTR) return true;  // the read that follows tells
  }
}

bool SendMessage(int socket, const FrameBytes& message) {
  ssize_t sent = 0;
  do {
    sent = ::send(socket, message.bytes.data(), message.size, MSG_NOSIGNAL);
  } while (sent < 0 && errno == EINTR);
  return sent == static_cast<ssize_t>(message.size);
}

}  // namespace

RemoteStatus HelperProcess::Start(const std::string& program) {
  int ends[2] = {-1, -1};
  if (::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) != 0) return kNoMemory;
  KeepEndedChildren();
  SpawnSettings settings;
  pid_t process = -1;
  const int error = settings.Prepare(ends[1]) ? settings.Spawn(program, process) : ENOMEM;
  ::close(ends[1]);
  if (error != 0) {
    ::close(ends[0]);
    return StatusOfSpawn(error);
  }
  socket_ = ends[0];
  process_ = process;
  return kRemoteOk;
}

HelperProcess::Outcome HelperProcess::Exchange(const Frame& question, milliseconds limit,
                                               FrameBytes& buffer, Frame& answer) {
  if (!EncodeFrame(question, buffer) || !SendMessage(socket_, buffer)) return Outcome::kGone;
  const Outcome outcome = Receive(limit, buffer, answer);
  const bool startsNow = outcome == Outcome::kAnswered && answer.kind == FrameKind::kStarted;
  return startsNow ? Receive(limit, buffer, answer) : outcome;
}

HelperProcess::Outcome HelperProcess::Receive(milliseconds limit, FrameBytes& buffer,
                                              Frame& frame) {
  if (!WaitReadable(socket_, limit)) return Outcome::kLate;
  ssize_t size = 0;
  do {
    size = ::recv(socket_, buffer.bytes.data(), buffer.bytes.size(), MSG_DONTWAIT | MSG_TRUNC);
  } while (size < 0 && errno == EINTR);
  // MSG_TRUNC: the size of the whole message, also when it did not fit.
  if (size <= 0 || static_cast<std::size_t>(size) > buffer.bytes.size()) return Outcome::kGone;
  buffer.size = static_cast<std::size_t>(size);
  const bool wellFormed = DecodeFrame({buffer.bytes.data(), buffer.size}, frame);
  return wellFormed ? Outcome::kAnswered : Outcome::kGone;
}

bool HelperProcess::Stop(Ending ending) {
  if (socket_ < 0) return true;
  if (ending == Ending::kPolite && ::shutdown(socket_, SHUT_WR) == 0) {
    WaitReadable(socket_, kGrace);
  }
  ::close(socket_);
  socket_ = -1;
  // Not waited for yet, so the number is still its own even when it has ended.
  ::kill(process_, SIGKILL);
  int status = 0;
  pid_t ended = -1;
  do {
    ended = ::waitpid(process_, &status, 0);
  } while (ended < 0 && errno == EINTR);
  const bool notLoaded =
      ended == process_ && WIFEXITED(status) && WEXITSTATUS(status) == kNotLoaded;
  process_ = -1;
  return !notLoaded;
}

std::string HelperProgram() {
  const char* chosen = ::secure_getenv("QVL_RPC_HELPER");
  if (chosen != nullptr && *chosen != '\0') return chosen;
  return PathOfProgramPart(kHelperName);
}

}  // namespace qvl
