#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <list>
#include <system_error>
#include <thread>

#include "platform/exclusive_file.h"
#include "platform/standard_streams.h"
#include "trial/pipe_socket.h"
#include "trial/server.h"

namespace qvl {
namespace {

// A client opens one or two at a time.
constexpr std::size_t kMostConnections = 64;

// Without a descriptor or memory to spare, a caller is left waiting for so long. Looking at once
// again would find the same caller and the same want, as fast as the processor can.
constexpr int kPauseMilliseconds = 100;

// Signals become bytes that the one waiting thread reads among everything else.
std::array<int, 2> signalPipe = {-1, -1};

extern "C" void PassSignalOn(int number) {
  const int error = errno;
  const auto byte = static_cast<unsigned char>(number);
  (void)!::write(signalPipe[1], &byte, 1);
  errno = error;
}

Status CatchSignals() {
  if (::pipe2(signalPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
    return Status::Failed("cannot make a pipe: " + std::generic_category().message(errno));
  }
  struct sigaction action = {};
  action.sa_handler = PassSignalOn;
  action.sa_flags = SA_RESTART;
  for (const int number : {SIGTERM, SIGINT, SIGHUP, SIGUSR1}) {
    ::sigaction(number, &action, nullptr);
  }
  return Status::Ok();
}

Status WriteReady(const std::string& path) {
  if (path.empty()) return Status::Ok();
  ExclusiveFile file;
  Status status = file.Open(path, ExclusiveFile::Mode::kReplace);
  if (status.ok()) status = file.Write(std::to_string(::getpid()) + "\n");
  const Status closed = file.Close();
  return status.ok() ? closed : status;
}

/// Accepts connections and gives each a thread.
class Server {
 public:
  Server(TrialService& service, const TrialOptions& options)
      : service_(service), options_(options) {}

  Status Run() {
    Status status = CatchSignals();
    if (status.ok()) status = ListenAt(options_.socketPath, listener_);
    if (!status.ok()) return status;
    status = WriteReady(options_.readyPath);
    while (status.ok() && Wait()) {
    }
    ::close(listener_);
    ::unlink(options_.socketPath.c_str());
    service_.Stop();
    for (Connection& connection : connections_) ::shutdown(connection.descriptor, SHUT_RDWR);
    for (Connection& connection : connections_) Finish(connection);
    return status;
  }

 private:
  struct Connection {
    int descriptor = -1;
    std::atomic<bool> ended{false};
    std::thread thread;
  };

  // False when the server is to end.
  bool Wait() {
    const int input = options_.endWithInput ? STDIN_FILENO : -1;
    std::array<pollfd, 3> wanted = {
        {{pausing_ ? -1 : listener_, POLLIN, 0}, {signalPipe[0], POLLIN, 0}, {input, POLLIN, 0}}
    };
    const int limit = pausing_ ? kPauseMilliseconds : -1;
    pausing_ = false;
    if (::poll(wanted.data(), wanted.size(), limit) < 0) return errno == EINTR;
    if (wanted[1].revents != 0 && !TakeSignal()) return false;
    if (wanted[2].revents != 0 && !TakeInput()) return false;
    if (wanted[0].revents != 0) Accept();
    return true;
  }

  bool TakeSignal() {
    unsigned char number = 0;
    if (::read(signalPipe[0], &number, 1) != 1) return true;
    if (number != SIGUSR1) return false;
    service_.RepeatNewestEvent();
    return true;
  }

  static bool TakeInput() {
    std::array<char, 256> ignored;
    return ::read(STDIN_FILENO, ignored.data(), ignored.size()) > 0;
  }

  void Accept() {
    for (auto it = connections_.begin(); it != connections_.end();) {
      if (!it->ended) {
        ++it;
        continue;
      }
      Finish(*it);
      it = connections_.erase(it);
    }
    const int descriptor = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
    if (descriptor < 0) {
      pausing_ = errno == EMFILE || errno == ENFILE || errno == ENOBUFS || errno == ENOMEM;
      return;
    }
    if (connections_.size() >= kMostConnections) {
      ::close(descriptor);
      return;
    }
    Connection& connection = connections_.emplace_back();
    connection.descriptor = descriptor;
    try {
      connection.thread = std::thread([this, &connection] { ServeOne(connection); });
    } catch (const std::system_error&) {
      // No thread to be had: this client is turned away, the others go on.
      ::close(descriptor);
      connections_.pop_back();
    }
  }

  void ServeOne(Connection& connection) {
    ServePipe(connection.descriptor, service_, options_);
    // The client learns it now; the number is free for others once the thread was joined.
    ::shutdown(connection.descriptor, SHUT_RDWR);
    connection.ended = true;
  }

  static void Finish(Connection& connection) {
    connection.thread.join();
    ::close(connection.descriptor);
  }

  TrialService& service_;
  const TrialOptions& options_;
  int listener_ = -1;
  bool pausing_ = false;
  std::list<Connection> connections_;
};

}  // namespace

int Serve(TrialService& service, const TrialOptions& options) {
  Server server(service, options);
  const Status status = options.socketPath.empty()
                            ? Status::Failed(
                                  "--socket PATH tells where to listen; trial/start "
                                  "brings up everything that is needed around it")
                            : server.Run();
  if (status.ok()) return 0;
  StandardOutput error(StandardOutput::Stream::kError);
  (void)error.Write("zlkrcmc-trial: " + status.message() + "\n");
  return 1;
}

}  // namespace qvl
