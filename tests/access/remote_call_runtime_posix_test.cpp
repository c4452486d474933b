#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "access/helper_process.h"
#include "access/remote_call_runtime.h"
#include "access/remote_monitor_client.h"

namespace qvl {
namespace {

using Lines = std::vector<std::string>;
using std::chrono::steady_clock;

constexpr const char* kAdministrator = "returned:0100000000000000";
constexpr const char* kEntry7 = "returned:0000000001000000";  // 256 bytes and a status follow

std::string Entry(const std::string& head, std::uint8_t number) {
  std::string text = head + "0000";
  constexpr const char* kDigits = "0123456789abcdef";
  text += kDigits[number >> 4U];
  text += kDigits[number & 15U];
  return text + std::string(std::size_t{2} * 253, '0') + "00000000";
}

int OpenDescriptors() {
  int count = 0;
  for (int i = 0; i < 256; ++i) count += ::fcntl(i, F_GETFD) >= 0 ? 1 : 0;
  return count;
}

bool HasChildren() {
  return ::waitpid(-1, nullptr, WNOHANG) >= 0 || errno != ECHILD;
}

// A helper that plays a script (scripted_helper_posix.cpp) instead of calling a machine.
class RemoteCallRuntimeTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string folder = ::testing::TempDir() + "qvl-runtime-XXXXXX";
    ASSERT_NE(::mkdtemp(folder.data()), nullptr);
    folder_ = folder;
    ::setenv("QVL_RPC_HELPER", QVL_SCRIPTED_HELPER, 1);
    ::setenv("QVL_TEST_TRACE", (folder_ / "trace").c_str(), 1);
    ::setenv("QVL_CONNECT_TIMEOUT_MS", "20000", 1);
    ::setenv("QVL_CALL_TIMEOUT_MS", "20000", 1);
    descriptors_ = OpenDescriptors();
  }
  void TearDown() override {
    client_.Disconnect();
    EXPECT_EQ(OpenDescriptors(), descriptors_);
    EXPECT_FALSE(HasChildren());
    std::filesystem::remove_all(folder_);
  }

  void Script(const std::string& steps) { ::setenv("QVL_TEST_STEPS", steps.c_str(), 1); }
  RemoteStatus Connect() { return client_.Connect("SERVER", isAdministrator_); }

  Lines Trace() const {
    Lines lines;
    std::ifstream in(folder_ / "trace");
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
  }

  std::filesystem::path folder_;
  int descriptors_ = 0;
  std::unique_ptr<RemoteCallRuntime> runtime_ = MakeSystemRuntime();
  RemoteMonitorClient client_{*runtime_};
  std::int32_t isAdministrator_ = -1;
};

TEST_F(RemoteCallRuntimeTest, ConnectsWithTheFirstCall) {
  Script(std::string("connected ") + kAdministrator);
  EXPECT_EQ(Connect(), kRemoteOk);
  EXPECT_EQ(isAdministrator_, 1);
  EXPECT_EQ(client_.Disconnect(), kRemoteOk);
  // It gets its socket and its three streams, and nothing else of the program's.
  EXPECT_EQ(Trace(), (Lines{"start 0 1 2 3", "connect SERVER", "call 0 ", "end"}));
}

TEST_F(RemoteCallRuntimeTest, ABindingAloneStartsNoProcess) {
  ComposedBinding* composed = nullptr;
  BindingHandle* binding = nullptr;
  ASSERT_EQ(runtime_->ComposeStringBinding({.objectUuid = "",
                                            .protocolSequence = "ncacn_np",
                                            .networkAddress = "SERVER",
                                            .endpoint = "\\pipe\\zlkrcmc"},
                                           composed),
            kRemoteOk);
  ASSERT_EQ(runtime_->BindingFromComposed(composed, binding), kRemoteOk);
  EXPECT_EQ(runtime_->FreeComposed(composed), kRemoteOk);
  EXPECT_EQ(composed, nullptr);
  EXPECT_EQ(runtime_->SetAuthentication(binding, {.level = 2, .service = 10, .authorisation = 0}),
            kRemoteOk);
  EXPECT_EQ(runtime_->FreeBinding(binding), kRemoteOk);
  EXPECT_EQ(binding, nullptr);
  EXPECT_TRUE(Trace().empty());
}

