#include "trial/rpc_connection.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "tests/trial/rpc_messages.h"
#include "tests/trial/trial_fixtures.h"

namespace qvl {
namespace {

using testing::Auth3Message;
using testing::BindBody;
using testing::BindMessage;
using testing::ClientMessage;
using testing::Event;
using testing::kNoon;
using testing::kRemoteMonitor;
using testing::LogBytes;
using testing::Message;
using testing::ReadStub;
using testing::RequestBody;
using testing::RequestMessage;
using testing::TemporaryFile;
using After = RpcConnection::After;

/// A logon on paper: the one answer "right" proves TRIAL\ada.
class PaperLogon : public NtlmLogon {
 public:
  bool Challenge(WireBytes negotiate, std::vector<std::uint8_t>& challenge) override {
    challenge = {'?'};
    return std::string(negotiate.begin(), negotiate.end()) == "hello";
  }
  bool Verify(WireBytes authenticate, std::string& who) override {
    who = "TRIAL\\ada";
    return std::string(authenticate.begin(), authenticate.end()) == "right";
  }
};

template <typename Number>
Number At(const Message& message, std::size_t offset) {
  Number number = 0;
  if (offset + sizeof number <= message.size()) {
    std::memcpy(&number, message.data() + offset, sizeof number);
  }
  return number;
}

PduType TypeOf(const Message& message) {
  return static_cast<PduType>(At<std::uint8_t>(message, 2));
}

class RpcConnectionTest : public ::testing::Test {
 protected:
  void SetUp() override {
    file_.Write(LogBytes({Event(1), Event(2)}));
    ASSERT_TRUE(store_.Open(file_.path()).ok());
  }

  void Connect() {
    service_ = std::make_unique<TrialService>(store_, options_);
    ASSERT_TRUE(service_->Start().ok());
    connection_ = std::make_unique<RpcConnection>(*service_, options_, Caller{"TRIAL\\smb", "smb"},
                                                  std::make_unique<PaperLogon>());
  }

  // What one message of the client is answered with.
  Message Send(const Message& message, After expected = After::kGoOn) {
    std::vector<Message> replies;
    EXPECT_EQ(connection_->Take(message, replies), expected);
    EXPECT_LE(replies.size(), 1U);
    return replies.empty() ? Message{} : replies.front();
  }

  // The stub that a call is answered with.
  Message Answer(std::uint16_t procedure, const Message& stub) {
    const Message reply = Send(RequestMessage(procedure, stub));
    EXPECT_EQ(TypeOf(reply), PduType::kResponse) << procedure;
    return reply.size() < 24 ? Message{} : Message(reply.begin() + 24, reply.end());
  }

  void ExpectFault(const Message& reply, std::uint32_t status) {
    ASSERT_EQ(TypeOf(reply), PduType::kFault);
    EXPECT_EQ(At<std::uint32_t>(reply, 24), status);
  }

  // Result and reason of the one context of an acknowledgement.
  void ExpectResult(const Message& reply, std::uint16_t result, std::uint16_t reason) {
    ASSERT_EQ(TypeOf(reply), PduType::kBindAck);
    EXPECT_EQ(At<std::uint16_t>(reply, 44), result);
    EXPECT_EQ(At<std::uint16_t>(reply, 46), reason);
  }

