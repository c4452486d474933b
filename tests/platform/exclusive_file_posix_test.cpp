#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <string>

#include "platform/exclusive_file.h"

namespace qvl {
namespace {

using Mode = ExclusiveFile::Mode;

class ExclusiveFileOnAPipe : public ::testing::Test {
 protected:
  void SetUp() override {
    path_ = (std::filesystem::temp_directory_path() / ("qvl_pipe_" + std::to_string(::getpid())))
                .string();
    ASSERT_EQ(::mkfifo(path_.c_str(), 0600), 0);
  }
  void TearDown() override { std::filesystem::remove(path_); }

  std::string path_;
};

TEST_F(ExclusiveFileOnAPipe, WithoutAReaderIsAFailureAndNoWait) {
  for (const Mode mode :
       {Mode::kOverwrite, Mode::kOverwriteShared, Mode::kReplace, Mode::kAppend}) {
    ExclusiveFile file;
    EXPECT_FALSE(file.Open(path_, mode).ok());
  }
}

TEST_F(ExclusiveFileOnAPipe, GivesItsReaderEveryByte) {
  const int reader = ::open(path_.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  ASSERT_GE(reader, 0);
  ExclusiveFile file;
  ASSERT_TRUE(file.Open(path_, Mode::kReplace).ok());
  EXPECT_TRUE(file.Write("entries").ok());
  EXPECT_TRUE(file.Close().ok());
  std::array<char, 16> bytes{};
  EXPECT_EQ(::read(reader, bytes.data(), bytes.size()), 7);
  EXPECT_EQ(std::string(bytes.data()), "entries");
  ::close(reader);
}

}  // namespace
}  // namespace qvl