TEST_F(RemoteCallRuntimeTest, RefusesWhatItDoesNotSpeak) {
  ComposedBinding* composed = nullptr;
  BindingHandle* binding = nullptr;
  ASSERT_EQ(runtime_->ComposeStringBinding({"", "ncacn_ip_tcp", "SERVER", "1024"}, composed), 0U);
  EXPECT_EQ(runtime_->BindingFromComposed(composed, binding), kUnsupportedSequence);
  runtime_->FreeComposed(composed);
  ASSERT_EQ(runtime_->ComposeStringBinding({"", "ncacn_np", "SERVER", "\\pipe\\other"}, composed),
            0U);
  EXPECT_EQ(runtime_->BindingFromComposed(composed, binding), kInvalidEndpoint);
  EXPECT_EQ(binding, nullptr);
  runtime_->FreeComposed(composed);
}

TEST_F(RemoteCallRuntimeTest, ANullBindingIsRefused) {
  BindingHandle* binding = nullptr;
  EXPECT_EQ(runtime_->FreeBinding(binding), kInvalidBinding);
  EXPECT_EQ(runtime_->SetAuthentication(binding, {}), kInvalidBinding);
  std::uint8_t hasLog = 9;
  EXPECT_EQ(runtime_->QueryLogPresent(binding, hasLog), kInvalidBinding);
  EXPECT_EQ(hasLog, 9);
}

TEST_F(RemoteCallRuntimeTest, OnlyAnAuthenticatedBindingCalls) {
  ComposedBinding* composed = nullptr;
  BindingHandle* binding = nullptr;
  ASSERT_EQ(runtime_->ComposeStringBinding({"", "ncacn_np", "SERVER", "\\pipe\\zlkrcmc"}, composed),
            0U);
  ASSERT_EQ(runtime_->BindingFromComposed(composed, binding), kRemoteOk);
  runtime_->FreeComposed(composed);
  EXPECT_EQ(runtime_->SetAuthentication(binding, {.level = 6, .service = 10, .authorisation = 0}),
            kUnknownAuthenticationService);
  std::uint8_t hasLog = 9;
  EXPECT_EQ(runtime_->QueryLogPresent(binding, hasLog), kUnknownAuthenticationService);
  EXPECT_TRUE(Trace().empty());
  runtime_->FreeBinding(binding);
}

TEST_F(RemoteCallRuntimeTest, RunsEveryProcedure) {
  Script(std::string("connected ") + kAdministrator + ' ' + Entry(kEntry7, 7) +
         " returned:0100000000000000 returned:010000000700000000000000 returned:0100000000000000"
         " returned:0000000000000000");
  ASSERT_EQ(Connect(), kRemoteOk);

  std::uint8_t byte = 9;
  std::int32_t number = 9;
  RawLogEntry record{};
  EXPECT_EQ(client_.ReadEntry(5, 0, byte, number, record), kRemoteOk);
  EXPECT_EQ(byte, 0);
  EXPECT_EQ(number, 1);
  const std::uint32_t entryNumber = record.entryNumber;
  EXPECT_EQ(entryNumber, 7U);
  EXPECT_EQ(client_.ClearLog(1, ToRemoteText("U"), byte), kRemoteOk);
  EXPECT_EQ(byte, 1);
  EXPECT_EQ(client_.WriteMaintenanceNote(ToRemoteText("N"), byte, number), kRemoteOk);
  EXPECT_EQ(number, 7);
  EXPECT_EQ(client_.IsLogPresent(byte), kRemoteOk);
  EXPECT_EQ(client_.MarkRepaired(258, byte), kRemoteOk);
  EXPECT_EQ(byte, 0);

  const std::string zeros(std::size_t{2} * 227, '0');
  EXPECT_EQ(Trace(),
            (Lines{"start 0 1 2 3", "connect SERVER", "call 0 ", "call 1 0500000000000000",
                   "call 2 0155" + zeros, "call 3 4e" + zeros, "call 5 ", "call 6 02010000"}));
}

