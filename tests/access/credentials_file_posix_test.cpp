#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "access/remote_call_helper/credentials_file.h"

namespace qvl {
namespace {

using Result = CredentialsFile::Result;

class CredentialsFileTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string folder = ::testing::TempDir() + "qvl-credentials-XXXXXX";
    ASSERT_NE(::mkdtemp(folder.data()), nullptr);
    folder_ = folder;
    path_ = folder_ / "credentials";
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  void Write(const std::string& text, mode_t mode = 0600) {
    std::ofstream(path_, std::ios::binary) << text;
    ASSERT_EQ(::chmod(path_.c_str(), mode), 0);
  }

  std::filesystem::path folder_;
  std::filesystem::path path_;
  CredentialsFile file_;
};

TEST_F(CredentialsFileTest, ReadsNamePasswordAndDomain) {
  Write("username = admin\npassword = a=b # c\ndomain = PLANT\n");
  EXPECT_EQ(file_.Read(path_), Result::kRead) << file_.reason();
  EXPECT_STREQ(file_.userName(), "admin");
  EXPECT_STREQ(file_.password(), "a=b # c");
  EXPECT_STREQ(file_.domain(), "PLANT");
}

TEST_F(CredentialsFileTest, TakesOtherWaysToWriteALine) {
  Write("# mine\r\n\n ; x\nPassword=\t p \r\nnonsense\nusername=one\nUSERNAME =two", 0400);
  EXPECT_EQ(file_.Read(path_), Result::kRead) << file_.reason();
  EXPECT_STREQ(file_.userName(), "two");
  EXPECT_STREQ(file_.password(), "p ");
  EXPECT_EQ(file_.domain(), nullptr);
}

TEST_F(CredentialsFileTest, AnEmptyPasswordIsAPassword) {
  Write("username = admin\npassword =\n");
  EXPECT_EQ(file_.Read(path_), Result::kRead);
  EXPECT_STREQ(file_.password(), "");
}

TEST_F(CredentialsFileTest, AMissingFileIsAbsent) {
  EXPECT_EQ(file_.Read(path_), Result::kAbsent);
  EXPECT_EQ(file_.Read(path_ / "below"), Result::kAbsent);
  EXPECT_EQ(file_.Read(""), Result::kAbsent);
}

TEST_F(CredentialsFileTest, RefusesAFileThatOthersMayTouch) {
  for (const mode_t mode : {0640U, 0620U, 0610U, 0604U, 0602U, 0601U, 0644U, 0666U}) {
    Write("username = admin\npassword = x\n", mode);
    CredentialsFile file;
    EXPECT_EQ(file.Read(path_), Result::kRefused) << std::oct << mode;
    EXPECT_EQ(file.reason(), "is open to its group or to others; chmod 600 closes it");
    EXPECT_EQ(file.password(), nullptr);
  }
}

TEST_F(CredentialsFileTest, RefusesASymbolicLink) {
  Write("username = admin\npassword = x\n");
  const std::filesystem::path link = folder_ / "link";
  std::filesystem::create_symlink(path_, link);
  EXPECT_EQ(file_.Read(link), Result::kRefused);
  EXPECT_EQ(file_.reason(), "is a symbolic link");
}

TEST_F(CredentialsFileTest, RefusesWhatIsNoFile) {
  EXPECT_EQ(file_.Read(folder_), Result::kRefused);
  EXPECT_EQ(file_.reason(), "is not a regular file");

  // Without waiting for a writer.
  CredentialsFile other;
  ASSERT_EQ(::mkfifo(path_.c_str(), 0600), 0);
  EXPECT_EQ(other.Read(path_), Result::kRefused);
  EXPECT_EQ(other.reason(), "is not a regular file");
}

TEST_F(CredentialsFileTest, RefusesAnotherUsersFile) {
  if (::geteuid() != 0) GTEST_SKIP() << "only root can give a file away";
  Write("username = admin\npassword = x\n");
  ASSERT_EQ(::chown(path_.c_str(), 65534, 65534), 0);
  EXPECT_EQ(file_.Read(path_), Result::kRefused);
  EXPECT_EQ(file_.reason(), "belongs to another user");
}

TEST_F(CredentialsFileTest, RefusesAnIncompleteFile) {
  const std::pair<std::string, const char*> rows[] = {
      {"",                           "has no username line"},
      {"password = x\n",             "has no username line"},
      {"username =\npassword = x\n", "has no username line"},
      {"username = admin\n",         "has no password line"}
  };
  for (const auto& [text, reason] : rows) {
    Write(text);
    CredentialsFile file;
    EXPECT_EQ(file.Read(path_), Result::kRefused) << text;
    EXPECT_EQ(file.reason(), reason);
  }
}

TEST_F(CredentialsFileTest, RefusesAFileWithAZeroByte) {
  Write(std::string("username = a\npassword = x\0y", 27));
  EXPECT_EQ(file_.Read(path_), Result::kRefused);
  EXPECT_EQ(file_.reason(), "is not a text file");
}

TEST_F(CredentialsFileTest, RefusesAFileThatIsTooLarge) {
  const std::string start = "username = a\npassword = ";
  Write(start + std::string(4097 - start.size(), 'x'));
  EXPECT_EQ(file_.Read(path_), Result::kRefused);
  EXPECT_EQ(file_.reason(), "is larger than 4096 bytes");
}

TEST_F(CredentialsFileTest, ReadsAFileOfTheLargestSize) {
  const std::string start = "username = a\npassword = ";
  const std::string password(4096 - start.size(), 'x');
  Write(start + password);
  EXPECT_EQ(file_.Read(path_), Result::kRead) << file_.reason();
  EXPECT_EQ(file_.password(), password);
}

class CredentialsPathTest : public ::testing::Test {
 protected:
  void SetUp() override {
    for (const char* name : {"QVL_CREDENTIALS", "XDG_CONFIG_HOME", "HOME"}) {
      const char* value = std::getenv(name);
      before_.emplace_back(name, value == nullptr ? "" : value);
      ::unsetenv(name);
    }
  }
  void TearDown() override {
    for (const auto& [name, value] : before_) {
      if (value.empty()) {
        ::unsetenv(name);
      } else {
        ::setenv(name, value.c_str(), 1);
      }
    }
  }

