#include <algorithm>
#include <chrono>
#include <string>

#include "access/log_walk.h"
#include "access/machine_name.h"
#include "access/status_texts.h"
#include "entries/ascii_case.h"
#include "platform/interrupt.h"
#include "platform/system_names.h"
#include "texts/strings.h"
#include "tools/qvlog/commands.h"
#include "tools/qvlog/log_input.h"
#include "tools/qvlog/output.h"
#include "tools/qvlog/progress_line.h"
#include "tools/qvlog/visible_text.h"

namespace qvl {
namespace {

// Closes the machine whatever becomes of the reading.
class OpenMachine {
 public:
  explicit OpenMachine(RemoteMonitorClient& client) : client_(client) {}
  ~OpenMachine() { client_.Disconnect(); }
  OpenMachine(const OpenMachine&) = delete;
  OpenMachine& operator=(const OpenMachine&) = delete;

 private:
  RemoteMonitorClient& client_;
};

// What has come is written this often, so that a slow machine's entries are seen as they come.
constexpr std::chrono::milliseconds kWriteInterval(200);

std::string TextOf(RemoteStatus status) {
  return StatusText(status, StatusReader::kViewer);
}

// Opens a machine that keeps a log. Returns what stands in the way, or nothing. Whoever may look at
// a log may read it: rights to change it are not asked for.
std::string OpenLog(RemoteMonitorClient& client, const std::string& machine) {
  std::int32_t isAdministrator = 0;
  RemoteStatus status = client.Connect(machine, isAdministrator);
  if (status != kRemoteOk) return TextOf(status);
  std::uint8_t hasLog = 0;
  status = client.IsLogPresent(hasLog);
  if (status != kRemoteOk) return TextOf(status);
  return hasLog != 0 ? "" : std::string(GetString(StringId::kBatchNoLog));
}

// What a file is named after is what its reader expects in it.
EntryFormat FormatOf(const CommandLine& line) {
  return line.format.value_or(EndsIgnoringCase(line.output, ".qvx") ? EntryFormat::kQvx
                                                                    : EntryFormat::kList);
}

// One reading of a machine's log, from the first read to the last byte of the output.
class MachineReading {
 public:
  MachineReading(const CommandLine& line, const std::string& machine, Console& console)
      : machine_(machine),
        console_(console),
        format_(FormatOf(line)),
        head_{.machine = machine_, .heading = line.header, .now = console.now},
        output_(line.output, FileMode(format_), Output::Safety::kStored, console),
        selected_(
            line, console.now, [this] { return Begin(); },
            [this](const CEventLogEntry& entry) { return Write(entry); }) {}

  /// Takes an entry; returns false when there is no use in another one.
  bool Take(const RawLogEntry& record) {
    ++read_;
    const bool writing = selected_.Begin() && selected_.Take(CEventLogEntry(record));
    return writing && !InterruptWatch::Interrupted();
  }

  std::uint64_t read() const { return read_; }

  /// Finishes the output, tells why the reading ended, and returns the exit status.
  int Finish(const WalkResult& walk) {
    const bool failed =
        walk.end == WalkEnd::kFirstReadFailed || walk.end == WalkEnd::kLaterReadFailed;
    // Ctrl+C may break off a call, too. A log that was read to its end is complete all the same.
    const bool interrupted =
        InterruptWatch::Interrupted() && (failed || walk.end == WalkEnd::kStopped);
    // A machine that was never read leaves an older output alone.
    const bool begun = walk.end != WalkEnd::kFirstReadFailed;
    const bool written = begun && selected_.Begin() && WriteRest();
    if (interrupted && (written || !begun)) {
      Tell("interrupted; " + EntriesText(selected_.taken()) + " kept");
      return kExitInterrupted;
    }
    if (!interrupted) TellEnd(walk);
    return written && walk.end == WalkEnd::kEndOfLog ? kExitDone : kExitFailure;
  }

 private:
  using Clock = std::chrono::steady_clock;

  bool Begin() {
    if (!output_.Open()) return false;
    AppendHead(format_, head_, output_.writer());
    return true;
  }

  bool Write(const CEventLogEntry& entry) {
    BufferedWriter& out = output_.writer();
    AppendEntry(format_, entry, out);
    const Clock::time_point now = Clock::now();
    if (now >= nextWrite_ && !InterruptWatch::Interrupted()) {
      out.Flush();
      nextWrite_ = now + kWriteInterval;
    }
    return out.ok();
  }

  bool WriteRest() {
    selected_.Finish();
    return output_.Finish();
  }

  void TellEnd(const WalkResult& walk) {
    const std::string after = "reading ended after " + EntriesText(read_) + ": ";
    if (walk.end == WalkEnd::kFirstReadFailed) Tell(TextOf(walk.status));
    if (walk.end == WalkEnd::kLaterReadFailed) Tell(after + TextOf(walk.status));
    if (walk.end == WalkEnd::kNumberFellBack) {
      Tell(after + "the machine delivered entry " + std::to_string(walk.delivered) +
           " where entry " + std::to_string(walk.asked) + " or a later one was due");
    }
  }

  void Tell(const std::string& what) { Report(console_, machine_ + ": " + what); }

  const std::string& machine_;
  Console& console_;
  EntryFormat format_;
  OutputHead head_;
  Output output_;
  SelectedEntries selected_;
  Clock::time_point nextWrite_;
  std::uint64_t read_ = 0;
};

// True when nobody would see the entries come without a line that tells of them.
bool ShowsProgress(const CommandLine& line, const Console& console) {
  const bool entriesShow = line.output == "-" && console.outputIsTerminal && !line.sort;
  return console.errorIsTerminal && !entriesShow;
}

// The reading of an open machine.
int ReadLog(const CommandLine& line, const std::string& machine, RemoteMonitorClient& client,
            Console& console) {
  ProgressLine progress(console.error, "Reading " + VisibleText(machine),
                        ShowsProgress(line, console));
  SinkBesideProgress error(console.error, progress);
  Console covered{console.input, console.output, error, console.now};
  // From here on there is something to keep.
  const InterruptWatch watch;
  MachineReading reading(line, machine, covered);
  const WalkResult walk = WalkLog(client, [&](const RawLogEntry& record) {
    const bool goOn = reading.Take(record);
    progress.Show(reading.read());
    return goOn;
  });
  progress.Erase();
  // Behind the "^C" that the terminal shows among the entries.
  const bool echoStands = console.errorIsTerminal && console.outputIsTerminal && !progress.shown();
  if (echoStands && InterruptWatch::Interrupted()) static_cast<void>(error.Write("\n"));
  return reading.Finish(walk);
}

}  // namespace

int RunRead(const CommandLine& line, Console& console) {
  if (!console.client) {
    Report(console, "machines cannot be reached from here");
    return kExitFailure;
  }
  const std::string machine = NormaliseMachineName(line.machine, ComputerName());
  if (machine.empty()) {
    Report(console, "the system does not tell this computer's name");
    return kExitFailure;
  }
  RemoteMonitorClient& client = console.client();
  const OpenMachine open(client);
  const std::string obstacle = OpenLog(client, machine);
  if (!obstacle.empty()) {
    Report(console, machine + ": " + obstacle);
    return kExitFailure;
  }
  return ReadLog(line, machine, client, console);
}

}  // namespace qvl