TEST_F(RemoteCallRuntimeTest, AnAnswerOfWrongLengthIsBadStubData) {
  Script(std::string("connected ") + kAdministrator + " returned:01 " + kAdministrator);
  ASSERT_EQ(Connect(), kRemoteOk);
  std::uint8_t entryStatus = 9;
  std::int32_t count = 9;
  RawLogEntry record{};
  EXPECT_EQ(client_.ReadEntry(0, 0, entryStatus, count, record), kBadStubData);
  EXPECT_EQ(entryStatus, 9);
  EXPECT_EQ(count, 9);
  // The connection has done nothing wrong.
  std::uint8_t hasLog = 0;
  EXPECT_EQ(client_.IsLogPresent(hasLog), kRemoteOk);
  EXPECT_EQ(Trace().front(), "start 0 1 2 3");
  EXPECT_EQ(Trace().size(), 5U);
}

TEST_F(RemoteCallRuntimeTest, AFailedConnectionIsItsStatus) {
  Script("failed:1717");
  EXPECT_EQ(Connect(), kUnknownInterface);
  EXPECT_FALSE(HasChildren());
  Script("failed:5");
  EXPECT_EQ(Connect(), kAccessDenied);
}

TEST_F(RemoteCallRuntimeTest, ARefusedCallKeepsTheConnection) {
  Script(std::string("connected ") + kAdministrator + " failed:1745 returned:0100000000000000");
  ASSERT_EQ(Connect(), kRemoteOk);
  std::uint8_t hasLog = 9;
  EXPECT_EQ(client_.IsLogPresent(hasLog), kProcedureOutOfRange);
  EXPECT_EQ(hasLog, 0);
  EXPECT_EQ(client_.IsLogPresent(hasLog), kRemoteOk);
  EXPECT_EQ(hasLog, 1);
}

TEST_F(RemoteCallRuntimeTest, ALostConnectionIsMadeAnewByTheNextCall) {
  Script(std::string("connected ") + kAdministrator + " lost:1726");
  ASSERT_EQ(Connect(), kRemoteOk);
  std::uint8_t hasLog = 9;
  EXPECT_EQ(client_.IsLogPresent(hasLog), kCallFailed);
  EXPECT_FALSE(HasChildren());

  Script("failed:1722");
  EXPECT_EQ(client_.IsLogPresent(hasLog), kServerUnavailable);
  Script("connected returned:0100000000000000");
  EXPECT_EQ(client_.IsLogPresent(hasLog), kRemoteOk);
  EXPECT_EQ(hasLog, 1);
}

TEST_F(RemoteCallRuntimeTest, AHelperThatEndsFailsTheCall) {
  Script("die");
  EXPECT_EQ(Connect(), kServerUnavailable);
  Script("connected die");
  EXPECT_EQ(Connect(), kCallFailed);
}

TEST_F(RemoteCallRuntimeTest, NonsenseFromTheHelperFailsTheCall) {
  for (const char* nonsense :
       {"garbage", "oversize", "misfit", "failed:0", "started+started", "started+die"}) {
    Script(nonsense);
    EXPECT_EQ(Connect(), kServerUnavailable) << nonsense;
    Script(std::string("connected ") + nonsense);
    EXPECT_EQ(Connect(), kCallFailed) << nonsense;
    EXPECT_FALSE(HasChildren()) << nonsense;
  }
}

