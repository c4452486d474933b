#include "access/remote_call_frames.h"

#include <gtest/gtest.h>

#include <vector>

namespace qvl {
namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes Encoded(const Frame& frame) {
  FrameBytes encoded;
  EXPECT_TRUE(EncodeFrame(frame, encoded));
  return {encoded.bytes.begin(), encoded.bytes.begin() + static_cast<std::ptrdiff_t>(encoded.size)};
}

TEST(RemoteCallFramesTest, AFrameIsAHeaderAndItsPayload) {
  const Bytes payload = {1, 2, 3};
  EXPECT_EQ(Encoded({.kind = FrameKind::kCall, .code = 0x01020304, .payload = payload}),
            (Bytes{'Q', 'Z', 'V', 'R', 1, 0, 2, 0, 4, 3, 2, 1, 3, 0, 0, 0, 1, 2, 3}));
}

TEST(RemoteCallFramesTest, AFrameIsReadBack) {
  const Bytes payload(kLargestPayload, 0x5A);
  const Bytes message = Encoded({.kind = FrameKind::kReturned, .code = 9, .payload = payload});
  Frame frame;
  ASSERT_TRUE(DecodeFrame(message, frame));
  EXPECT_EQ(frame.kind, FrameKind::kReturned);
  EXPECT_EQ(frame.code, 9U);
  EXPECT_EQ(Bytes(frame.payload.begin(), frame.payload.end()), payload);
}

TEST(RemoteCallFramesTest, ATooLargePayloadIsNotSent) {
  const Bytes payload(kLargestPayload + 1, 0);
  FrameBytes encoded;
  EXPECT_FALSE(EncodeFrame({.kind = FrameKind::kCall, .payload = payload}, encoded));
}

TEST(RemoteCallFramesTest, AShorterOrLongerMessageIsNoFrame) {
  const Bytes payload = {1, 2, 3};
  const Bytes message = Encoded({.kind = FrameKind::kCall, .payload = payload});
  Frame frame;
  for (std::size_t size = 0; size < 2 * message.size(); ++size) {
    Bytes other = message;
    other.resize(size);
    EXPECT_EQ(DecodeFrame(other, frame), size == message.size()) << size;
  }
}

TEST(RemoteCallFramesTest, AForeignHeaderIsNoFrame) {
  const Bytes message = Encoded({.kind = FrameKind::kLost, .code = 1});
  Frame frame;
  for (std::size_t i = 0; i < 16; ++i) {
    if (i >= 8 && i < 12) continue;  // the code may be anything
    Bytes other = message;
    other[i] ^= 0x40U;
    EXPECT_FALSE(DecodeFrame(other, frame)) << i;
  }
  Bytes other = message;
  other[6] = 0;
  EXPECT_FALSE(DecodeFrame(other, frame));
  other[6] = 8;
  EXPECT_FALSE(DecodeFrame(other, frame));
}

struct AnswerRow {
  FrameKind asked;
  FrameKind kind;
  std::uint32_t code;
  RemoteStatus status;
  bool lost;
};

TEST(RemoteCallFramesTest, AnAnswerIsTakenForWhatItAnswers) {
  constexpr RemoteStatus kMisfit = 4711;
  constexpr AnswerRow kRows[] = {
      {FrameKind::kConnect, FrameKind::kConnected, 0,                  kRemoteOk,          false},
      {FrameKind::kConnect, FrameKind::kFailed,    kServerUnavailable, kServerUnavailable, false},
      {FrameKind::kConnect, FrameKind::kReturned,  0,                  kMisfit,            true },
      {FrameKind::kConnect, FrameKind::kFailed,    0,                  kMisfit,            true },
      {FrameKind::kCall,    FrameKind::kReturned,  0,                  kRemoteOk,          false},
      {FrameKind::kCall,    FrameKind::kFailed,    kAccessDenied,      kAccessDenied,      false},
      {FrameKind::kCall,    FrameKind::kLost,      kCallFailed,        kCallFailed,        true },
      {FrameKind::kCall,    FrameKind::kLost,      0,                  kMisfit,            true },
      {FrameKind::kCall,    FrameKind::kConnected, 0,                  kMisfit,            true },
      {FrameKind::kCall,    FrameKind::kCall,      0,                  kMisfit,            true },
      {FrameKind::kCall,    FrameKind::kStarted,   0,                  kMisfit,            true },
  };
  for (const AnswerRow& row : kRows) {
    bool lost = !row.lost;
    const Frame answer = {.kind = row.kind, .code = row.code};
    EXPECT_EQ(StatusOfAnswer(row.asked, answer, kMisfit, lost), row.status);
    EXPECT_EQ(lost, row.lost);
  }
}

}  // namespace
}  // namespace qvl
