// The real helper, as far as it comes without a server: tests/e2e has one.
#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "access/remote_monitor_client.h"

namespace qvl {
namespace {

// A socket bound to a free port of the loopback interface.
class LoopbackPort {
 public:
  LoopbackPort() : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* generic = reinterpret_cast<sockaddr*>(&address);
    EXPECT_EQ(::bind(socket_, generic, size), 0);
    EXPECT_EQ(::getsockname(socket_, generic, &size), 0);
    number_ = ntohs(address.sin_port);
  }
  ~LoopbackPort() { ::close(socket_); }
  LoopbackPort(const LoopbackPort&) = delete;
  LoopbackPort& operator=(const LoopbackPort&) = delete;

  // From now on callers get through, and no answer.
  void Listen() { EXPECT_EQ(::listen(socket_, 8), 0); }
  int Accept() { return ::accept4(socket_, nullptr, nullptr, SOCK_CLOEXEC); }
  int number() const { return number_; }

 private:
  int socket_;
  int number_ = 0;
};

class RemoteCallHelperTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string folder = ::testing::TempDir() + "qvl-helper-XXXXXX";
    ASSERT_NE(::mkdtemp(folder.data()), nullptr);
    folder_ = folder;
    ::setenv("QVL_RPC_HELPER", QVL_HELPER, 1);
    ::setenv("QVL_CONNECT_TIMEOUT_MS", "20000", 1);
    ::setenv("QVL_CALL_TIMEOUT_MS", "20000", 1);
    ::setenv("QVL_CREDENTIALS", (folder_ / "credentials").c_str(), 1);
    ::setenv("SMB_CONF_PATH", (folder_ / "smb.conf").c_str(), 1);
    std::ofstream settings(folder_ / "smb.conf");
    settings << "[global]\nsmb ports = " << port_.number() << "\nname resolve order = host\n";
    for (const char* kind : {"lock", "state", "cache", "private"}) {
      settings << kind << (kind == std::string("private") ? " dir = " : " directory = ") << folder
               << '\n';
    }
    WriteCredentials(0600);
  }
  void TearDown() override {
    EXPECT_EQ(client_.Disconnect(), RM_E_NOT_OPEN);
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
    std::filesystem::remove_all(folder_);
  }

  void WriteCredentials(mode_t mode) {
    const std::filesystem::path path = folder_ / "credentials";
    std::ofstream(path) << "username = admin\npassword = sesame-93\ndomain = PLANT\n";
    ASSERT_EQ(::chmod(path.c_str(), mode), 0);
  }

  RemoteStatus Connect(const std::string& machine = "127.0.0.1") {
    std::int32_t isAdministrator = 0;
    return client_.Connect(machine, isAdministrator);
  }

  std::string Identity() {
    std::FILE* pipe = ::popen("exec '" QVL_HELPER "' --identity 2>&1", "r");
    std::array<char, 1024> text{};
    const std::size_t size = std::fread(text.data(), 1, text.size(), pipe);
    EXPECT_EQ(::pclose(pipe), 0);
    return {text.data(), size};
  }

  LoopbackPort port_;
  std::filesystem::path folder_;
  std::unique_ptr<RemoteCallRuntime> runtime_ = MakeSystemRuntime();
  RemoteMonitorClient client_{*runtime_};
};

TEST_F(RemoteCallHelperTest, AMachineWithoutAServerIsNotFound) {
  EXPECT_EQ(Connect(), kServerUnavailable);
}

TEST_F(RemoteCallHelperTest, AServerThatHangsUpIsNotFound) {
  port_.Listen();
  std::thread server([this] {
    const int caller = port_.Accept();
    ::send(caller, "no SMB\n", 7, MSG_NOSIGNAL);
    ::close(caller);
  });
  EXPECT_EQ(Connect(), kServerUnavailable);
  server.join();
}

TEST_F(RemoteCallHelperTest, ASilentServerIsGivenUpAtTheLimit) {
  port_.Listen();
  ::setenv("QVL_CONNECT_TIMEOUT_MS", "300", 1);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(Connect(), kServerUnavailable);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

TEST_F(RemoteCallHelperTest, AProgramThatIsKilledTakesItsHelperAlong) {
  port_.Listen();
  // Orphans come to this process, which sees them end.
  ASSERT_EQ(::prctl(PR_SET_CHILD_SUBREAPER, 1), 0);
  const pid_t program = ::fork();
  if (program == 0) {
    Connect();
    ::_exit(0);
  }
  // The helper is in the middle of connecting, deaf to its program, when that is killed.
  const int caller = port_.Accept();
  ASSERT_EQ(::kill(program, SIGKILL), 0);
  EXPECT_EQ(::waitpid(program, nullptr, 0), program);
  EXPECT_GT(::waitpid(-1, nullptr, 0), 0);
  ::close(caller);
  ::prctl(PR_SET_CHILD_SUBREAPER, 0);
}

TEST_F(RemoteCallHelperTest, ANameThatNoMachineHasIsNotFound) {
  port_.Listen();
  for (const char* name : {"", " ", "a b", "a/b", "a\\b", "127.0.0.1[seal]", "x@127.0.0.1",
                           "127.0.0.1,smb1", "a\nb", "a\x7F"}) {
    EXPECT_EQ(Connect(name), kServerUnavailable) << name;
  }
}

TEST_F(RemoteCallHelperTest, AFileOpenToOthersIsNoIdentity) {
  WriteCredentials(0640);
  EXPECT_EQ(Connect(), kAccessDenied);
  EXPECT_EQ(Identity(), "credentials file: " + (folder_ / "credentials").string() +
                            " is open to its group or to others; chmod 600 closes it\n");
}

TEST_F(RemoteCallHelperTest, AChosenFileThatIsMissingIsNoIdentity) {
  std::filesystem::remove(folder_ / "credentials");
  EXPECT_EQ(Connect(), kAccessDenied);
}

TEST_F(RemoteCallHelperTest, SaysWhoTheUserIsAndNotThePassword) {
  EXPECT_EQ(Identity(), "credentials file: PLANT\\admin\n");
}

}  // namespace
}  // namespace qvl