TEST_F(RemoteCallRuntimeTest, SilenceWhileConnectingEndsAtItsLimit) {
  ::setenv("QVL_CONNECT_TIMEOUT_MS", "50", 1);
  Script("silent");
  const auto start = steady_clock::now();
  EXPECT_EQ(Connect(), kServerUnavailable);
  EXPECT_GE(steady_clock::now() - start, std::chrono::milliseconds(50));
  EXPECT_LT(steady_clock::now() - start, std::chrono::seconds(10));
  EXPECT_FALSE(HasChildren());
}

TEST_F(RemoteCallRuntimeTest, SilenceInACallEndsAtItsLimit) {
  Script(std::string("connected ") + kAdministrator + " silent");
  ASSERT_EQ(Connect(), kRemoteOk);
  ::setenv("QVL_CALL_TIMEOUT_MS", "50", 1);
  std::uint8_t hasLog = 9;
  EXPECT_EQ(client_.IsLogPresent(hasLog), kServerUnavailable);
  EXPECT_FALSE(HasChildren());
}

TEST_F(RemoteCallRuntimeTest, WhatTheHelperWasBusyWithDoesNotCountForACall) {
  Script(std::string("connected ") + kAdministrator +
         " busy:1200+started+busy:1200+returned:0100000000000000");
  ASSERT_EQ(Connect(), kRemoteOk);
  ::setenv("QVL_CALL_TIMEOUT_MS", "2300", 1);
  std::uint8_t hasLog = 0;
  EXPECT_EQ(client_.IsLogPresent(hasLog), kRemoteOk);
  EXPECT_EQ(hasLog, 1);
}

TEST_F(RemoteCallRuntimeTest, SilenceAfterAStartEndsAtTheLimit) {
  Script(std::string("connected ") + kAdministrator + " started+silent");
  ASSERT_EQ(Connect(), kRemoteOk);
  ::setenv("QVL_CALL_TIMEOUT_MS", "50", 1);
  std::uint8_t hasLog = 9;
  EXPECT_EQ(client_.IsLogPresent(hasLog), kServerUnavailable);
  EXPECT_FALSE(HasChildren());
}

TEST_F(RemoteCallRuntimeTest, ALimitThatIsNoNumberIsTheUsualOne) {
  Script(std::string("connected ") + kAdministrator);
  for (const char* limit : {"", "x", "-1", "0", "5s", "99999999999"}) {
    ::setenv("QVL_CONNECT_TIMEOUT_MS", limit, 1);
    EXPECT_EQ(Connect(), kRemoteOk) << limit;
    client_.Disconnect();
  }
}

TEST_F(RemoteCallRuntimeTest, AMissingHelperHasAStatusOfItsOwn) {
  ::setenv("QVL_RPC_HELPER", (folder_ / "nowhere").c_str(), 1);
  EXPECT_EQ(Connect(), kHelperMissing);
  std::ofstream(folder_ / "file") << "no program";
  ::setenv("QVL_RPC_HELPER", (folder_ / "file").c_str(), 1);
  EXPECT_EQ(Connect(), kHelperMissing);
}

TEST_F(RemoteCallRuntimeTest, AHelperWithoutItsLibrariesHasThatStatusToo) {
  const std::filesystem::path program = folder_ / "program";
  std::ofstream(program) << "#!/bin/sh\nexit 127\n";
  std::filesystem::permissions(program, std::filesystem::perms::owner_all);
  ::setenv("QVL_RPC_HELPER", program.c_str(), 1);
  EXPECT_EQ(Connect(), kHelperMissing);
}

TEST_F(RemoteCallRuntimeTest, ANameThatNoMachineCanHaveIsNotSent) {
  EXPECT_EQ(client_.Connect(std::string(256, 'A'), isAdministrator_), kServerUnavailable);
  EXPECT_TRUE(Trace().empty());
}

