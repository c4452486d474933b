// The program of the substitute service, without the smbd that stands before it.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <string>
#include <vector>

#include "files/log_file.h"

namespace qvl {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr rlim_t kBelowTheNextDescriptor = 4;
constexpr milliseconds kPatience{30'000};

class TrialServerTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string folder = "/tmp/qvl-server-XXXXXX";  // the path of a socket is short
    ASSERT_NE(::mkdtemp(folder.data()), nullptr);
    folder_ = folder;
    ASSERT_TRUE(SaveLogFile(folder + "/log.qvx", EntryList()).ok());
    Start();
  }
  void TearDown() override {
    for (const int each : {served_, waiting_}) ::close(each);
    if (process_ > 0) {
      ::kill(process_, SIGKILL);
      ::waitpid(process_, nullptr, 0);
    }
    std::filesystem::remove_all(folder_);
  }

  void Start() {
    std::vector<std::string> words = {"zlkrcmc-trial", "--socket",         folder_ + "/socket",
                                      "--ready",       folder_ + "/ready", folder_ + "/log.qvx"};
    // Where there is a search for leaks, it needs descriptors when the program ends.
    ::setenv("LSAN_OPTIONS", "detect_leaks=0", 1);
    std::vector<char*> arguments;
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    ASSERT_EQ(
        ::posix_spawn(&process_, QVL_TRIAL_PROGRAM, nullptr, nullptr, arguments.data(), environ),
        0);
    ASSERT_TRUE(WaitFor([this] { return std::filesystem::exists(folder_ + "/ready"); }));
  }

  // The service hangs up on one who says nothing.
  static bool IsServed(int connection, milliseconds limit) {
    EXPECT_EQ(::shutdown(connection, SHUT_WR), 0);
    pollfd hungUp = {.fd = connection, .events = POLLIN, .revents = 0};
    return ::poll(&hungUp, 1, static_cast<int>(limit.count())) == 1;
  }

  // Leaves one connection that was served and one that no descriptor is left for.
  void ConnectOneTooMany() {
    served_ = Connect();
    ASSERT_TRUE(IsServed(served_, kPatience));
    ASSERT_EQ(::prlimit(process_, RLIMIT_NOFILE, nullptr, &usual_), 0);
    const rlimit few = {.rlim_cur = kBelowTheNextDescriptor, .rlim_max = usual_.rlim_max};
    ASSERT_EQ(::prlimit(process_, RLIMIT_NOFILE, &few, nullptr), 0);
    waiting_ = Connect();
  }

  template <typename Condition>
  static bool WaitFor(Condition condition) {
    const auto end = steady_clock::now() + kPatience;
    while (!condition()) {
      if (steady_clock::now() > end) return false;
      ::poll(nullptr, 0, 5);
    }
    return true;
  }

  int Connect() {
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, (folder_ + "/socket").c_str(), sizeof address.sun_path - 1);
    const int connection = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    EXPECT_EQ(::connect(connection, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    return connection;
  }

  milliseconds ServersTime() const {
    clockid_t clock = 0;
    timespec used{};
    EXPECT_EQ(::clock_getcpuclockid(process_, &clock), 0);
    EXPECT_EQ(::clock_gettime(clock, &used), 0);
    return milliseconds(used.tv_sec * 1000 + used.tv_nsec / 1'000'000);
  }

  std::string folder_;
  pid_t process_ = -1;
  int served_ = -1;
  int waiting_ = -1;
  rlimit usual_{};
};

TEST_F(TrialServerTest, WaitsForADescriptorWithoutSpinning) {
  ConnectOneTooMany();
  const milliseconds before = ServersTime();
  ::poll(nullptr, 0, 500);
  EXPECT_LT(ServersTime() - before, milliseconds(200));

  // Whoever waited gets a turn as soon as there is a descriptor.
  EXPECT_FALSE(IsServed(waiting_, milliseconds(0)));
  ASSERT_EQ(::prlimit(process_, RLIMIT_NOFILE, &usual_, nullptr), 0);
  EXPECT_TRUE(IsServed(waiting_, kPatience));
}

TEST_F(TrialServerTest, IsToldToEndWhileItWaitsForADescriptor) {
  ConnectOneTooMany();
  ASSERT_EQ(::kill(process_, SIGTERM), 0);
  int status = -1;
  EXPECT_TRUE(
      WaitFor([this, &status] { return ::waitpid(process_, &status, WNOHANG) == process_; }));
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  process_ = -1;
}

}  // namespace
}  // namespace qvl
