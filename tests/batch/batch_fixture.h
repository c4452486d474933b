#ifndef QVL_TESTS_BATCH_BATCH_FIXTURE_H_
#define QVL_TESTS_BATCH_BATCH_FIXTURE_H_

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "batch/batch_runner.h"
#include "platform/local_time.h"
#include "tests/fakes/fake_machine.h"
#include "tests/fakes/fake_printer.h"
#include "tests/files/file_fixtures.h"

namespace qvl::testing {

/// An empty folder that is the current one while this lives. Its path holds no role in what tests
/// expect: they use names without folders.
class CurrentFolder {
 public:
  CurrentFolder() : before_(std::filesystem::current_path()) {
    std::random_device device;
    path_ = std::filesystem::temp_directory_path() /
            ("qvl_batch_" + std::to_string(device()) + "_" + std::to_string(device()));
    std::filesystem::create_directory(path_);
    std::filesystem::current_path(path_);
  }
  ~CurrentFolder() {
    std::error_code ignored;
    std::filesystem::current_path(before_, ignored);
    std::filesystem::remove_all(path_, ignored);
  }
  CurrentFolder(const CurrentFolder&) = delete;
  CurrentFolder& operator=(const CurrentFolder&) = delete;

 private:
  std::filesystem::path before_;
  std::filesystem::path path_;
};

/// Names are what the program takes: UTF-8 on Windows, bytes elsewhere.
inline std::filesystem::path PathOf(const std::string& name) {
  return std::u8string(name.begin(), name.end());
}

inline bool Exists(const std::string& name) {
  return std::filesystem::exists(PathOf(name));
}

inline std::string ReadFile(const std::string& name) {
  std::ifstream stream(PathOf(name), std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

inline void WriteFile(const std::string& name, std::string_view bytes) {
  std::ofstream stream(PathOf(name), std::ios::binary);
  stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

/// How often a call stands in a list.
inline std::ptrdiff_t Count(const std::vector<std::string>& calls, const std::string& call) {
  return std::count(calls.begin(), calls.end(), call);
}

/// A run of batch mode against a machine in memory, in a folder of its own.
class BatchTest : public ::testing::Test {
 protected:
  static constexpr const char* kHead =
      "Korvath Quarvel Log Viewer Log - SERVER\n"
      "Friday, November 20, 2026 at 01:05 PM\n"
      "   Executing: zlkqvxv /the command line\n";
  static constexpr const char* kConnected =
      "   Connecting to SERVER ...\n"
      "   Connected to SERVER.\n";
  static constexpr const char* kEnd =
      "   Finished!\n"
      "  \n";
  static constexpr const char* kNothing =
      "   Did nothing!\n"
      "  \n";

  BatchTest() {
    EXPECT_TRUE(ToMoment({2026, 11, 20, 13, 5, 0}, now_));
    machine_.records = {Fan(1, "one"), Fan(2, "two"), Fan(7, "seven")};
  }

  /// A note of 2026 that reads "Maintenance note: TEXT".
  static RawLogEntry Fan(std::uint32_t number, std::string_view text) {
    RawLogEntry raw = Record(number, 33, 2, text);
    raw.severity = 9;
    raw.count = 12;
    raw.updateTime = {20, 26, 11, 20, 13, 5};
    raw.initialTime = {20, 26, 1, 2, 0, 0};
    return raw;
  }

  BatchEnvironment Environment() {
    return {.client = client_,
            .computerName = computerName_,
            .userName = [this] { return userName_; },
            .commandLine = "zlkqvxv /the command line",
            .lineEnd = lineEnd_,
            .now = [this] { return now_; },
            .openDefaultPrinter = [this]() -> std::unique_ptr<Printer> {
              if (!hasPrinter_) return nullptr;
              return std::make_unique<FakePrinter>(print_);
            }};
  }

  int Run(const std::vector<std::string>& arguments) {
    return BatchRunner(Environment()).Run(arguments);
  }

  /// Runs, and gives what stands in the run log behind its head and the lines of a connection.
  std::string Lines(const std::vector<std::string>& arguments, int expectedStatus) {
    std::filesystem::remove("zlkqvxv.log");
    EXPECT_EQ(Run(arguments), expectedStatus);
    const std::string log = ReadFile("zlkqvxv.log");
    const std::string start = std::string(kHead) + kConnected;
    EXPECT_EQ(log.substr(0, start.size()), start);
    return log.substr(std::min(start.size(), log.size()));
  }

  CurrentFolder folder_;
  FakeMachine machine_;
  RemoteMonitorClient client_{machine_};
  PrintRecord print_;
  Moment now_ = 0;
  std::string computerName_ = "server";
  std::string userName_ = "Ada";
  std::string lineEnd_ = "\n";
  bool hasPrinter_ = true;
};

}  // namespace qvl::testing

#endif  // QVL_TESTS_BATCH_BATCH_FIXTURE_H_
