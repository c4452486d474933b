#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "access/remote_monitor_client.h"
#include "access/status_texts.h"
#include "platform/interrupt.h"
#include "platform/system_names.h"
#include "tests/fakes/console.h"
#include "tests/fakes/fake_machine.h"
#include "tests/fakes/terminal_line.h"
#include "tests/files/file_fixtures.h"

namespace qvl {
namespace {

using testing::FakeConsole;
using testing::FakeMachine;
using testing::LastLine;
using testing::Record;
using testing::Step;
using testing::TemporaryFile;
using Arguments = std::vector<std::string>;
using Calls = std::vector<std::string>;

constexpr std::string_view kHeader = "Zelkor QVX Log v1.0";

bool Contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

RawLogEntry Note(std::uint32_t number, std::string_view text) {
  RawLogEntry raw = Record(number, 33, 2, text);
  raw.severity = 2;
  raw.count = 1;
  raw.initialTime = raw.updateTime = LogTime{20, 26, 1, 2, 3, 4};
  return raw;
}

std::string LineOf(std::uint32_t number, std::string_view note) {
  const std::string digits = std::to_string(number);
  return std::string(8 - digits.size(), ' ') + digits +
         "  1/2/2026 3:04 AM     1/2/2026 3:04 AM     Informational       1  Maintenance"
         "                 Maintenance note: " +
         std::string(note) + "\n";
}

constexpr std::string_view kHeading =
    "  Number  Update Time          Initial Time         Severity        Count  Class"
    "                       Description\n";

// A console in front of a machine that holds three notes.
class QvlogReadTest : public ::testing::Test {
 protected:
  QvlogReadTest() {
    machine_.records = {Note(1, "one"), Note(2, "two"), Note(5, "five")};
    console_.client = [this]() -> RemoteMonitorClient& { return client_; };
  }

  int Read(Arguments arguments) {
    arguments.insert(arguments.begin(), "read");
    return console_.Run(arguments);
  }

  const std::string& Output() const { return console_.output.bytes(); }
  const std::string& Error() const { return console_.error.bytes(); }

  /// Ctrl+C at the start of a step's call, counted from 1.
  void InterruptAt(Step step, int call) {
    machine_.onStep = [step, call, calls = 0](Step now) mutable {
      if (now == step && ++calls == call) InterruptWatch::Note();
    };
  }

