// The client against the substitute service, each in its own process, through rpcrt4's named pipe.
#include "access/remote_call_runtime.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "access/log_walk.h"
#include "access/remote_monitor_client.h"
#include "entries/severity.h"
#include "files/log_file.h"
#include "tests/files/file_fixtures.h"

namespace qvl {
namespace {

using testing::TemporaryFile;

constexpr const char* kMachine = "LOCALHOST";
constexpr DWORD kStepMilliseconds = 20;
constexpr int kStepsOfPatience = 1500;  // half a minute

/// zlkrcmc-trial in a process of its own, on the log that is given.
class TrialProcess {
 public:
  TrialProcess(const std::vector<RawLogEntry>& records, const std::string& switches) {
    WriteLog(records);
    const char* const program = std::getenv("QVL_TRIAL_PROGRAM");
    if (program == nullptr) return;
    std::string line = "\"" + std::string(program) + "\" --ready \"" + ready_.path() + "\" " +
                       switches + " \"" + log_.path() + "\"";
    HANDLE itsInput = nullptr;
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    ::CreatePipe(&itsInput, &input_, &inherited, 0);
    ::SetHandleInformation(input_, HANDLE_FLAG_INHERIT, 0);
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = itsInput;
    startup.hStdOutput = ::GetStdHandle(STD_OUTPUT_HANDLE);
    startup.hStdError = ::GetStdHandle(STD_ERROR_HANDLE);
    if (::CreateProcessA(program, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                         &startup, &process_) != 0) {
      ::CloseHandle(process_.hThread);
    }
    ::CloseHandle(itsInput);
  }
  ~TrialProcess() {
    CloseInput();
    if (process_.hProcess == nullptr) return;
    ::TerminateProcess(process_.hProcess, 1);
    ::WaitForSingleObject(process_.hProcess, INFINITE);
    ::CloseHandle(process_.hProcess);
  }
  TrialProcess(const TrialProcess&) = delete;
  TrialProcess& operator=(const TrialProcess&) = delete;

  bool Listens() const {
    for (int step = 0; step < kStepsOfPatience && process_.hProcess != nullptr; ++step) {
      if (ready_.Exists()) return true;
      if (::WaitForSingleObject(process_.hProcess, kStepMilliseconds) != WAIT_TIMEOUT) break;
    }
    return false;
  }

  bool Runs() const { return ::WaitForSingleObject(process_.hProcess, 0) == WAIT_TIMEOUT; }

  void CloseInput() {
    if (input_ != nullptr) ::CloseHandle(input_);
    input_ = nullptr;
  }

  /// Takes the ready file away; returns the exit status, or -1 when it does not end.
  int End() const {
    std::filesystem::remove(ready_.path());
    return ExitStatus();
  }

  int ExitStatus() const {
    DWORD status = 0;
    if (::WaitForSingleObject(process_.hProcess, kStepMilliseconds * kStepsOfPatience) !=
            WAIT_OBJECT_0 ||
        ::GetExitCodeProcess(process_.hProcess, &status) == 0) {
      return -1;
    }
    return static_cast<int>(status);
  }

 private:
  void WriteLog(const std::vector<RawLogEntry>& records) const {
    EntryList entries;
    for (const RawLogEntry& record : records) entries.Append(record);
    EXPECT_TRUE(SaveLogFile(log_.path(), entries).ok());
  }

  TemporaryFile log_{".qvx"};
  TemporaryFile ready_{".ready"};
  HANDLE input_ = nullptr;
  PROCESS_INFORMATION process_ = {};
};

std::vector<RawLogEntry> SomeRecords() {
  std::mt19937 random(4711);
  std::vector<RawLogEntry> records;
  for (const std::uint32_t number : {1U, 2U, 5U, 0x7FFFFFFFU, 0x80000000U}) {
    RawLogEntry record = testing::RandomRecord(random);
    record.entryNumber = number;
    record.severity = kLowestRepairable;
    records.push_back(record);
  }
  return records;
}

bool Same(const std::vector<RawLogEntry>& a, const std::vector<RawLogEntry>& b) {
  return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof a[0]) == 0;
}

class RpcrtTest : public ::testing::Test {
 protected:
  RemoteStatus Connect() { return client_.Connect(kMachine, isAdministrator_); }

  WalkResult Walk() {
    records_.clear();
    return WalkLog(client_, [this](const RawLogEntry& record) {
      records_.push_back(record);
      return true;
    });
  }

