#include "trial/trial_service.h"

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <memory>
#include <thread>

#include "access/remote_monitor_client.h"
#include "tests/trial/trial_fixtures.h"

namespace qvl {
namespace {

using testing::Description;
using testing::Event;
using testing::kNoon;
using testing::LogBytes;
using testing::SameBytes;
using testing::TemporaryFile;

const Caller kAda = {"TRIAL\\ada", "ntlm"};

struct ReadAnswer {
  CallOutcome outcome;
  std::uint8_t status = 0;
  std::int32_t count = -1;
  RawLogEntry record{};
};

/// A service on the entries 1, 2 and 3, with the options that a test sets before `Start`.
class TrialServiceTest : public ::testing::Test {
 protected:
  void Start() {
    file_.Write(LogBytes({Event(1, "a"), Event(2, "b"), Event(3, "c")}));
    ASSERT_TRUE(store_.Open(file_.path()).ok());
    service_ = std::make_unique<TrialService>(store_, options_);
    const Status status = service_->Start();
    ASSERT_TRUE(status.ok()) << status.message();
  }

  ReadAnswer Read(std::uint32_t number) {
    ReadAnswer answer;
    answer.outcome =
        service_->ReadLogEntry(kAda, number, 0, answer.status, answer.count, answer.record);
    return answer;
  }

  std::uint8_t Clear() {
    std::uint8_t cleared = 9;
    EXPECT_EQ(service_->RemoteClearLog(kAda, 1, ToRemoteText("ada"), cleared).status, kRemoteOk);
    return cleared;
  }

  std::uint8_t Note(std::string_view text) {
    std::uint8_t written = 9;
    std::int32_t result = 9;
    EXPECT_EQ(
        service_->RemoteWriteMaintenanceNote(kAda, ToRemoteText(text), written, result).status,
        kRemoteOk);
    EXPECT_EQ(result, 0);
    return written;
  }

  std::uint8_t Repair(std::uint32_t number) {
    std::uint8_t status = 9;
    EXPECT_EQ(service_->MarkEntryRepaired(kAda, number, status).status, kRemoteOk);
    return status;
  }

  std::int32_t Administrator() {
    std::int32_t isAdministrator = 9;
    EXPECT_EQ(service_->QueryAdministratorAccess(kAda, isAdministrator).status, kRemoteOk);
    return isAdministrator;
  }

  std::uint8_t LogPresent() {
    std::uint8_t hasLog = 9;
    EXPECT_EQ(service_->QueryLogPresent(kAda, hasLog).status, kRemoteOk);
    return hasLog;
  }

  CallOutcome Present() {
    std::uint8_t hasLog = 9;
    return service_->QueryLogPresent(kAda, hasLog);
  }

  // What is served after every refused change: the log as it was.
  void ExpectUnchanged() {
    EXPECT_EQ(store_.size(), 3U);
    EXPECT_EQ(file_.Read(), LogBytes({Event(1, "a"), Event(2, "b"), Event(3, "c")}));
  }