  FakeMachine machine_;
  RemoteMonitorClient client_{machine_};
  FakeConsole console_;
};

std::string LogBytes(const std::vector<RawLogEntry>& entries) {
  std::string bytes(kHeader);
  for (const RawLogEntry& entry : entries) {
    const std::size_t at = bytes.size();
    bytes.resize(at + 512);
    std::memcpy(bytes.data() + at, &entry, sizeof entry);
  }
  return bytes;
}

// ---- What is read, and how ----

TEST_F(QvlogReadTest, ListsTheMachinesEntries) {
  EXPECT_EQ(Read({"server"}), 0);
  EXPECT_EQ(Output(),
            std::string(kHeading) + LineOf(1, "one") + LineOf(2, "two") + LineOf(5, "five"));
  EXPECT_EQ(Error(), "");
}

TEST_F(QvlogReadTest, AsksForTheLogAndClosesTheMachine) {
  EXPECT_EQ(Read({"\\\\server"}), 0);
  EXPECT_EQ(machine_.calls,
            (Calls{"compose SERVER", "bind", "free composed", "authenticate", "administrator",
                   "present", "read 0", "read 2", "read 3", "read 6", "free binding"}));
  EXPECT_EQ(machine_.liveBindings(), 0U);
}

TEST_F(QvlogReadTest, NeedsNoAdministratorRights) {
  machine_.isAdministrator = 0;
  EXPECT_EQ(Read({"server"}), 0);
  EXPECT_TRUE(Contains(Output(), LineOf(5, "five"))) << Output();
  EXPECT_EQ(Error(), "");
}

TEST_F(QvlogReadTest, ADotIsThisComputer) {
  EXPECT_EQ(Read({"."}), 0);
  std::string name = ComputerName();
  for (char& c : name) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  EXPECT_EQ(machine_.parts.networkAddress, name);
}

TEST_F(QvlogReadTest, AnEmptyLogIsASuccess) {
  machine_.records.clear();
  EXPECT_EQ(Read({"server"}), 0);
  EXPECT_EQ(Output(), kHeading);
  const TemporaryFile file(".qvx");
  EXPECT_EQ(Read({"-o", file.path(), "server"}), 0);
  EXPECT_EQ(file.Read(), kHeader);
  EXPECT_EQ(Error(), "");
}

// ---- Outputs ----

TEST_F(QvlogReadTest, ALogFileIsWrittenUnderALogFilesName) {
  const TemporaryFile file(".qvx");
  EXPECT_EQ(Read({"-o", file.path(), "server"}), 0) << Error();
  EXPECT_EQ(Output(), "");
  EXPECT_EQ(file.Read(), LogBytes(machine_.records));
}

TEST_F(QvlogReadTest, ALogFilesNameIsKnownInAnyCase) {
  const TemporaryFile file(".QvX");
  EXPECT_EQ(Read({"-o", file.path(), "server"}), 0);
  EXPECT_EQ(file.Read(), LogBytes(machine_.records));
}

TEST_F(QvlogReadTest, AnotherNameHoldsTheListing) {
  const TemporaryFile file(".txt");
  EXPECT_EQ(Read({"-o", file.path(), "server"}), 0);
  EXPECT_TRUE(file.Read().starts_with(kHeading)) << file.Read();
}

TEST_F(QvlogReadTest, AFormatCountsMoreThanAName) {
  const TemporaryFile file(".qvx");
  EXPECT_EQ(Read({"--format", "list", "-o", file.path(), "server"}), 0);
  EXPECT_TRUE(file.Read().starts_with(kHeading)) << file.Read();
}

// What is read from a machine is what the same log in a file gives.
TEST_F(QvlogReadTest, EveryFormatIsThatOfTheSavedLog) {
  const std::string log = LogBytes(machine_.records);
  for (const char* const format : {"csv", "strict-csv", "jsonl", "report"}) {
    FakeConsole saved(log);
    ASSERT_EQ(saved.Run({"export", "--format", format, "--machine", "SERVER", "-"}), 0);
    FakeConsole direct;
    direct.client = console_.client;
    EXPECT_EQ(direct.Run({"read", "--format", format, "server"}), 0);
    EXPECT_EQ(direct.output.bytes(), saved.output.bytes()) << format;
    EXPECT_EQ(direct.error.bytes(), "") << format;
  }
  EXPECT_EQ(Read({"--format", "qvx", "server"}), 0);
  EXPECT_EQ(Output(), log);
}

TEST_F(QvlogReadTest, SelectsAndSorts) {
  EXPECT_EQ(
      Read({"--no-header", "--text", "O", "--sort", "number:desc", "--class", "UPS", "server"}), 0);
  EXPECT_EQ(Output(), "");
  EXPECT_EQ(Read({"--no-header", "--text", "note: t", "server"}), 0);
  EXPECT_EQ(Output(), LineOf(2, "two"));
}

TEST_F(QvlogReadTest, SortsAtTheEnd) {
  EXPECT_EQ(Read({"--no-header", "--sort", "number:desc", "server"}), 0);
  EXPECT_EQ(Output(), LineOf(5, "five") + LineOf(2, "two") + LineOf(1, "one"));
}

TEST_F(QvlogReadTest, ReplacesAnOlderLog) {
  const TemporaryFile file(".qvx");
  file.Write(LogBytes({Note(1, "a"), Note(2, "b"), Note(3, "c"), Note(4, "d"), Note(5, "e")}));
  EXPECT_EQ(Read({"-o", file.path(), "server"}), 0);
  EXPECT_EQ(file.Read(), LogBytes(machine_.records));
}

TEST_F(QvlogReadTest, AnOutputThatCannotBeOpenedEndsTheReading) {
  const TemporaryFile folder("");
  EXPECT_EQ(Read({"-o", folder.path() + "/missing/log.qvx", "server"}), 1);
  EXPECT_TRUE(Error().starts_with("qvlog: cannot ")) << Error();
  EXPECT_EQ(std::count(Error().begin(), Error().end(), '\n'), 1) << Error();
  EXPECT_EQ(std::count(machine_.calls.begin(), machine_.calls.end(), "read 2"), 0);
  EXPECT_EQ(machine_.liveBindings(), 0U);
}

TEST_F(QvlogReadTest, AnOutputThatFailsIsReported) {
  console_.output.FailAfter(10);
  EXPECT_EQ(Read({"server"}), 1);
  EXPECT_EQ(Error(), "qvlog: the tape is full\n");
  EXPECT_EQ(machine_.liveBindings(), 0U);
}

TEST_F(QvlogReadTest, BothFailuresAreReported) {
  console_.output.FailAfter(1000);
  machine_.FailCall(Step::kRead, 3, kCallFailed);
  machine_.records = {Note(1, "one"), Note(2, std::string(200, 'x')), Note(3, "three")};
  console_.output.FailAfter(kHeading.size() + LineOf(1, "one").size());
  EXPECT_EQ(Read({"server"}), 1);
  EXPECT_TRUE(Contains(Error(), "the tape is full")) << Error();
  EXPECT_TRUE(Contains(Error(), StatusText(kCallFailed, StatusReader::kViewer))) << Error();
}

// ---- What stands in the way ----

struct ConnectFailure {
  Step step;
  RemoteStatus status;
  const char* text;
};

TEST_F(QvlogReadTest, AStatusIsToldInItsWords) {
  constexpr ConnectFailure kFailures[] = {
      {Step::kAdministrator, 1722,
       "The requested machine is not running the Korvath Remote Monitor service, or it can't be "
       "found on the network."                                                                 },
      {Step::kAdministrator, 1717,
       "The requested machine is running an incompatible version of the Korvath Remote Monitor "
       "service."                                                                              },
      {Step::kAdministrator, 5,
       "You don't have the required privileges to access the requested machine."               },
      {Step::kPresent,       0xE0000002, "Error: The System Management driver is not detected."},
      {Step::kRead,          0xE0000002, "Error: The System Management driver is not detected."},
      {Step::kRead,          0xE0000004,
       "You do not have administrator privileges on this machine. You will be able to view, but "
       "not modify the information."                                                           },
      {Step::kCompose,       0xE1234567, "Unknown error: 0xe1234567"                           },
  };
  for (const ConnectFailure& failure : kFailures) {
    FakeMachine machine;
    RemoteMonitorClient client(machine);
    machine.Fail(failure.step, failure.status);
    FakeConsole console;
    console.client = [&]() -> RemoteMonitorClient& { return client; };
    EXPECT_EQ(console.Run({"read", "server"}), 1) << failure.text;
    EXPECT_EQ(console.output.bytes(), "") << failure.text;
    EXPECT_EQ(console.error.bytes(), std::string("qvlog: SERVER: ") + failure.text + "\n");
    EXPECT_EQ(machine.liveBindings(), 0U) << failure.text;
  }
}

TEST_F(QvlogReadTest, AMachineWithoutALogSaysSo) {
  machine_.hasLog = 0;
  EXPECT_EQ(Read({"server"}), 1);
  EXPECT_EQ(Output(), "");
  EXPECT_EQ(Error(), "qvlog: SERVER: This machine does not have an Quarvel Log\n");
  EXPECT_EQ(machine_.calls.back(), "free binding");
}

TEST_F(QvlogReadTest, AMachineThatIsNotReadLeavesAnOlderOutputAlone) {
  const TemporaryFile file(".qvx");
  const std::string older = LogBytes({Note(7, "precious")});
  file.Write(older);
  for (const Step step : {Step::kAdministrator, Step::kPresent, Step::kRead}) {
    FakeMachine machine;
    machine.Fail(step, kServerUnavailable);
    RemoteMonitorClient client(machine);
    console_.client = [&]() -> RemoteMonitorClient& { return client; };
    EXPECT_EQ(Read({"-o", file.path(), "server"}), 1);
    EXPECT_EQ(file.Read(), older);
  }
}

TEST_F(QvlogReadTest, ANameOfNothingIsAMistake) {
  for (const char* const name : {"", " ", "\\\\", "\\ \\"}) {
    FakeConsole console;
    console.client = console_.client;
    EXPECT_EQ(console.Run({"read", name}), 2) << name;
    EXPECT_TRUE(console.error.bytes().starts_with("qvlog: ")) << console.error.bytes();
  }
  EXPECT_TRUE(machine_.calls.empty());
}

TEST_F(QvlogReadTest, MistakesCallNoMachine) {
  for (const Arguments& arguments : {
           Arguments{},
           {            "one",  "two"},
           {  "--format", "xml", "server"},
           { "--machine",   "x", "server"}
  }) {
    EXPECT_EQ(Read(arguments), 2);
  }
  EXPECT_TRUE(machine_.calls.empty());
  EXPECT_EQ(Output(), "");
}

TEST_F(QvlogReadTest, WithoutAClientNoMachineIsReached) {
  console_.client = nullptr;
  EXPECT_EQ(Read({"server"}), 1);
  EXPECT_TRUE(Error().starts_with("qvlog: ")) << Error();
}

TEST_F(QvlogReadTest, AMessageShowsTheControlCharactersOfAName) {
  machine_.hasLog = 0;
  EXPECT_EQ(Read({"a\x1B[2Jb"}), 1);
  EXPECT_TRUE(Contains(Error(), "A\\x1B[2JB: ")) << Error();
}

// ---- A reading that ends early ----

TEST_F(QvlogReadTest, ALaterFailureKeepsWhatCame) {
  machine_.FailCall(Step::kRead, 3, kServerUnavailable);
  const TemporaryFile file(".qvx");
  EXPECT_EQ(Read({"-o", file.path(), "server"}), 1);
  EXPECT_EQ(file.Read(), LogBytes({machine_.records[0], machine_.records[1]}));
  EXPECT_EQ(Error(), "qvlog: SERVER: reading ended after 2 entries: " +
                         StatusText(kServerUnavailable, StatusReader::kViewer) + "\n");
  EXPECT_EQ(machine_.liveBindings(), 0U);
}

TEST_F(QvlogReadTest, ALaterFailureKeepsWhatASortWaitedWith) {
  machine_.FailCall(Step::kRead, 3, kServerUnavailable);
  EXPECT_EQ(Read({"--no-header", "--sort", "number:desc", "server"}), 1);
  EXPECT_EQ(Output(), LineOf(2, "two") + LineOf(1, "one"));
}

TEST_F(QvlogReadTest, ANumberThatFallsBackIsTold) {
  machine_.deliver = [](std::uint32_t number) -> std::optional<RawLogEntry> {
    return number < 3 ? Note(number + 1, "good") : Note(1, "damaged");
  };
  EXPECT_EQ(Read({"--no-header", "server"}), 1);
  EXPECT_EQ(Output(), LineOf(1, "good") + LineOf(3, "good") + LineOf(1, "damaged"));
  EXPECT_EQ(Error(),
            "qvlog: SERVER: reading ended after 3 entries: the machine delivered entry 1 where "
            "entry 4 or a later one was due\n");
}

TEST_F(QvlogReadTest, CtrlCKeepsWhatCame) {
  InterruptAt(Step::kRead, 2);
  const TemporaryFile file(".qvx");
  EXPECT_EQ(Read({"-o", file.path(), "server"}), 130);
  EXPECT_EQ(file.Read(), LogBytes({machine_.records[0], machine_.records[1]}));
  EXPECT_EQ(Error(), "qvlog: SERVER: interrupted; 2 entries kept\n");
  EXPECT_EQ(machine_.calls.back(), "free binding");
}

TEST_F(QvlogReadTest, CtrlCKeepsWhatASortWaitedWith) {
  InterruptAt(Step::kRead, 2);
  EXPECT_EQ(Read({"--no-header", "--sort", "number:desc", "server"}), 130);
  EXPECT_EQ(Output(), LineOf(2, "two") + LineOf(1, "one"));
}

TEST_F(QvlogReadTest, CtrlCCountsWhatIsKept) {
  InterruptAt(Step::kRead, 2);
  EXPECT_EQ(Read({"--text", "two", "server"}), 130);
  EXPECT_EQ(Error(), "qvlog: SERVER: interrupted; 1 entry kept\n");
}

TEST_F(QvlogReadTest, CtrlCMayBreakACallOff) {
  machine_.FailCall(Step::kRead, 2, kCallFailed);
  InterruptAt(Step::kRead, 2);
  EXPECT_EQ(Read({"--no-header", "server"}), 130);
  EXPECT_EQ(Output(), LineOf(1, "one"));
  EXPECT_EQ(Error(), "qvlog: SERVER: interrupted; 1 entry kept\n");
}

TEST_F(QvlogReadTest, CtrlCInAFirstCallThatFailsLeavesAnOlderOutputAlone) {
  machine_.FailCall(Step::kRead, 1, kCallFailed);
  InterruptAt(Step::kRead, 1);
  const TemporaryFile file(".qvx");
  file.Write("precious");
  EXPECT_EQ(Read({"-o", file.path(), "server"}), 130);
  EXPECT_EQ(file.Read(), "precious");
  EXPECT_EQ(Error(), "qvlog: SERVER: interrupted; 0 entries kept\n");
}

TEST_F(QvlogReadTest, CtrlCAfterTheLastEntryLosesNothing) {
  InterruptAt(Step::kRead, 4);
  EXPECT_EQ(Read({"--no-header", "server"}), 0);
  EXPECT_EQ(Output(), LineOf(1, "one") + LineOf(2, "two") + LineOf(5, "five"));
  EXPECT_EQ(Error(), "");
}

TEST_F(QvlogReadTest, AnOutputThatFailsAfterCtrlCKeptNothing) {
  InterruptAt(Step::kRead, 2);
  console_.output.FailAfter(0);
  EXPECT_EQ(Read({"server"}), 1);
  EXPECT_EQ(Error(), "qvlog: the tape is full\n");
}

TEST_F(QvlogReadTest, AnEarlierCtrlCIsForgotten) {
  InterruptWatch::Note();
  EXPECT_EQ(Read({"server"}), 0);
}

// ---- What stands on the terminal ----

TEST_F(QvlogReadTest, ATerminalSeesTheProgressAndThenNothing) {
  console_.errorIsTerminal = true;
  EXPECT_EQ(Read({"server"}), 0);
  EXPECT_TRUE(Error().starts_with("\rReading SERVER: 1 entry")) << Error();
  EXPECT_EQ(LastLine(Error()), "");
  EXPECT_FALSE(Contains(Error(), "\n")) << Error();
}

TEST_F(QvlogReadTest, AMessageStandsOnALineOfItsOwn) {
  console_.errorIsTerminal = true;
  InterruptAt(Step::kRead, 2);
  EXPECT_EQ(Read({"server"}), 130);
  EXPECT_TRUE(Contains(Error(), " \rqvlog: SERVER: interrupted; 2 entries kept\n")) << Error();
  EXPECT_EQ(LastLine(Error()), "");
}

TEST_F(QvlogReadTest, EntriesOnTheSameTerminalNeedNoProgress) {
  console_.errorIsTerminal = true;
  console_.outputIsTerminal = true;
  EXPECT_EQ(Read({"server"}), 0);
  EXPECT_EQ(Error(), "");
  // A sort shows nothing before the end.
  EXPECT_EQ(Read({"--sort", "count", "server"}), 0);
  EXPECT_TRUE(Contains(Error(), "Reading SERVER")) << Error();
}

// The terminal shows "^C" where it is pressed, at the beginning of a line or behind a part of one.
TEST_F(QvlogReadTest, EntriesGoOnBelowAnEchoedCtrlC) {
  console_.errorIsTerminal = true;
  console_.outputIsTerminal = true;
  InterruptAt(Step::kRead, 2);
  EXPECT_EQ(Read({"server"}), 130);
  EXPECT_EQ(Error(), "\nqvlog: SERVER: interrupted; 2 entries kept\n");
  EXPECT_EQ(Output(), std::string(kHeading) + LineOf(1, "one") + LineOf(2, "two"));
}

TEST_F(QvlogReadTest, EntriesAreWrittenAsTheyCome) {
  std::string atSecondRead;
  machine_.onStep = [&](Step step) {
    if (step == Step::kRead && atSecondRead.empty()) atSecondRead = Output();
  };
  EXPECT_EQ(Read({"server"}), 0);
  EXPECT_EQ(atSecondRead, std::string(kHeading) + LineOf(1, "one"));
}

}  // namespace
}  // namespace qvl