  bool chosen_ = true;
  std::vector<std::pair<const char*, std::string>> before_;
};

TEST_F(CredentialsPathTest, IsTheFileThatTheUserNames) {
  ::setenv("QVL_CREDENTIALS", "some/file", 1);
  ::setenv("XDG_CONFIG_HOME", "/config", 1);
  EXPECT_EQ(CredentialsPath(chosen_), "some/file");
  EXPECT_TRUE(chosen_);
}

TEST_F(CredentialsPathTest, IsInTheUsersConfiguration) {
  ::setenv("HOME", "/home/someone", 1);
  ::setenv("XDG_CONFIG_HOME", "/config", 1);
  EXPECT_EQ(CredentialsPath(chosen_), "/config/quarvel-log-viewer/credentials");
  EXPECT_FALSE(chosen_);
  ::setenv("XDG_CONFIG_HOME", "relative", 1);
  EXPECT_EQ(CredentialsPath(chosen_), "/home/someone/.config/quarvel-log-viewer/credentials");
  ::setenv("XDG_CONFIG_HOME", "", 1);
  EXPECT_EQ(CredentialsPath(chosen_), "/home/someone/.config/quarvel-log-viewer/credentials");
}

TEST_F(CredentialsPathTest, FindsTheHomeThatTheSystemKnows) {
  const std::string home = HomeFolder();
  ASSERT_FALSE(home.empty());
  EXPECT_EQ(CredentialsPath(chosen_), home + "/.config/quarvel-log-viewer/credentials");
}

}  // namespace
}  // namespace qvl
