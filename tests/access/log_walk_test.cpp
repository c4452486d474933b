#include "access/log_walk.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tests/fakes/fake_machine.h"

namespace qvl {
namespace {

using testing::FakeMachine;
using testing::Step;

RawLogEntry Record(std::uint32_t number) {
  RawLogEntry record{};
  record.entryNumber = number;
  return record;
}

class LogWalkTest : public ::testing::Test {
 protected:
  LogWalkTest() {
    std::int32_t isAdministrator = 0;
    EXPECT_EQ(client_.Connect("SERVER", isAdministrator), kRemoteOk);
    machine_.calls.clear();
  }

  void Hold(const std::vector<std::uint32_t>& numbers) {
    for (const std::uint32_t number : numbers) machine_.records.push_back(Record(number));
  }

  WalkResult Walk() {
    return WalkLog(client_, [this](const RawLogEntry& record) {
      const std::uint32_t number = record.entryNumber;  // the record is packed
      taken_.push_back(number);
      return taken_.size() < enough_;
    });
  }

  FakeMachine machine_;
  RemoteMonitorClient client_{machine_};
  std::vector<std::uint32_t> taken_;
  std::size_t enough_ = 1000;
};

using Numbers = std::vector<std::uint32_t>;
using Calls = std::vector<std::string>;

TEST_F(LogWalkTest, AsksForZeroAndThenForTheNumberAfterEachEntry) {
  Hold({1, 2, 5, 900});
  EXPECT_EQ(Walk().end, WalkEnd::kEndOfLog);
  EXPECT_EQ(taken_, (Numbers{1, 2, 5, 900}));
  EXPECT_EQ(machine_.calls, (Calls{"read 0", "read 2", "read 3", "read 6", "read 901"}));
}

TEST_F(LogWalkTest, AnEmptyLogEndsAtTheStatusByte) {
  machine_.lastEntryCount = 1;
  EXPECT_EQ(Walk().end, WalkEnd::kEndOfLog);
  EXPECT_TRUE(taken_.empty());
  EXPECT_EQ(machine_.calls, Calls{"read 0"});
}

TEST_F(LogWalkTest, AnEmptyLogEndsAtACountOfZeroOrBelow) {
  for (const std::int32_t count : {0, -1}) {
    machine_.lastEntryStatus = 0;
    machine_.lastEntryCount = count;
    EXPECT_EQ(Walk().end, WalkEnd::kEndOfLog);
    EXPECT_TRUE(taken_.empty());
  }
}

TEST_F(LogWalkTest, AFirstFailureSaysWhy) {
  Hold({1, 2});
  machine_.FailCall(Step::kRead, 1, RM_E_NO_DRIVER);
  const WalkResult result = Walk();
  EXPECT_EQ(result.end, WalkEnd::kFirstReadFailed);
  EXPECT_EQ(result.status, RM_E_NO_DRIVER);
}

TEST_F(LogWalkTest, ALaterFailureKeepsWhatCameBefore) {
  Hold({1, 2, 3, 4, 5});
  machine_.FailCall(Step::kRead, 3, kCallFailed);
  const WalkResult result = Walk();
  EXPECT_EQ(result.end, WalkEnd::kLaterReadFailed);
  EXPECT_EQ(result.status, kCallFailed);
  EXPECT_EQ(taken_, (Numbers{1, 2}));
}

// A damaged number would lead round in circles; the entry itself is told all the same.
TEST_F(LogWalkTest, ANumberThatFallsBackEndsTheWalkAfterItsEntry) {
  machine_.deliver = [](std::uint32_t number) -> std::optional<RawLogEntry> {
    if (number < 4) return Record(number + 1);
    RawLogEntry damaged = Record(2);
    damaged.count = 77;
    return damaged;
  };
  const WalkResult result = Walk();
  EXPECT_EQ(result.end, WalkEnd::kNumberFellBack);
  EXPECT_EQ(result.asked, 4U);
  EXPECT_EQ(result.delivered, 2U);
  EXPECT_EQ(taken_, (Numbers{1, 3, 2}));
}

TEST_F(LogWalkTest, AnEntryDeliveredBeforeIsNotTakenTwice) {
  machine_.deliver = [](std::uint32_t) { return Record(1); };
  EXPECT_EQ(Walk().end, WalkEnd::kNumberFellBack);
  EXPECT_EQ(taken_, Numbers{1});
}

TEST_F(LogWalkTest, TheHighestNumberIsTheLast) {
  Hold({7, 0xFFFFFFFF});
  EXPECT_EQ(Walk().end, WalkEnd::kEndOfLog);
  EXPECT_EQ(taken_, (Numbers{7, 0xFFFFFFFF}));
  EXPECT_EQ(machine_.calls, (Calls{"read 0", "read 8"}));
}

TEST_F(LogWalkTest, StopsWhenTheTakerHasEnough) {
  Hold({1, 2, 3});
  enough_ = 2;
  EXPECT_EQ(Walk().end, WalkEnd::kStopped);
  EXPECT_EQ(taken_, (Numbers{1, 2}));
}

}  // namespace
}  // namespace qvl