TEST_F(RemoteCallRuntimeTest, WithoutDescriptorsItFailsAndRecovers) {
  Script(std::string("connected ") + kAdministrator);
  rlimit before{};
  ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
  const rlimit none = {.rlim_cur = 3, .rlim_max = before.rlim_max};
  ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
  const RemoteStatus status = Connect();
  ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &before), 0);
  EXPECT_EQ(status, kNoMemory);
  EXPECT_EQ(Connect(), kRemoteOk);
}

using RemoteCallRuntimeDeathTest = RemoteCallRuntimeTest;

TEST_F(RemoteCallRuntimeDeathTest, WorksWithoutStandardStreams) {
  Script(std::string("connected ") + kAdministrator);
  const auto connectWithout = [this] {
    for (const int stream : {0, 1, 2}) ::close(stream);
    ::_exit(Connect() == kRemoteOk && isAdministrator_ == 1 ? 42 : 1);
  };
  EXPECT_EXIT(connectWithout(), ::testing::ExitedWithCode(42), "");
  EXPECT_EQ(Trace().front(), "start 0 1 2 3");
}

TEST_F(RemoteCallRuntimeDeathTest, AHelperThatHasEndedRaisesNoSignal) {
  Script(std::string("connected ") + kAdministrator + " die");
  const auto callTwice = [this] {
    std::uint8_t hasLog = 0;
    const bool connected = Connect() == kRemoteOk;
    const bool failed = client_.IsLogPresent(hasLog) == kCallFailed;
    ::setenv("QVL_TEST_STEPS", "die", 1);
    const bool gone = client_.IsLogPresent(hasLog) == kServerUnavailable;
    ::_exit(connected && failed && gone ? 42 : 1);
  };
  EXPECT_EXIT(callTwice(), ::testing::ExitedWithCode(42), "");
}

// Whoever starts a program may have it ignore SIGCHLD, and with it the end of its children.
TEST_F(RemoteCallRuntimeDeathTest, AnIgnoredSignalHidesNoEndOfAHelper) {
  const std::filesystem::path program = folder_ / "program";
  std::ofstream(program) << "#!/bin/sh\nexit 127\n";
  std::filesystem::permissions(program, std::filesystem::perms::owner_all);
  ::setenv("QVL_RPC_HELPER", program.c_str(), 1);
  const auto connect = [this](int flags) {
    struct sigaction ignoring = {};
    ignoring.sa_handler = flags == 0 ? SIG_IGN : SIG_DFL;
    ignoring.sa_flags = flags;
    ::sigaction(SIGCHLD, &ignoring, nullptr);
    ::_exit(Connect() == kHelperMissing && !HasChildren() ? 42 : 1);
  };
  EXPECT_EXIT(connect(0), ::testing::ExitedWithCode(42), "");
  EXPECT_EXIT(connect(SA_NOCLDWAIT), ::testing::ExitedWithCode(42), "");
}

bool EnterEmptyRoot(const char* folder) {
  return (::chroot(folder) == 0 || (::unshare(CLONE_NEWUSER) == 0 && ::chroot(folder) == 0)) &&
         ::chdir("/") == 0;
}

// Without /proc the system does not say where this program is.
TEST_F(RemoteCallRuntimeDeathTest, NoHelperIsTakenFromTheCurrentFolder) {
  constexpr int kNotAllowed = 77;
  const auto look = [this] {
    ::unsetenv("QVL_RPC_HELPER");
    std::ofstream(folder_ / "zlkqvxv-rpc") << "stray";
    if (!EnterEmptyRoot(folder_.c_str())) ::_exit(kNotAllowed);
    ::_exit(HelperProgram().empty() && Connect() == kHelperMissing ? 42 : 1);
  };
  const auto decided = [](int status) {
    return WIFEXITED(status) && (WEXITSTATUS(status) == 42 || WEXITSTATUS(status) == kNotAllowed);
  };
  EXPECT_EXIT(look(), decided, "");
}

}  // namespace
}  // namespace qvl