  TemporaryFile file_{".qvx"};
  TemporaryFile callLog_{".log"};
  LogStore store_{[] { return kNoon; }};
  TrialOptions options_;
  std::unique_ptr<TrialService> service_;
};

TEST_F(TrialServiceTest, AHealthyMachineLetsAnAdministratorDoEverything) {
  Start();
  EXPECT_EQ(Administrator(), 1);
  EXPECT_EQ(LogPresent(), 1);
  const ReadAnswer first = Read(0);
  EXPECT_EQ(first.status, 0);
  EXPECT_EQ(first.count, 3);
  EXPECT_TRUE(SameBytes(first.record, Event(1, "a")));
  EXPECT_EQ(Repair(2), 0);
  EXPECT_EQ(Read(2).record.severity, kRepaired);
  EXPECT_EQ(Note("hello"), 1);
  EXPECT_EQ(Description(Read(4).record), "Maintenance note: hello");
  EXPECT_EQ(Clear(), 1);
  EXPECT_EQ(Description(Read(0).record), "QVX Cleared (ada)");
}

TEST_F(TrialServiceTest, BehindTheLastEntryComesTheStatusByteForNone) {
  Start();
  const ReadAnswer behind = Read(4);
  EXPECT_EQ(behind.outcome.status, kRemoteOk);
  EXPECT_EQ(behind.status, ENTRY_STATUS_NONE);
  EXPECT_EQ(behind.count, 0);
  EXPECT_TRUE(SameBytes(behind.record, RawLogEntry{}));
}

TEST_F(TrialServiceTest, TheUnusedProcedureAnswersZero) {
  Start();
  std::uint8_t value = 9;
  EXPECT_EQ(service_->Reserved4(kAda, value).status, kRemoteOk);
  EXPECT_EQ(value, 0);
}

TEST_F(TrialServiceTest, ATextWithoutAZeroIsCutAndAnEmptyNoteIsRefused) {
  Start();
  EXPECT_EQ(Note(""), 0);
  ExpectUnchanged();
  RemoteText full;
  full.fill('n');
  std::uint8_t written = 0;
  std::int32_t result = 0;
  service_->RemoteWriteMaintenanceNote(kAda, full, written, result);
  EXPECT_EQ(written, 1);
  EXPECT_EQ(Description(Read(4).record), "Maintenance note: " + std::string(227, 'n'));
}

TEST_F(TrialServiceTest, NoAdministratorChangesNothing) {
  options_.notAdministrator = true;
  Start();
  EXPECT_EQ(Administrator(), 0);
  EXPECT_EQ(Clear(), 0);
  EXPECT_EQ(Note("hello"), 0);
  EXPECT_EQ(Repair(1), ENTRY_STATUS_NONE);
  ExpectUnchanged();
  EXPECT_EQ(Read(0).count, 3);
}

TEST_F(TrialServiceTest, AMachineWithoutALogDeliversAndChangesNothing) {
  options_.noLog = true;
  Start();
  EXPECT_EQ(LogPresent(), 0);
  EXPECT_EQ(Read(0).status, ENTRY_STATUS_NONE);
  EXPECT_EQ(Clear(), 0);
  EXPECT_EQ(Note("hello"), 0);
  EXPECT_EQ(Repair(1), ENTRY_STATUS_NONE);
  ExpectUnchanged();
}

TEST_F(TrialServiceTest, AMachineWithoutADriverFailsEveryCall) {
  options_.noDriver = true;
  Start();
  EXPECT_EQ(Present().status, RM_E_NO_DRIVER);
  EXPECT_EQ(Read(0).outcome.status, RM_E_NO_DRIVER);
  EXPECT_EQ(Read(0).outcome.end, CallEnd::kReturned);
  EXPECT_EQ(Read(0).status, ENTRY_STATUS_NONE);
}

TEST_F(TrialServiceTest, ARefusedNoteLeavesTheOtherChanges) {
  options_.refuseNote = true;
  Start();
  EXPECT_EQ(Note("hello"), 0);
  ExpectUnchanged();
  EXPECT_EQ(Repair(1), 0);
  EXPECT_EQ(Clear(), 1);
}

TEST_F(TrialServiceTest, ARefusedRepairLeavesTheOtherChanges) {
  options_.refuseRepair = true;
  Start();
  EXPECT_EQ(Repair(1), ENTRY_STATUS_NONE);
  ExpectUnchanged();
  EXPECT_EQ(Note("hello"), 1);
  EXPECT_EQ(Clear(), 1);
}

TEST_F(TrialServiceTest, ARefusedClearLeavesTheOtherChanges) {
  options_.refuseClear = true;
  Start();
  EXPECT_EQ(Clear(), 0);
  ExpectUnchanged();
  EXPECT_EQ(Note("hello"), 1);
  EXPECT_EQ(Repair(1), 0);
}

TEST_F(TrialServiceTest, ALogThatCannotBeWrittenIsToldAsNotDone) {
  Start();
  const std::filesystem::path blocking(file_.path() + ".new");
  std::filesystem::create_directory(blocking);
  EXPECT_EQ(Clear(), 0);
  EXPECT_EQ(Note("hello"), 0);
  EXPECT_EQ(Repair(1), ENTRY_STATUS_NONE);
  std::filesystem::remove(blocking);
  ExpectUnchanged();
}

TEST_F(TrialServiceTest, CallsFailByTheirNumber) {
  options_.failCalls = {
      {2, 5   },
      {3, 1726}
  };
  Start();
  EXPECT_EQ(Present().status, kRemoteOk);
  const ReadAnswer denied = Read(0);
  EXPECT_EQ(denied.outcome.end, CallEnd::kReturned);
  EXPECT_EQ(denied.outcome.status, kAccessDenied);
  EXPECT_EQ(denied.status, ENTRY_STATUS_NONE);
  const CallOutcome fault = Present();
  EXPECT_EQ(fault.end, CallEnd::kFault);
  EXPECT_EQ(fault.status, kCallFailed);
  EXPECT_EQ(Present().status, kRemoteOk);
}

TEST_F(TrialServiceTest, AFailingCallChangesNothing) {
  options_.failCalls = {
      {1, 5},
      {2, 5},
      {3, 5}
  };
  Start();
  std::uint8_t byte = 9;
  std::int32_t result = 9;
  EXPECT_EQ(service_->RemoteClearLog(kAda, 1, ToRemoteText("ada"), byte).status, kAccessDenied);
  EXPECT_EQ(byte, 0);
  service_->RemoteWriteMaintenanceNote(kAda, ToRemoteText("hello"), byte, result);
  EXPECT_EQ(byte, 0);
  service_->MarkEntryRepaired(kAda, 1, byte);
  EXPECT_EQ(byte, ENTRY_STATUS_NONE);
  ExpectUnchanged();
}

TEST_F(TrialServiceTest, ReadsFailByTheEntryThatIsAskedFor) {
  options_.failEntries = {
      {2, 87}
  };
  Start();
  EXPECT_EQ(Read(1).outcome.status, kRemoteOk);
  EXPECT_EQ(Read(2).outcome.status, kInvalidArgument);
  EXPECT_EQ(Read(2).status, ENTRY_STATUS_NONE);
  EXPECT_EQ(Read(3).outcome.status, kRemoteOk);
}

TEST_F(TrialServiceTest, DiesInOneCall) {
  options_.dieInCall = 2;
  Start();
  EXPECT_EQ(Present().end, CallEnd::kReturned);
  EXPECT_EQ(Present().end, CallEnd::kDie);
}

TEST_F(TrialServiceTest, SparseNumbersAreWalkedRefreshedAndRepaired) {
  options_.sparseStep = 100;
  Start();
  EXPECT_EQ(Read(0).record.entryNumber + 0, 100U);
  EXPECT_EQ(Read(101).record.entryNumber + 0, 200U);
  EXPECT_EQ(Read(200).record.entryNumber + 0, 200U);
  EXPECT_EQ(Read(301).status, ENTRY_STATUS_NONE);
  EXPECT_EQ(Repair(201), ENTRY_STATUS_NONE);
  EXPECT_EQ(Repair(200), 0);
  EXPECT_EQ(Read(200).record.severity, kRepaired);
}

TEST_F(TrialServiceTest, SparseNumbersThatDoNotFitAreNotDelivered) {
  options_.sparseStep = 0x7FFFFFFF;
  Start();
  EXPECT_EQ(Read(1).record.entryNumber + 0, 0x7FFFFFFFU);
  EXPECT_EQ(Read(0x80000000).record.entryNumber + 0, 0xFFFFFFFEU);
  EXPECT_EQ(Read(0xFFFFFFFF).status, ENTRY_STATUS_NONE);
}

TEST_F(TrialServiceTest, NumbersFallBackFromADeliveredEntryOn) {
  options_.numberFallsBackAt = 3;
  Start();
  EXPECT_EQ(Read(0).record.entryNumber + 0, 1U);
  EXPECT_EQ(Read(2).record.entryNumber + 0, 2U);
  const ReadAnswer third = Read(3);
  EXPECT_EQ(third.record.entryNumber + 0, 2U);
  EXPECT_EQ(third.record.data, Event(3, "c").data);
  EXPECT_EQ(Read(3).record.entryNumber + 0, 2U);
}

TEST_F(TrialServiceTest, LogOfCallsTellsWhoAskedWhatAndWhatCame) {
  options_.callLogPath = callLog_.path();
  options_.failCalls = {
      {4, 0xE0000002},
      {5, 1722      }
  };
  options_.dieInCall = 6;
  Start();
  Read(2);
  Note("line\nbreak \"quoted\"");
  Read(9);
  for (int i = 0; i < 3; ++i) Present();
  service_->RepeatNewestEvent();
  service_.reset();
  EXPECT_EQ(callLog_.Read(),
            "1 \"TRIAL\\ada\" ntlm ReadLogEntry 2: status 0, entry 2 of 3\n"
            "2 \"TRIAL\\ada\" ntlm RemoteWriteMaintenanceNote \"line\\x0abreak \\x22quoted\\x22\": "
            "status 0, written\n"
            "3 \"TRIAL\\ada\" ntlm ReadLogEntry 9: status 0, none\n"
            "4 \"TRIAL\\ada\" ntlm QueryLogPresent: status 0xe0000002\n"
            "5 \"TRIAL\\ada\" ntlm QueryLogPresent: fault 1722\n"
            "6 \"TRIAL\\ada\" ntlm QueryLogPresent: died\n"
            "event 3\n");
}

TEST_F(TrialServiceTest, ALogOfCallsThatCannotBeWrittenIsAFailedStart) {
  options_.callLogPath = callLog_.path() + ".missing/calls";
  TrialService service(store_, options_);
  EXPECT_FALSE(service.Start().ok());
}

TEST_F(TrialServiceTest, AnAnswerComesLaterByTheDelay) {
  options_.delay = std::chrono::milliseconds(80);
  Start();
  const auto before = std::chrono::steady_clock::now();
  Present();
  EXPECT_GE(std::chrono::steady_clock::now() - before, options_.delay);
}

TEST_F(TrialServiceTest, StopEndsTheDelayOfACallUnderWay) {
  options_.delay = std::chrono::hours(1);
  Start();
  auto call = std::async(std::launch::async, [this] { return Present(); });
  service_->Stop();
  ASSERT_EQ(call.wait_for(std::chrono::seconds(60)), std::future_status::ready);
  EXPECT_EQ(call.get().status, kRemoteOk);
}

TEST_F(TrialServiceTest, EventsOccurAgainByThemselves) {
  options_.eventEvery = std::chrono::milliseconds(1);
  Start();
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
  ReadAnswer newest = Read(3);
  while (newest.record.count < 3 && std::chrono::steady_clock::now() < deadline) {
    std::this_thread::yield();
    newest = Read(3);
  }
  EXPECT_GE(newest.record.count + 0, 3U);
  EXPECT_EQ(newest.record.updateTime, kNoon);
  EXPECT_EQ(newest.record.initialTime, Event(3).initialTime);
  EXPECT_EQ(store_.size(), 3U);
}

}  // namespace
}  // namespace qvl
