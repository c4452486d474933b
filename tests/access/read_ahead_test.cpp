#include "access/remote_call_helper/read_ahead.h"

#include <gtest/gtest.h>

#include <cstring>

#include "access/remote_call_codec.h"

namespace qvl {
namespace {

constexpr auto kRead = static_cast<std::uint32_t>(RemoteProcedure::kReadLogEntry);
constexpr auto kMark = static_cast<std::uint32_t>(RemoteProcedure::kMarkEntryRepaired);

CallResult Delivered(std::uint32_t number, std::uint8_t entryStatus = 0, std::int32_t count = 1) {
  CallResult result = {.end = CallEnd::kReturned};
  result.reply.resize(268);
  result.reply[0] = entryStatus;
  std::memcpy(&result.reply[4], &count, sizeof count);
  std::memcpy(&result.reply[8 + 2], &number, sizeof number);
  return result;
}

class ReadAheadTest : public ::testing::Test {
 protected:
  std::optional<std::uint32_t> Read(std::uint32_t number, const CallResult& result) {
    return ahead_.Next(kRead, EncodeReadLogEntry(number, 0).View(), result);
  }
  std::optional<CallResult> Take(std::uint32_t number) {
    return ahead_.Take(kRead, EncodeReadLogEntry(number, 0).View(), now_);
  }

  ReadAhead ahead_;
  ReadAhead::Clock::time_point now_{std::chrono::seconds(1000)};
};

TEST_F(ReadAheadTest, ASingleReadFetchesNothing) {
  EXPECT_EQ(Read(5, Delivered(5)), std::nullopt);
}

TEST_F(ReadAheadTest, AWalkFetchesFromItsSecondReadOn) {
  EXPECT_EQ(Read(0, Delivered(10)), std::nullopt);
  EXPECT_EQ(Read(11, Delivered(20)), 21U);
  EXPECT_EQ(Read(21, Delivered(21)), 22U);
}

TEST_F(ReadAheadTest, ReadsOfScatteredEntriesFetchNothing) {
  EXPECT_EQ(Read(5, Delivered(5)), std::nullopt);
  EXPECT_EQ(Read(5, Delivered(5)), std::nullopt);
  EXPECT_EQ(Read(7, Delivered(7)), std::nullopt);
}

TEST_F(ReadAheadTest, AnyOtherCallInterruptsTheWalk) {
  EXPECT_EQ(Read(0, Delivered(10)), std::nullopt);
  EXPECT_EQ(ahead_.Next(kMark, EncodeMarkEntryRepaired(11).View(), {.end = CallEnd::kReturned}),
            std::nullopt);
  EXPECT_EQ(Read(11, Delivered(11)), std::nullopt);
}

TEST_F(ReadAheadTest, ASlowMachineIsAskedForNothingAhead) {
  CallResult slow = Delivered(20);
  slow.took = ReadAhead::kQuick + std::chrono::milliseconds(1);
  EXPECT_EQ(Read(0, Delivered(10)), std::nullopt);
  EXPECT_EQ(Read(11, slow), std::nullopt);
  // The walk goes on; the machine may have been slow just once.
  CallResult quick = Delivered(30);
  quick.took = ReadAhead::kQuick;
  EXPECT_EQ(Read(21, quick), 31U);
}

TEST_F(ReadAheadTest, HowLongAFetchTookDecidesOnTheNextOne) {
  CallResult slow = Delivered(21);
  slow.took = std::chrono::seconds(3);
  EXPECT_EQ(Read(0, Delivered(10)), std::nullopt);
  EXPECT_EQ(Read(11, Delivered(20)), 21U);
  ahead_.Keep(21, slow, now_);
  const std::optional<CallResult> taken = Take(21);
  ASSERT_TRUE(taken.has_value());
  EXPECT_EQ(Read(21, *taken), std::nullopt);
}

TEST_F(ReadAheadTest, TheEndOfTheLogFetchesNothing) {
  const CallResult ends[] = {Delivered(11, ENTRY_STATUS_NONE),
                             Delivered(11, 0, 0),
                             Delivered(11, 0, -1),
                             Delivered(10),
                             Delivered(0xFFFFFFFF),
                             {.end = CallEnd::kRefused},
                             {.end = CallEnd::kLost},
                             {.end = CallEnd::kReturned}};
  for (const CallResult& end : ends) {
    EXPECT_EQ(Read(0, Delivered(10)), std::nullopt);
    EXPECT_EQ(Read(11, end), std::nullopt);
  }
}

TEST_F(ReadAheadTest, AFetchedAnswerIsGivenOnce) {
  EXPECT_FALSE(ahead_.holds());
  ahead_.Keep(22, Delivered(30), now_);
  EXPECT_TRUE(ahead_.holds());
  const std::optional<CallResult> taken = Take(22);
  ASSERT_TRUE(taken.has_value());
  EXPECT_EQ(taken->reply, Delivered(30).reply);
  EXPECT_FALSE(ahead_.holds());
  EXPECT_FALSE(Take(22).has_value());
}

TEST_F(ReadAheadTest, AFetchedFailureIsGivenToTheOneWhoAsks) {
  ahead_.Keep(22, {.end = CallEnd::kLost, .status = kCallFailed}, now_);
  const std::optional<CallResult> taken = Take(22);
  ASSERT_TRUE(taken.has_value());
  EXPECT_EQ(taken->status, kCallFailed);
}

TEST_F(ReadAheadTest, AnotherCallDropsTheFetchedAnswer) {
  ahead_.Keep(22, Delivered(22), now_);
  EXPECT_FALSE(Take(23).has_value());
  EXPECT_FALSE(Take(22).has_value());

  ahead_.Keep(22, Delivered(22), now_);
  EXPECT_FALSE(ahead_.Take(kMark, EncodeMarkEntryRepaired(22).View(), now_).has_value());
  EXPECT_FALSE(Take(22).has_value());

  ahead_.Keep(22, Delivered(22), now_);
  EXPECT_FALSE(ahead_.Take(kRead, EncodeReadLogEntry(22, 1).View(), now_).has_value());
}

TEST_F(ReadAheadTest, AnOldAnswerIsAskedForAgain) {
  ahead_.Keep(22, Delivered(22), now_);
  now_ += ReadAhead::kFresh;
  EXPECT_TRUE(Take(22).has_value());

  ahead_.Keep(22, Delivered(22), now_);
  now_ += ReadAhead::kFresh + std::chrono::milliseconds(1);
  EXPECT_FALSE(Take(22).has_value());
}

}  // namespace
}  // namespace qvl
