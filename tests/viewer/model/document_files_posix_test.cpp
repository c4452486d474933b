#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <string>

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
