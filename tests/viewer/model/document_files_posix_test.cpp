#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <termios.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <set>
#include <string>
#include <system_error>
#include <thread>
#include <utility>

#include "files/log_file.h"
#include "tests/viewer/model/fake_viewer.h"

namespace qvl {
namespace {

using testing::TemporaryFile;
using testing::ViewerTest;

/// No file grows beyond so many bytes while it lives: a disk that is full at a chosen place.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) {
    ::getrlimit(RLIMIT_FSIZE, &before_);
    signal_ = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit = {bytes, before_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() {
    ::setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, signal_);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit before_ = {};
  void (*signal_)(int) = SIG_DFL;
};

/// A file that delivers so many bytes and then fails, as a disk with a bad place does: the near
/// side of a new terminal, whose far side writes them and goes. Whoever opens the path gets it.
class FailingFile {
 public:
  explicit FailingFile(std::string bytes)
      : bytes_(std::move(bytes)), before_(Terminals()), farSide_([this] { Serve(); }) {}
  ~FailingFile() {
    stopped_ = true;
    farSide_.join();
  }
  FailingFile(const FailingFile&) = delete;
  FailingFile& operator=(const FailingFile&) = delete;

  static std::string path() { return "/dev/ptmx"; }

 private:
  static std::set<int> Terminals() {
    std::set<int> descriptors;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
      std::error_code closedMeanwhile;
      const auto opened = std::filesystem::read_symlink(entry.path(), closedMeanwhile);
      if (opened.filename() == "ptmx") descriptors.insert(std::stoi(entry.path().filename()));
    }
    return descriptors;
  }

  // The reader waits in its first read until the far side has come.
  void Serve() {
    while (!stopped_) {
      for (const int descriptor : Terminals()) {
        if (before_.contains(descriptor)) continue;
        WriteTo(descriptor);
        return;
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
  }

  void WriteTo(int descriptor) const {
    const int unlocked = 0;
    ASSERT_EQ(::ioctl(descriptor, TIOCSPTLCK, &unlocked), 0);
    const int farSide = ::ioctl(descriptor, TIOCGPTPEER, O_RDWR | O_NOCTTY | O_CLOEXEC);
    ASSERT_GE(farSide, 0);
    termios settings = {};
    EXPECT_EQ(::tcgetattr(farSide, &settings), 0);
    ::cfmakeraw(&settings);
    EXPECT_EQ(::tcsetattr(farSide, TCSANOW, &settings), 0);
    EXPECT_EQ(::write(farSide, bytes_.data(), bytes_.size()), std::ssize(bytes_));
    ::close(farSide);
  }

  std::string bytes_;
  std::set<int> before_;
  std::atomic<bool> stopped_ = false;
  std::thread farSide_;
};

std::string BytesOfLog(std::span<const RawLogEntry> records) {
  const TemporaryFile file(".qvx");
  EntryList entries;
  for (const RawLogEntry& record : records) entries.Append(record);
  EXPECT_TRUE(SaveLogFile(file.path(), entries).ok());
  return file.Read();
}

TEST_F(ViewerTest, AFileThatFailsInTheMiddleKeepsWhatCameAndTellsWhy) {
  const std::vector<RawLogEntry> records = {Entry(1, 9), Entry(2, 9), Entry(3, 9)};
  {
    // Half of the third record comes, too.
    const FailingFile file(BytesOfLog(records).substr(0, 19 + 2 * 512 + 256));
    frame_.OpenLogFile(FailingFile::path());
  }
  EXPECT_EQ(EntryNumbers(), (Numbers{1, 2}));
  EXPECT_EQ(control_.RowCount(), 2U);
  EXPECT_EQ(Messages(), Journal{"The file could not be read to its end. The entries before "
                                "that place are shown.\n\ncannot read '/dev/ptmx': "
                                "Input/output error"});
  EXPECT_EQ(viewer_.recentFiles, std::vector<std::string>{FailingFile::path()});
}

TEST_F(ViewerTest, AFileThatFailsBeforeItsFirstEntryIsNoneToOpen) {
  {
    const FailingFile file(BytesOfLog({}));
    frame_.OpenLogFile(FailingFile::path());
  }
  EXPECT_TRUE(doc_.entries().empty());
  EXPECT_EQ(Messages(), Journal{"You have specified an invalid file name. "
                                "Please try a different file."});
  EXPECT_TRUE(viewer_.recentFiles.empty());
}

TEST_F(ViewerTest, AFailedCleanCopyLosesNoMoreThanItHasWritten) {
  const TemporaryFile file(".qvx");
  EntryList old;
  for (std::uint32_t number = 100; number < 105; ++number) old.Append(Entry(number, 9));
  ASSERT_TRUE(SaveLogFile(file.path(), old).ok());
  machine_.records = {Entry(1, 9), Entry(2, 9), Entry(3, 9)};
  Open();
  viewer_.savePath = file.path();
  viewer_.answers = {MessageAnswer::kYes};
  {
    const FullDisk disk(19 + 512);
    frame_.Execute(Command::kSaveLogAs);
  }
  ASSERT_EQ(viewer_.messages.size(), 2U);
  EXPECT_EQ(viewer_.messages[1].text.find("The log could not be saved.\n\n"), 0U);
  ASSERT_TRUE(doc_.Load(file.path()));
  EXPECT_EQ(EntryNumbers(), (Numbers{1, 101, 102, 103, 104}));
}

}  // namespace
}  // namespace qvl
