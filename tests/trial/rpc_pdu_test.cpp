#include "trial/rpc_pdu.h"

#include <gtest/gtest.h>

#include "tests/trial/rpc_messages.h"

namespace qvl {
namespace {

using testing::BindBody;
using testing::BindMessage;
using testing::ClientMessage;
using testing::kRemoteMonitor;
using testing::Message;
using testing::RequestBody;
using testing::RequestMessage;

TEST(RpcPduTest, LengthIsToldByTheHeader) {
  const Message message = RequestMessage(1, testing::ReadStub(7));
  EXPECT_EQ(PduLength(WireBytes(message).first(kPduHeaderSize)), message.size());
  EXPECT_FALSE(PduLength(WireBytes(message).first(kPduHeaderSize - 1)));
}

TEST(RpcPduTest, RefusesAnotherVersionBigEndianNumbersAndTooShortALength) {
  Message message = RequestMessage(1, {});
  message[0] = 4;
  EXPECT_FALSE(PduLength(message));
  message = RequestMessage(1, {});
  message[4] = 0x00;
  EXPECT_FALSE(PduLength(message));
  message = RequestMessage(1, {});
  message[8] = kPduHeaderSize - 1;
  EXPECT_FALSE(PduLength(message));
}

TEST(RpcPduTest, AProofIsTakenOffWithItsPadding) {
  const Message body = {1, 2, 3, 4, 5};
  const Message message = ClientMessage(PduType::kAuth3, body, "token");
  const std::optional<Pdu> pdu = ParsePdu(message);
  ASSERT_TRUE(pdu);
  EXPECT_EQ(pdu->type, PduType::kAuth3);
  EXPECT_EQ(pdu->callId, 77U);
  EXPECT_EQ(Message(pdu->body.begin(), pdu->body.end()), body);
  ASSERT_TRUE(pdu->auth);
  EXPECT_EQ(pdu->auth->type, kAuthNtlm);
  EXPECT_EQ(pdu->auth->level, kAuthLevelConnect);
  EXPECT_EQ(pdu->auth->contextId, 9U);
  EXPECT_EQ(std::string(pdu->auth->token.begin(), pdu->auth->token.end()), "token");
}

TEST(RpcPduTest, RefusesAProofLongerThanTheMessage) {
  Message message = ClientMessage(PduType::kAuth3, {}, "token");
  message[10] = 6;
  EXPECT_FALSE(ParsePdu(message));
  message = ClientMessage(PduType::kAuth3, {}, "token");
  message[16 + 2] = 1;  // padding that is not there
  EXPECT_FALSE(ParsePdu(message));
}

TEST(RpcPduTest, ReadsTheContextsOfABind) {
  const auto contexts = ParseContexts(BindBody(kRemoteMonitor, {kNdr, kNdr64}, 3));
  ASSERT_TRUE(contexts);
  ASSERT_EQ(contexts->size(), 1U);
  EXPECT_EQ(contexts->front().id, 3);
  EXPECT_EQ(contexts->front().interface, kRemoteMonitor);
  EXPECT_EQ(contexts->front().transfers, (std::vector<SyntaxId>{kNdr, kNdr64}));
}

TEST(RpcPduTest, ABindCutAnywhereIsRefused) {
  const Message body = BindBody(kRemoteMonitor, {kNdr, kNdr64});
  for (std::size_t size = 0; size < body.size(); ++size) {
    EXPECT_FALSE(ParseContexts(WireBytes(body).first(size))) << size;
  }
  Message none = body;
  none[8] = 0;
  EXPECT_FALSE(ParseContexts(none));
}

TEST(RpcPduTest, AnObjectStandsBeforeTheStub) {
  Message body = RequestBody(6, {});
  body.resize(body.size() + 16, 0xAA);
  body.push_back(0x55);
  const Message message =
      ClientMessage(PduType::kRequest, body, {}, kFirstFragment | kLastFragment | kHasObject);
  const std::optional<Pdu> pdu = ParsePdu(message);
  ASSERT_TRUE(pdu);
  const std::optional<RequestHead> head = ParseRequest(*pdu);
  ASSERT_TRUE(head);
  EXPECT_EQ(head->procedure, 6);
  EXPECT_EQ(Message(head->stub.begin(), head->stub.end()), Message{0x55});
}

TEST(RpcPduTest, WritesAnAcknowledgementWithEndpointResultAndProof) {
  const Message challenge = {0xC1, 0xC2};
  const PduAuth auth = {kAuthNtlm, kAuthLevelConnect, 9, challenge};
  const Message message = ContextAnswer(PduType::kBindAck, 0x01020304,
                                        {
                                            {0, 0, kNdr}
  },
                                        auth);
  const Message expected = {
      5,    0,    12,   3,    0x10, 0,    0,    0,    78,   0,    2,   0,   4,    3,
      2,    1,                                                  // header
      0xB8, 0x10, 0xB8, 0x10, 0x4C, 0x56, 0x51, 0,    14,   0,  // sizes, group
      '\\', 'p',  'i',  'p',  'e',  '\\', 'z',  'l',  'k',  'r',  'c', 'm', 'c',  0,  // endpoint
      1,    0,    0,    0,    0,    0,    0,    0,                                    // one result
      0x04, 0x5d, 0x88, 0x8a, 0xeb, 0x1c, 0xc9, 0x11, 0x9f, 0xe8, 8,   0,   0x2b, 0x10,
      0x48, 0x60, 2,    0,    0,    0,  // NDR 2.0
      10,   2,    0,    0,    9,    0,    0,    0,    0xC1, 0xC2};
  EXPECT_EQ(message, expected);
}

TEST(RpcPduTest, WritesAFault) {
  const Message expected = {5,  0, 3, 3, 0x10, 0, 0, 0, 32, 0, 0, 0,    7, 0, 0, 0,
                            32, 0, 0, 0, 1,    0, 0, 0, 2,  0, 1, 0x1C, 0, 0, 0, 0};
  EXPECT_EQ(Fault(7, 1, kFaultUnknownProcedure), expected);
}

}  // namespace
}  // namespace qvl
