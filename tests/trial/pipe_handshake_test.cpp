#include "trial/pipe_handshake.h"

#include <gtest/gtest.h>

#include <random>

#include "tests/trial/handshake_data.h"

namespace qvl {
namespace {

using testing::RealRequest;

TEST(PipeHandshakeTest, TellsTheUserThatSambaAdmitted) {
  const std::optional<PipeClient> client = ParseHandshake(RealRequest());
  ASSERT_TRUE(client);
  EXPECT_EQ(client->domain, "TRIALHOST");
  EXPECT_EQ(client->account, "root");
}

TEST(PipeHandshakeTest, LengthIsBigEndianAndBounded) {
  const std::vector<std::uint8_t> request = RealRequest();
  EXPECT_EQ(HandshakeLength(WireBytes(request).first(4)), 737U);
  const std::array<std::uint8_t, 4> longest = {0, 1, 0, 0};
  EXPECT_EQ(HandshakeLength(longest), 65536U);
  const std::array<std::uint8_t, 4> tooLong = {0, 1, 0, 1};
  EXPECT_FALSE(HandshakeLength(tooLong));
  const std::array<std::uint8_t, 4> tooShort = {0, 0, 0, 3};
  EXPECT_FALSE(HandshakeLength(tooShort));
  EXPECT_FALSE(HandshakeLength(WireBytes(longest).first(3)));
}

TEST(PipeHandshakeTest, RefusesAnotherLevelAndAnotherProtocol) {
  std::vector<std::uint8_t> request = RealRequest();
  request[8] = 8;
  EXPECT_FALSE(ParseHandshake(request));
  request = RealRequest();
  request[12] = 6;
  EXPECT_FALSE(ParseHandshake(request));
  request = RealRequest();
  request[4] = 'X';
  EXPECT_FALSE(ParseHandshake(request));
}

TEST(PipeHandshakeTest, ARequestCutAnywhereNamesNobody) {
  const std::vector<std::uint8_t> request = RealRequest();
  for (std::size_t size = 0; size < 0x200; ++size) {
    const std::optional<PipeClient> client = ParseHandshake(WireBytes(request).first(size));
    EXPECT_EQ(client.has_value(), size >= 16) << size;
    if (client) {
      EXPECT_TRUE(client->account.empty()) << size;
    }
  }
}

TEST(PipeHandshakeTest, SurvivesDamagedBytes) {
  const std::vector<std::uint8_t> request = RealRequest();
  std::mt19937 random(1);
  for (int round = 0; round < 20000; ++round) {
    std::vector<std::uint8_t> damaged = request;
    for (int i = 0; i < 3; ++i) {
      damaged[random() % damaged.size()] = static_cast<std::uint8_t>(random());
    }
    const std::optional<PipeClient> client = ParseHandshake(damaged);
    if (client) {
      EXPECT_LE(client->account.size() + client->domain.size(), damaged.size());
    }
  }
}

TEST(PipeHandshakeTest, ReplyAcceptsAPipeOfMessages) {
  const std::vector<std::uint8_t> expected = {0, 0,  0, 32, 'N', 'P', 'A',  'M', 7, 0, 0, 0,
                                              7, 0,  0, 0,  2,   0,   0xFF, 5,   0, 0, 0, 0,
                                              0, 16, 0, 0,  0,   0,   0,    0,   0, 0, 0, 0};
  EXPECT_EQ(HandshakeReply(), expected);
}

}  // namespace
}  // namespace qvl
