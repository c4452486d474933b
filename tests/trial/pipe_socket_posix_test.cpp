#include "trial/pipe_socket.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <thread>

#include "tests/trial/handshake_data.h"
#include "tests/trial/rpc_messages.h"
#include "tests/trial/trial_fixtures.h"
#include "trial/pipe_handshake.h"

namespace qvl {
namespace {

using testing::BindMessage;
using testing::Event;
using testing::LogBytes;
using testing::Message;
using testing::RealRequest;
using testing::RequestMessage;
using testing::TemporaryFile;

TEST(ListenAtTest, OnlyThisUserMayConnect) {
  const TemporaryFile file(".sock");
  int listener = -1;
  ASSERT_TRUE(ListenAt(file.path(), listener).ok());
  struct stat properties = {};
  ASSERT_EQ(::stat(file.path().c_str(), &properties), 0);
  EXPECT_EQ(properties.st_mode & 0777U, 0600U);
  ::close(listener);
}

TEST(ListenAtTest, TakesOverFromADeadServiceAndNotFromALivingOne) {
  const TemporaryFile file(".sock");
  int first = -1;
  int second = -1;
  ASSERT_TRUE(ListenAt(file.path(), first).ok());
  const Status living = ListenAt(file.path(), second);
  EXPECT_NE(living.message().find("another service listens"), std::string::npos);
  ::close(first);
  EXPECT_TRUE(ListenAt(file.path(), second).ok());
  ::close(second);
}

TEST(ListenAtTest, RemovesNoFileAndRefusesLongPaths) {
  const TemporaryFile file(".sock");
  file.Write("somebody's");
  int listener = -1;
  EXPECT_FALSE(ListenAt(file.path(), listener).ok());
  EXPECT_EQ(file.Read(), "somebody's");
  const Status tooLong = ListenAt(std::string(108, 's'), listener);
  EXPECT_NE(tooLong.message().find("too long"), std::string::npos);
}

/// A smbd's side of one connection. The service's side runs in a thread until it ends by itself or
/// with the test.
class ServePipeTest : public ::testing::Test {
 protected:
  void SetUp() override {
    file_.Write(LogBytes({Event(1)}));
    ASSERT_TRUE(store_.Open(file_.path()).ok());
    std::array<int, 2> pair{};
    ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, pair.data()), 0);
    smbd_ = pair[0];
    const int served = pair[1];
    thread_ = std::thread([this, served] {
      ServePipe(served, service_, options_);
      ::close(served);
    });
  }

  void TearDown() override {
    ::shutdown(smbd_, SHUT_RDWR);
    if (thread_.joinable()) thread_.join();
    ::close(smbd_);
  }

  void Send(const Message& bytes) {
    ASSERT_EQ(::send(smbd_, bytes.data(), bytes.size(), MSG_NOSIGNAL),
              static_cast<ssize_t>(bytes.size()));
  }

  // Exactly this many bytes, or fewer when the service closed.
  Message Receive(std::size_t count) {
    Message bytes(count);
    const ssize_t got = ::recv(smbd_, bytes.data(), bytes.size(), MSG_WAITALL);
    bytes.resize(got < 0 ? 0 : static_cast<std::size_t>(got));
    return bytes;
  }

  static Message WithLength(const Message& message) {
    Message framed = {static_cast<std::uint8_t>(message.size()),
                      static_cast<std::uint8_t>(message.size() >> 8U)};
    framed.insert(framed.end(), message.begin(), message.end());
    return framed;
  }

  TemporaryFile file_{".qvx"};
  LogStore store_;
  TrialOptions options_;
  TrialService service_{store_, options_};
  int smbd_ = -1;
  std::thread thread_;
};

TEST_F(ServePipeTest, ShakesHandsAndAnswersMessagesWithTheirLength) {
  Send(RealRequest());
  EXPECT_EQ(Receive(36), HandshakeReply());
  Send(WithLength(BindMessage()));
  EXPECT_EQ(Receive(2), (Message{68, 0}));
  EXPECT_EQ(Receive(68)[2], static_cast<std::uint8_t>(PduType::kBindAck));
  // Two requests in one piece, as a busy smbd may deliver them.
  Message both = WithLength(RequestMessage(5, {}));
  const Message second = WithLength(RequestMessage(0, {}));
  both.insert(both.end(), second.begin(), second.end());
  Send(both);
  EXPECT_EQ(Receive(34)[0], 32);
  EXPECT_EQ(Receive(34)[0], 32);
}

TEST_F(ServePipeTest, ClosesOnWhatIsNoHandshake) {
  Message request = RealRequest();
  request[8] = 9;
  Send(request);
  EXPECT_TRUE(Receive(1).empty());
}

TEST_F(ServePipeTest, ClosesOnAHandshakeThatIsTooLong) {
  Send({0x7F, 0xFF, 0xFF, 0xFF});
  EXPECT_TRUE(Receive(1).empty());
}

TEST_F(ServePipeTest, ClosesOnWhatIsNoRpcAndOnAnEnd) {
  Send(RealRequest());
  EXPECT_EQ(Receive(36).size(), 36U);
  Send(WithLength(Message(40, 'G')));
  EXPECT_TRUE(Receive(1).empty());
}

}  // namespace
}  // namespace qvl
