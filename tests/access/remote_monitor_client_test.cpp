#include "access/remote_monitor_client.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "tests/fakes/fake_machine.h"

namespace qvl {
namespace {

using testing::FakeMachine;
using testing::Step;
using Calls = std::vector<std::string>;

class RemoteMonitorClientTest : public ::testing::Test {
 protected:
  RemoteStatus Connect() { return client_.Connect("SERVER", isAdministrator_); }

  FakeMachine machine_;
  RemoteMonitorClient client_{machine_};
  std::int32_t isAdministrator_ = -1;
};

TEST_F(RemoteMonitorClientTest, ConnectTakesItsStepsInOrder) {
  EXPECT_EQ(Connect(), kRemoteOk);
  EXPECT_EQ(machine_.calls,
            (Calls{"compose SERVER", "bind", "free composed", "authenticate", "administrator"}));
  EXPECT_EQ(isAdministrator_, 1);
}

TEST_F(RemoteMonitorClientTest, ConnectNamesTheInterfaceAndItsPipe) {
  EXPECT_EQ(Connect(), kRemoteOk);
  EXPECT_EQ(machine_.parts.objectUuid, "5c2e9a41-7b3d-4f08-a6e2-19d04c7b3e55");
  EXPECT_EQ(machine_.parts.protocolSequence, "ncacn_np");
  EXPECT_EQ(machine_.parts.networkAddress, "SERVER");
  EXPECT_EQ(machine_.parts.endpoint, "\\pipe\\zlkrcmc");
}

TEST_F(RemoteMonitorClientTest, ConnectAuthenticatesAsTheCallerWithNtlmAtConnectLevel) {
  EXPECT_EQ(Connect(), kRemoteOk);
  EXPECT_EQ(machine_.authentication.level, 2U);
  EXPECT_EQ(machine_.authentication.service, 10U);
  EXPECT_EQ(machine_.authentication.authorisation, 0U);
}

struct FailedStep {
  Step step;
  Calls calls;
};

class ConnectFailureTest : public RemoteMonitorClientTest,
                           public ::testing::WithParamInterface<FailedStep> {};

// A composed string whose binding failed is lost on purpose: freeing it is not among the calls.
INSTANTIATE_TEST_SUITE_P(
    Steps, ConnectFailureTest,
    ::testing::Values(
        FailedStep{
            Step::kCompose, {"compose SERVER"}
},
        FailedStep{Step::kBind, {"compose SERVER", "bind", "free binding"}},
        FailedStep{Step::kFreeComposed,
                   {"compose SERVER", "bind", "free composed", "free binding"}},
        FailedStep{Step::kAuthenticate,
                   {"compose SERVER", "bind", "free composed", "authenticate", "free binding"}},
        FailedStep{Step::kAdministrator,
                   {"compose SERVER", "bind", "free composed", "authenticate", "administrator",
                    "free binding"}}));

TEST_P(ConnectFailureTest, EndsWithTheStatusOfTheStepAndStaysClosed) {
  machine_.Fail(GetParam().step, kServerUnavailable);
  EXPECT_EQ(Connect(), kServerUnavailable);
  EXPECT_EQ(machine_.calls, GetParam().calls);
  EXPECT_EQ(machine_.liveBindings(), 0U);
  EXPECT_EQ(isAdministrator_, -1);
  EXPECT_EQ(client_.Disconnect(), RM_E_NOT_OPEN);
}

TEST_F(RemoteMonitorClientTest, ConnectsAgainAfterAFailure) {
  machine_.FailCall(Step::kAdministrator, 1, kAccessDenied);
  EXPECT_EQ(Connect(), kAccessDenied);
  EXPECT_EQ(Connect(), kRemoteOk);
}

TEST_F(RemoteMonitorClientTest, RefusesASecondMachineAndKeepsTheFirst) {
  ASSERT_EQ(Connect(), kRemoteOk);
  machine_.calls.clear();
  std::int32_t isAdministrator = 5;
  EXPECT_EQ(client_.Connect("OTHER", isAdministrator), 0xE0000000U);
  EXPECT_EQ(isAdministrator, 5);
  EXPECT_TRUE(machine_.calls.empty());

  std::uint8_t hasLog = 0;
  EXPECT_EQ(client_.IsLogPresent(hasLog), kRemoteOk);
  EXPECT_EQ(hasLog, 1);
}

TEST_F(RemoteMonitorClientTest, DisconnectWhileClosedSaysSo) {
  EXPECT_EQ(client_.Disconnect(), 0xE0000001U);
  EXPECT_TRUE(machine_.calls.empty());
}

TEST_F(RemoteMonitorClientTest, DisconnectAnswersWhatFreeingTheBindingAnswered) {
  ASSERT_EQ(Connect(), kRemoteOk);
  machine_.Fail(Step::kFreeBinding, 1702);
  EXPECT_EQ(client_.Disconnect(), 1702U);
  EXPECT_EQ(client_.Disconnect(), RM_E_NOT_OPEN);
}

TEST_F(RemoteMonitorClientTest, OperationsWhileClosedCallNothingAndKeepTheirPresets) {
  std::uint8_t cleared = 9;
  EXPECT_EQ(client_.ClearLog(1, RemoteText{}, cleared), RM_E_NOT_OPEN);
  EXPECT_EQ(cleared, 0);

  std::uint8_t hasLog = 9;
  EXPECT_EQ(client_.IsLogPresent(hasLog), RM_E_NOT_OPEN);
  EXPECT_EQ(hasLog, 0);

  std::uint8_t repairStatus = 9;
  EXPECT_EQ(client_.MarkRepaired(3, repairStatus), RM_E_NOT_OPEN);
  EXPECT_EQ(repairStatus, 135);

  std::uint8_t entryStatus = 9;
  std::int32_t entryCount = 9;
  RawLogEntry record{};
  record.entryNumber = 9;
  EXPECT_EQ(client_.ReadEntry(0, 0, entryStatus, entryCount, record), RM_E_NOT_OPEN);
  EXPECT_EQ(entryStatus, 9);
  EXPECT_EQ(entryCount, 9);
  EXPECT_EQ(std::uint32_t{record.entryNumber}, 9U);

  std::uint8_t written = 9;
  std::int32_t noteResult = 9;
  EXPECT_EQ(client_.WriteMaintenanceNote(RemoteText{}, written, noteResult), RM_E_NOT_OPEN);
  EXPECT_EQ(written, 9);
  EXPECT_EQ(noteResult, 9);
  EXPECT_TRUE(machine_.calls.empty());
}

TEST_F(RemoteMonitorClientTest, FailedOperationsLeaveTheirPresets) {
  ASSERT_EQ(Connect(), kRemoteOk);
  for (const Step step : {Step::kClear, Step::kPresent, Step::kRepair, Step::kNote}) {
    machine_.Fail(step, kCallFailed);
  }
  std::uint8_t cleared = 9;
  EXPECT_EQ(client_.ClearLog(1, RemoteText{}, cleared), kCallFailed);
  EXPECT_EQ(cleared, 0);
  std::uint8_t hasLog = 9;
  EXPECT_EQ(client_.IsLogPresent(hasLog), kCallFailed);
  EXPECT_EQ(hasLog, 0);
  std::uint8_t repairStatus = 9;
  EXPECT_EQ(client_.MarkRepaired(3, repairStatus), kCallFailed);
  EXPECT_EQ(repairStatus, ENTRY_STATUS_NONE);
  std::uint8_t written = 9;
  std::int32_t noteResult = 9;
  EXPECT_EQ(client_.WriteMaintenanceNote(RemoteText{}, written, noteResult), kCallFailed);
  EXPECT_EQ(written, 9);
}

TEST_F(RemoteMonitorClientTest, OperationsHandTheirArgumentsOn) {
  ASSERT_EQ(Connect(), kRemoteOk);
  RawLogEntry last{};
  last.entryNumber = 0xFFFFFFFF;
  machine_.records = {last};
  machine_.noteResult = 7;
  machine_.calls.clear();

  std::uint8_t byte = 0;
  std::int32_t number = 0;
  RawLogEntry record{};
  EXPECT_EQ(client_.ReadEntry(0xFFFFFFFF, 0, byte, number, record), kRemoteOk);
  EXPECT_EQ(std::uint32_t{record.entryNumber}, 0xFFFFFFFFU);
  EXPECT_EQ(client_.ClearLog(1, ToRemoteText("ops"), byte), kRemoteOk);
  EXPECT_EQ(byte, 1);
  EXPECT_EQ(client_.WriteMaintenanceNote(ToRemoteText("checked"), byte, number), kRemoteOk);
  EXPECT_EQ(number, 7);
  EXPECT_EQ(client_.MarkRepaired(12, byte), kRemoteOk);
  EXPECT_EQ(byte, 0);
  EXPECT_EQ(machine_.calls, (Calls{"read 4294967295", "clear ops", "note checked", "repair 12"}));
}

TEST_F(RemoteMonitorClientTest, ClosesItsMachineWhenItEnds) {
  FakeMachine machine;
  {
    RemoteMonitorClient client(machine);
    ASSERT_EQ(client.Connect("SERVER", isAdministrator_), kRemoteOk);
    EXPECT_EQ(machine.liveBindings(), 1U);
  }
  EXPECT_EQ(machine.liveBindings(), 0U);
}

TEST(RemoteText, HoldsTwoHundredTwentySevenCharactersAndAZero) {
  const RemoteText full = ToRemoteText(std::string(227, 'x'));
  EXPECT_EQ(std::count(full.begin(), full.end(), 'x'), 227);
  EXPECT_EQ(full.back(), 0);
  EXPECT_EQ(ToRemoteText(std::string(500, 'x')), full);
  EXPECT_EQ(ToRemoteText(""), RemoteText{});
}

}  // namespace
}  // namespace qvl