  std::unique_ptr<RemoteCallRuntime> runtime_ = MakeSystemRuntime();
  RemoteMonitorClient client_{*runtime_};
  std::int32_t isAdministrator_ = -7;
  std::vector<RawLogEntry> records_;
};

TEST_F(RpcrtTest, WithoutAServiceConnectSaysUnavailable) {
  EXPECT_EQ(Connect(), kServerUnavailable);
  EXPECT_EQ(isAdministrator_, -7);
  EXPECT_EQ(client_.Disconnect(), RM_E_NOT_OPEN);
}

TEST_F(RpcrtTest, AServiceThatIsToEndDoesNotWaitForItsDelay) {
  const TemporaryFile calls(".calls");
  const TrialProcess service(SomeRecords(), "--delay 3600000 --log-call \"" + calls.path() + "\"");
  ASSERT_TRUE(service.Listens());
  RemoteStatus status = kAccessDenied;
  std::thread caller([this, &status] { status = Connect(); });
  // The service keeps the file to itself; its size can be seen.
  std::error_code error;
  std::uintmax_t size = 0;
  for (int step = 0; step < kStepsOfPatience && size == 0; ++step) {
    ::Sleep(kStepMilliseconds);
    size = std::filesystem::file_size(calls.path(), error);
    if (error) size = 0;
  }
  EXPECT_GT(size, 0U);
  EXPECT_EQ(service.End(), 0);
  caller.join();
  EXPECT_EQ(status, kRemoteOk);
}

TEST_F(RpcrtTest, AServiceEndsWithItsInput) {
  TrialProcess service(SomeRecords(), "--end-with-input");
  ASSERT_TRUE(service.Listens());
  EXPECT_EQ(Connect(), kRemoteOk);
  EXPECT_TRUE(service.Runs());
  service.CloseInput();
  EXPECT_EQ(service.ExitStatus(), 0);
}

TEST_F(RpcrtTest, ReadsTheWholeLogByteForByte) {
  const TrialProcess service(SomeRecords(), "");
  ASSERT_TRUE(service.Listens());
  ASSERT_EQ(Connect(), kRemoteOk);
  EXPECT_NE(isAdministrator_, 0);
  std::uint8_t hasLog = 0;
  EXPECT_EQ(client_.IsLogPresent(hasLog), kRemoteOk);
  EXPECT_NE(hasLog, 0);
  EXPECT_EQ(Walk().end, WalkEnd::kEndOfLog);
  EXPECT_TRUE(Same(records_, SomeRecords()));
  EXPECT_EQ(client_.Disconnect(), kRemoteOk);
  EXPECT_EQ(service.End(), 0);
}

TEST_F(RpcrtTest, AnEmptyLogHasNoEntry) {
  const TrialProcess service({}, "--not-administrator");
  ASSERT_TRUE(service.Listens());
  ASSERT_EQ(Connect(), kRemoteOk);
  EXPECT_EQ(isAdministrator_, 0);
  EXPECT_EQ(Walk().end, WalkEnd::kEndOfLog);
  EXPECT_TRUE(records_.empty());
}

TEST_F(RpcrtTest, NotesRepairsAndClears) {
  const TrialProcess service(SomeRecords(), "");
  ASSERT_TRUE(service.Listens());
  ASSERT_EQ(Connect(), kRemoteOk);
  const std::string longest(kRemoteTextSize - 1, 'n');
  std::uint8_t answer = 0;
  std::int32_t result = -7;
  EXPECT_EQ(client_.WriteMaintenanceNote(ToRemoteText(longest), answer, result), kRemoteOk);
  EXPECT_EQ(answer, 1);
  EXPECT_EQ(result, 0);
  std::int32_t count = 0;
  RawLogEntry note{};
  EXPECT_EQ(client_.ReadEntry(0x80000001, 0, answer, count, note), kRemoteOk);
  EXPECT_EQ(count, 6);
  EXPECT_EQ(std::memcmp(note.data.data(), longest.c_str(), kRemoteTextSize), 0);
  EXPECT_EQ(client_.MarkRepaired(0x80000000, answer), kRemoteOk);
  EXPECT_EQ(answer, 0);
  EXPECT_EQ(client_.MarkRepaired(3, answer), kRemoteOk);
  EXPECT_EQ(answer, ENTRY_STATUS_NONE);
  EXPECT_EQ(client_.ClearLog(1, ToRemoteText("M\xFCller"), answer), kRemoteOk);
  EXPECT_EQ(answer, 1);
  EXPECT_EQ(Walk().end, WalkEnd::kEndOfLog);
  ASSERT_EQ(records_.size(), 1U);
  EXPECT_EQ(std::memcmp(records_[0].data.data(), "M\xFCller", 7), 0);
}

TEST_F(RpcrtTest, ASecondConnectLeavesTheFirstAsItIs) {
  const TrialProcess service(SomeRecords(), "");
  ASSERT_TRUE(service.Listens());
  ASSERT_EQ(Connect(), kRemoteOk);
  EXPECT_EQ(Connect(), RM_E_ALREADY_OPEN);
  EXPECT_EQ(Walk().end, WalkEnd::kEndOfLog);
  EXPECT_EQ(records_.size(), 5U);
}

TEST_F(RpcrtTest, AServiceOfAnotherVersionIsAnUnknownInterface) {
  const TrialProcess service(SomeRecords(), "--interface-version 3.0");
  ASSERT_TRUE(service.Listens());
  EXPECT_EQ(Connect(), kUnknownInterface);
  EXPECT_EQ(isAdministrator_, -7);
  EXPECT_EQ(client_.Disconnect(), RM_E_NOT_OPEN);
}

TEST_F(RpcrtTest, AServiceThatDiesInACallIsAStatusAndChangesNoOutput) {
  const TrialProcess service(SomeRecords(), "--die-in-call 2");
  ASSERT_TRUE(service.Listens());
  ASSERT_EQ(Connect(), kRemoteOk);
  std::uint8_t entryStatus = 9;
  std::int32_t entryCount = 9;
  RawLogEntry record = SomeRecords()[0];
  EXPECT_EQ(client_.ReadEntry(0, 0, entryStatus, entryCount, record), kCallFailed);
  EXPECT_EQ(entryStatus, 9);
  EXPECT_EQ(entryCount, 9);
  EXPECT_TRUE(Same({record}, {SomeRecords()[0]}));
  EXPECT_EQ(service.ExitStatus(), 1);
  EXPECT_EQ(client_.ReadEntry(0, 0, entryStatus, entryCount, record), kServerUnavailable);
  EXPECT_EQ(client_.Disconnect(), kRemoteOk);
}

TEST_F(RpcrtTest, AFailedCallIsItsStatusAndTheNextOneWorks) {
  const TrialProcess service(SomeRecords(),
                             "--fail-call 2=1783 --fail-call 3=5 --fail-call 4=0xE0000002");
  ASSERT_TRUE(service.Listens());
  ASSERT_EQ(Connect(), kRemoteOk);
  EXPECT_EQ(Walk().status, kBadStubData);
  EXPECT_EQ(Walk().status, kAccessDenied);
  EXPECT_EQ(Walk().status, RM_E_NO_DRIVER);
  EXPECT_EQ(Walk().end, WalkEnd::kEndOfLog);
  EXPECT_EQ(records_.size(), 5U);
}

TEST_F(RpcrtTest, RefusesABindingThatThereIsNot) {
  BindingHandle* none = nullptr;
  EXPECT_EQ(runtime_->FreeBinding(none), 1702U);
}

TEST_F(RpcrtTest, AnswersTheStatusOfEachStepThatMakesABinding) {
  const StringBindingParts parts = {.objectUuid = "",
                                    .protocolSequence = "ncacn_np",
                                    .networkAddress = kMachine,
                                    .endpoint = "\\pipe\\zlkrcmc"};
  ComposedBinding* composed = nullptr;
  BindingHandle* binding = nullptr;
  ASSERT_EQ(runtime_->ComposeStringBinding(parts, composed), kRemoteOk);
  ASSERT_EQ(runtime_->BindingFromComposed(composed, binding), kRemoteOk);
  EXPECT_EQ(runtime_->SetAuthentication(binding, {.level = 2, .service = 77, .authorisation = 0}),
            kUnknownAuthenticationService);
  EXPECT_EQ(runtime_->FreeBinding(binding), kRemoteOk);
  EXPECT_EQ(binding, nullptr);

  reinterpret_cast<char*>(composed)[0] = '@';  // the end of an object's UUID that does not begin
  EXPECT_NE(runtime_->BindingFromComposed(composed, binding), kRemoteOk);
  EXPECT_EQ(binding, nullptr);
  EXPECT_EQ(runtime_->FreeComposed(composed), kRemoteOk);
  EXPECT_EQ(composed, nullptr);
}

}  // namespace
}  // namespace qvl