  TemporaryFile file_{".qvx"};
  LogStore store_{[] { return kNoon; }};
  TrialOptions options_;
  std::unique_ptr<TrialService> service_;
  std::unique_ptr<RpcConnection> connection_;
};

TEST_F(RpcConnectionTest, AnswersAReadInNdrsLayout) {
  Connect();
  ExpectResult(Send(BindMessage()), 0, 0);
  const Message reply = Send(RequestMessage(1, ReadStub(2)));
  ASSERT_EQ(TypeOf(reply), PduType::kResponse);
  EXPECT_EQ(At<std::uint32_t>(reply, 12), 77U);
  const Message stub(reply.begin() + 24, reply.end());
  ASSERT_EQ(stub.size(), 268U);
  EXPECT_EQ(stub[0], 0);
  EXPECT_EQ(At<std::uint32_t>(stub, 4), 2U);
  const RawLogEntry expected = Event(2);
  EXPECT_EQ(std::memcmp(stub.data() + 8, &expected, sizeof expected), 0);
  EXPECT_EQ(At<std::uint32_t>(stub, 264), 0U);
}

TEST_F(RpcConnectionTest, AnswersEveryProcedure) {
  Connect();
  Send(BindMessage());
  const Message text(228, 'x');
  Message flagAndText = {1};
  flagAndText.insert(flagAndText.end(), text.begin(), text.end());
  EXPECT_EQ(Answer(0, {}), Message({1, 0, 0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(Answer(1, ReadStub(9)).size(), 268U);
  EXPECT_EQ(Answer(2, flagAndText), Message({1, 0, 0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(Answer(3, text), Message({1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(Answer(4, {}), Message({0, 0, 0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(Answer(5, {}), Message({1, 0, 0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(Answer(6, Message({9, 0, 0, 0})), Message({135, 0, 0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(store_.size(), 2U);  // cleared, and a note
}

TEST_F(RpcConnectionTest, AStatusOfTheServiceIsReturnedAndOneOfTheRunTimeIsAFault) {
  options_.failCalls = {
      {1, RM_E_NO_DRIVER},
      {2, kCallFailed   }
  };
  Connect();
  Send(BindMessage());
  EXPECT_EQ(At<std::uint32_t>(Send(RequestMessage(5, {})), 28), RM_E_NO_DRIVER);
  ExpectFault(Send(RequestMessage(5, {})), kCallFailed);
}

TEST_F(RpcConnectionTest, AStubThatIsTooShortIsAFaultAndReachesNoService) {
  Connect();
  Send(BindMessage());
  ExpectFault(Send(RequestMessage(1, Message(7))), kBadStubData);
  ExpectFault(Send(RequestMessage(2, Message(228))), kBadStubData);
  ExpectFault(Send(RequestMessage(3, Message(227))), kBadStubData);
  ExpectFault(Send(RequestMessage(6, Message(3))), kBadStubData);
  EXPECT_EQ(file_.Read(), LogBytes({Event(1), Event(2)}));
}

TEST_F(RpcConnectionTest, UnknownProceduresAndContextsAreFaults) {
  Connect();
  Send(BindMessage());
  ExpectFault(Send(RequestMessage(7, {})), kFaultUnknownProcedure);
  ExpectFault(Send(RequestMessage(0, {}, 1)), kFaultUnknownInterface);
}

TEST_F(RpcConnectionTest, ARequestBeforeTheBindIsAFault) {
  Connect();
  ExpectFault(Send(RequestMessage(0, {})), kFaultUnknownInterface);
}

TEST_F(RpcConnectionTest, OffersItsInterfaceInItsVersionOnly) {
  options_.interfaceMajor = 3;
  Connect();
  ExpectResult(Send(BindMessage()), 2, 1);
  ExpectFault(Send(RequestMessage(0, {})), kFaultUnknownInterface);

  options_.interfaceMajor = 2;
  Connect();
  SyntaxId other = kRemoteMonitor;
  other.uuid[0] ^= 1U;
  ExpectResult(Send(ClientMessage(PduType::kBind, BindBody(other, {kNdr}))), 2, 1);
  Connect();
  SyntaxId newer = kRemoteMonitor;
  newer.minor = 1;
  ExpectResult(Send(ClientMessage(PduType::kBind, BindBody(newer, {kNdr}))), 2, 1);
}

TEST_F(RpcConnectionTest, TakesEitherTransferSyntaxAndNoOther) {
  for (const SyntaxId& syntax : {kNdr, kNdr64}) {
    Connect();
    const Message reply = Send(ClientMessage(PduType::kBind, BindBody(kRemoteMonitor, {syntax})));
    ExpectResult(reply, 0, 0);
    EXPECT_EQ(std::memcmp(reply.data() + 48, syntax.uuid.data(), syntax.uuid.size()), 0);
    EXPECT_EQ(TypeOf(Send(RequestMessage(0, {}))), PduType::kResponse);
  }
  Connect();
  SyntaxId other = kNdr;
  other.uuid[5] ^= 1U;
  ExpectResult(Send(ClientMessage(PduType::kBind, BindBody(kRemoteMonitor, {other}))), 2, 2);
}

TEST_F(RpcConnectionTest, AnswersAQuestionForFeaturesWithNone) {
  Connect();
  const SyntaxId features = {
      {0x2c, 0x1c, 0xb7, 0x6c, 0x12, 0x98, 0x40, 0x45, 3, 0, 0, 0, 0, 0, 0, 0},
      1, 0
  };
  ExpectResult(Send(ClientMessage(PduType::kBind, BindBody(kRemoteMonitor, {features}))), 3, 0);
}

TEST_F(RpcConnectionTest, AlterContextAddsAContext) {
  Connect();
  Send(BindMessage());
  const Message reply =
      Send(ClientMessage(PduType::kAlterContext, BindBody(kRemoteMonitor, {kNdr64}, 5)));
  EXPECT_EQ(TypeOf(reply), PduType::kAlterContextResponse);
  EXPECT_EQ(TypeOf(Send(RequestMessage(0, {}, 5))), PduType::kResponse);
  EXPECT_EQ(TypeOf(Send(RequestMessage(0, {}, 0))), PduType::kResponse);
}

TEST_F(RpcConnectionTest, AProvenCallerIsServedUnderThatName) {
  const TemporaryFile calls(".log");
  options_.callLogPath = calls.path();
  options_.requireRpcAuth = true;
  Connect();
  const Message reply = Send(BindMessage("hello"));
  ASSERT_EQ(TypeOf(reply), PduType::kBindAck);
  EXPECT_EQ(At<std::uint16_t>(reply, 10), 1U);
  EXPECT_EQ(reply.back(), '?');
  EXPECT_TRUE(Send(Auth3Message("right")).empty());
  EXPECT_EQ(TypeOf(Send(RequestMessage(0, {}))), PduType::kResponse);
  EXPECT_EQ(calls.Read(), "1 \"TRIAL\\ada\" ntlm QueryAdministratorAccess: status 0, 1\n");
}

TEST_F(RpcConnectionTest, WithoutAProofSambasWordCountsUnlessProofIsRequired) {
  Connect();
  Send(BindMessage());
  EXPECT_EQ(TypeOf(Send(RequestMessage(0, {}))), PduType::kResponse);
  options_.requireRpcAuth = true;
  Connect();
  Send(BindMessage());
  ExpectFault(Send(RequestMessage(0, {})), kAccessDenied);
}

TEST_F(RpcConnectionTest, AFailedOrMissingProofDeniesEveryCall) {
  Connect();
  Send(BindMessage("hello"));
  ExpectFault(Send(RequestMessage(0, {})), kAccessDenied);
  EXPECT_TRUE(Send(Auth3Message("wrong")).empty());
  ExpectFault(Send(RequestMessage(0, {})), kAccessDenied);
  ExpectFault(Send(RequestMessage(9, {})), kAccessDenied);
  // A second try is none.
  Send(Auth3Message("right"), After::kClose);
}

TEST_F(RpcConnectionTest, OtherProofsThanNtlmAtConnectAreRefusedInTheBind) {
  constexpr std::uint8_t kWhole = kFirstFragment | kLastFragment;
  const Message body = BindBody(kRemoteMonitor, {kNdr});
  for (const auto& [type, level] : {
           std::pair<int, int>{9,  2},
            {16, 2},
            {10, 5},
            {10, 6}
  }) {
    Connect();
    const Message reply =
        Send(ClientMessage(PduType::kBind, body, "hello", kWhole, static_cast<std::uint8_t>(type),
                           static_cast<std::uint8_t>(level)));
    ASSERT_EQ(TypeOf(reply), PduType::kBindNak) << type << ' ' << level;
    EXPECT_EQ(At<std::uint16_t>(reply, 16), 8);
  }
  Connect();
  EXPECT_EQ(TypeOf(Send(BindMessage("no ntlm"))), PduType::kBindNak);
}

TEST_F(RpcConnectionTest, MessagesMayBeCutAnywhere) {
  Connect();
  Message stream = BindMessage();
  const Message request = RequestMessage(0, {});
  stream.insert(stream.end(), request.begin(), request.end());
  std::vector<Message> replies;
  for (const std::uint8_t byte : stream) {
    ASSERT_EQ(connection_->Take({&byte, 1}, replies), After::kGoOn);
  }
  ASSERT_EQ(replies.size(), 2U);
  EXPECT_EQ(TypeOf(replies[1]), PduType::kResponse);
}

TEST_F(RpcConnectionTest, AMessageInFragmentsIsOneCall) {
  Connect();
  Send(BindMessage());
  const Message stub = ReadStub(2);
  const auto fragment = [&](std::size_t from, std::size_t count, std::uint8_t flags) {
    return ClientMessage(PduType::kRequest, RequestBody(1, WireBytes(stub).subspan(from, count)),
                         {}, flags);
  };
  EXPECT_TRUE(Send(fragment(0, 3, kFirstFragment)).empty());
  EXPECT_TRUE(Send(fragment(3, 2, 0)).empty());
  const Message reply = Send(fragment(5, 3, kLastFragment));
  ASSERT_EQ(TypeOf(reply), PduType::kResponse);
  EXPECT_EQ(At<std::uint32_t>(reply, 24 + 4), 2U);
}

TEST_F(RpcConnectionTest, FragmentsWithoutEndOrBeginEndTheConnection) {
  Connect();
  Send(BindMessage());
  Send(ClientMessage(PduType::kRequest, RequestBody(1, {}), {}, kLastFragment), After::kClose);
  Connect();
  Send(BindMessage());
  const Message piece(1000);
  const Message first = ClientMessage(PduType::kRequest, RequestBody(1, piece), {}, kFirstFragment);
  const Message next = ClientMessage(PduType::kRequest, RequestBody(1, piece), {}, 0);
  Send(first);
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(Send(next).empty());
  ExpectFault(Send(next, After::kClose), kFaultProtocolError);
  Connect();
  Send(BindMessage());
  Send(first);
  Send(first, After::kClose);
}

TEST_F(RpcConnectionTest, WhatIsNoProtocolEndsTheConnection) {
  const Message garbage(64, 'G');
  Connect();
  Send(garbage, After::kClose);
  Connect();
  Send(BindMessage());
  EXPECT_EQ(TypeOf(Send(BindMessage(), After::kClose)), PduType::kBindNak);
  Connect();
  Send(ClientMessage(PduType::kShutdown, {}), After::kClose);
  Connect();
  Send(Auth3Message("right"), After::kClose);
}

TEST_F(RpcConnectionTest, ACancelIsNoAnswer) {
  Connect();
  Send(BindMessage());
  EXPECT_TRUE(Send(ClientMessage(PduType::kCancel, {})).empty());
  EXPECT_EQ(TypeOf(Send(RequestMessage(0, {}))), PduType::kResponse);
}

TEST_F(RpcConnectionTest, DyingIsForTheProcess) {
  options_.dieInCall = 1;
  Connect();
  Send(BindMessage());
  Send(RequestMessage(0, {}), After::kDie);
}

// No sequence of damaged bytes breaks it, and whatever it says is a message.
TEST_F(RpcConnectionTest, SurvivesDamagedBytes) {
  Message stream;
  for (const Message& message :
       {BindMessage("hello"), Auth3Message("right"), RequestMessage(1, ReadStub(0)),
        ClientMessage(PduType::kAlterContext, BindBody(kRemoteMonitor, {kNdr64}, 5)),
        RequestMessage(0, {}), RequestMessage(6, ReadStub(1)), RequestMessage(7, {})}) {
    stream.insert(stream.end(), message.begin(), message.end());
  }
  options_.refuseClear = options_.refuseNote = options_.refuseRepair = true;
  std::mt19937 random(1);
  for (int round = 0; round < 5000; ++round) {
    Connect();
    Message damaged = stream;
    for (std::size_t i = 0; i <= random() % 4; ++i) {
      damaged[random() % damaged.size()] = static_cast<std::uint8_t>(random());
    }
    std::vector<Message> replies;
    After after = After::kGoOn;
    for (std::size_t at = 0; at < damaged.size() && after == After::kGoOn;) {
      const std::size_t count = std::min<std::size_t>(1 + random() % 90, damaged.size() - at);
      after = connection_->Take(WireBytes(damaged).subspan(at, count), replies);
      at += count;
    }
    for (const Message& reply : replies) ASSERT_TRUE(ParsePdu(reply)) << round;
  }
}

}  // namespace
}  // namespace qvl
