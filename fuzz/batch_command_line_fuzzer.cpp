// Batch mode with any arguments, against a machine that answers anything.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "batch/batch_runner.h"
#include "batch/switches.h"

namespace {

using qvl::RemoteStatus;

// Answers every call from the fuzzer's bytes; without any left, as a machine with an empty log.
class NoisyMachine : public qvl::RemoteCallRuntime {
 public:
  explicit NoisyMachine(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  std::size_t calls() const { return calls_; }
  std::size_t clears() const { return clears_; }
  int liveBindings() const { return liveBindings_; }

  RemoteStatus ComposeStringBinding(const qvl::StringBindingParts& /*parts*/,
                                    qvl::ComposedBinding*& /*composed*/) override {
    return Answer();
  }
  RemoteStatus BindingFromComposed(qvl::ComposedBinding* /*composed*/,
                                   qvl::BindingHandle*& binding) override {
    binding = reinterpret_cast<qvl::BindingHandle*>(this);
    ++liveBindings_;
    return qvl::kRemoteOk;
  }
  RemoteStatus FreeComposed(qvl::ComposedBinding*& /*composed*/) override { return Answer(); }
  RemoteStatus SetAuthentication(qvl::BindingHandle* /*binding*/,
                                 const qvl::BindingAuthentication& /*wanted*/) override {
    return Answer();
  }
  RemoteStatus FreeBinding(qvl::BindingHandle*& /*binding*/) override {
    --liveBindings_;
    return Answer();
  }
  RemoteStatus QueryAdministratorAccess(qvl::BindingHandle* /*binding*/,
                                        std::int32_t& isAdministrator) override {
    isAdministrator = Next() % 8 != 7;
    return Answer();
  }
  RemoteStatus ReadLogEntry(qvl::BindingHandle* /*binding*/, std::uint32_t entryNumber,
                            std::uint32_t /*reserved*/, std::uint8_t& entryStatus,
                            std::int32_t& entryCount, qvl::RawLogEntry& record) override {
    entryStatus = bytes_.empty() ? qvl::ENTRY_STATUS_NONE : Next();
    entryCount = static_cast<std::int8_t>(Next()) + 100;
    const std::size_t count = std::min(bytes_.size(), sizeof record);
    std::memcpy(&record, bytes_.data(), count);
    bytes_ = bytes_.subspan(std::min<std::size_t>(count, 40));
    if (Next() % 4 != 3) record.entryNumber = entryNumber + Next() % 3;
    return Answer();
  }
  RemoteStatus RemoteClearLog(qvl::BindingHandle* /*binding*/, std::uint8_t /*clearFlag*/,
                              const qvl::RemoteText& userName, std::uint8_t& cleared) override {
    if (userName.back() != 0) std::abort();
    ++clears_;
    cleared = Next();
    return Answer();
  }
  RemoteStatus RemoteWriteMaintenanceNote(qvl::BindingHandle* /*binding*/,
                                          const qvl::RemoteText& note, std::uint8_t& written,
                                          std::int32_t& /*noteResult*/) override {
    if (note.back() != 0) std::abort();
    written = Next();
    return Answer();
  }
  RemoteStatus QueryLogPresent(qvl::BindingHandle* /*binding*/, std::uint8_t& hasLog) override {
    hasLog = Next() % 8 != 7;
    return Answer();
  }
  RemoteStatus MarkEntryRepaired(qvl::BindingHandle* /*binding*/, std::uint32_t /*entryNumber*/,
                                 std::uint8_t& /*repairStatus*/) override {
    std::abort();  // batch mode repairs nothing
  }

 private:
  std::uint8_t Next() {
    if (bytes_.empty()) return 0;
    const std::uint8_t byte = bytes_.front();
    bytes_ = bytes_.subspan(1);
    return byte;
  }

  RemoteStatus Answer() {
    ++calls_;
    const std::uint8_t byte = Next();
    return byte < 0xF0 ? qvl::kRemoteOk : 0xE0000000U + byte % 8;
  }

  std::span<const std::uint8_t> bytes_;
  std::size_t calls_ = 0;
  std::size_t clears_ = 0;
  int liveBindings_ = 0;
};

// A folder in memory where there is one: the runs write files, and wait for the storage.
class ScratchFolder {
 public:
  ScratchFolder() {
    const bool hasMemory = std::filesystem::is_directory("/dev/shm");
    path_ =
        ((hasMemory ? "/dev/shm" : std::filesystem::temp_directory_path()) / "fuzz_batch_XXXXXX")
            .string();
    if (::mkdtemp(path_.data()) == nullptr) std::abort();
  }
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

const std::string& Folder() {
  static const ScratchFolder folder;
  return folder.path();
}

// Every file stands in the folder: names lose their slashes.
std::string InFolder(std::string argument) {
  using qvl::SwitchKind;
  const qvl::Switch found = qvl::ParseSwitch(argument);
  if (found.kind != SwitchKind::kRunLog && found.kind != SwitchKind::kSave &&
      found.kind != SwitchKind::kExport && found.kind != SwitchKind::kReport) {
    return argument;
  }
  const std::size_t at = argument.size() - found.value.size();
  std::replace(argument.begin() + static_cast<std::ptrdiff_t>(at), argument.end(), '/', '_');
  return argument.insert(at, Folder() + "/");
}

std::vector<std::string> Arguments(std::string_view text) {
  std::vector<std::string> arguments;
  while (!text.empty() && arguments.size() < 16) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    arguments.push_back(InFolder(std::string(text.substr(0, end))));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return arguments;
}

bool NamesRunLog(const std::string& argument) {
  return qvl::ParseSwitch(argument).kind == qvl::SwitchKind::kRunLog;
}

void Check(bool holds) {
  if (!holds) std::abort();
}

// What must be true of every run, whatever it was given.
void CheckRun(const std::vector<std::string>& arguments, int status, const NoisyMachine& machine) {
  using qvl::SwitchKind;
  std::size_t unknown = 0;
  std::size_t clears = 0;
  std::string runLog;
  for (const std::string& argument : arguments) {
    const qvl::Switch found = qvl::ParseSwitch(argument);
    if (found.kind == SwitchKind::kUnknown) ++unknown;
    if (found.kind == SwitchKind::kClear) ++clears;
    if (found.kind == SwitchKind::kRunLog) runLog = qvl::WithExtension(found.value, ".log");
  }
  Check(status >= qvl::kBatchExitFinished && status <= qvl::kBatchExitNoRunLog);
  Check(machine.liveBindings() == 0);
  Check(machine.clears() <= clears);
  if (unknown != 0 || status == qvl::kBatchExitNoRunLog) Check(machine.calls() == 0);
  if (status == qvl::kBatchExitNoRunLog) return;
  Check(unknown == 0 || status == qvl::kBatchExitDidNothing);
  std::ifstream stream(runLog, std::ios::binary);
  const std::string log{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  Check(log.ends_with("\n  \n"));
  Check(log.ends_with("   Finished!\n  \n") ==
        (status == qvl::kBatchExitFinished || status == qvl::kBatchExitSwitchFailed));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::uint8_t* const zero = std::find(data, data + size, std::uint8_t{0});
  const std::string_view text(reinterpret_cast<const char*>(data),
                              static_cast<std::size_t>(zero - data));
  std::vector<std::string> arguments = Arguments(text);
  if (!qvl::IsBatchCommandLine(arguments)) return 0;
  if (std::none_of(arguments.begin(), arguments.end(), NamesRunLog)) {
    arguments.push_back(InFolder("/f:run"));
  }

  // Some runs meet the files of earlier ones.
  static std::size_t runs = 0;
  if (runs++ % 4 == 0) {
    for (const auto& file : std::filesystem::directory_iterator(Folder())) {
      std::filesystem::remove(file);
    }
  }
  NoisyMachine machine(std::span(std::min(zero + 1, data + size), data + size));
  int status = 0;
  {
    qvl::RemoteMonitorClient client(machine);
    qvl::BatchRunner runner({.client = client,
                             .computerName = "local",
                             .userName = [] { return std::string("user"); },
                             .commandLine = std::string(text),
                             .lineEnd = "\n",
                             .now = [] { return qvl::Moment{0}; },
                             .openDefaultPrinter = [] { return std::unique_ptr<qvl::Printer>(); }});
    status = runner.Run(arguments);
  }
  CheckRun(arguments, status, machine);
  return 0;
}
