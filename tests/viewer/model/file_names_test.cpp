#include "viewer/model/file_names.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/files/file_fixtures.h"

namespace qvl {
namespace {

using testing::TemporaryFile;

constexpr bool kIsWindows = std::filesystem::path::preferred_separator == '\\';

TEST(FileNameOf, CutsTheFolders) {
  EXPECT_EQ(FileNameOf("C:\\logs\\server.qvx"), "server.qvx");
  EXPECT_EQ(FileNameOf("/home/user/server.qvx"), "server.qvx");
  EXPECT_EQ(FileNameOf("C:\\logs/mixed\\server.qvx"), "server.qvx");
  EXPECT_EQ(FileNameOf("C:\\logs\\mixed/server.qvx"), "server.qvx");
  EXPECT_EQ(FileNameOf("server.qvx"), "server.qvx");
  EXPECT_EQ(FileNameOf("folder/"), "");
  EXPECT_EQ(FileNameOf(""), "");
}

TEST(PathWithExtension, PutsItBehindANameWithoutOne) {
  EXPECT_EQ(PathWithExtension("log", ".qvx"), "log.qvx");
  EXPECT_EQ(PathWithExtension("/home/user.d/log", ".qvx"), "/home/user.d/log.qvx");
  EXPECT_EQ(PathWithExtension("C:\\logs.d\\log", ".csv"), "C:\\logs.d\\log.csv");
  EXPECT_EQ(PathWithExtension("/home/user/.hidden", ".qvx"), "/home/user/.hidden.qvx");
}

TEST(PathWithExtension, LeavesTheOneThatWasTyped) {
  for (const char* const path : {"log.qvx", "log.QVX", "log.txt", "a.b.c", "log.", ".a.b"}) {
    EXPECT_EQ(PathWithExtension(path, ".qvx"), path);
  }
}

TEST(PathToRead, TakesAFileThatIsThereAsItIsNamed) {
  const TemporaryFile bare("");
  const std::string without = bare.path();
  EXPECT_EQ(PathToRead(without, ".qvx"), PathWithExtension(without, ".qvx"));
  bare.Write("something");
  EXPECT_EQ(PathToRead(without, ".qvx"), without);
}

TEST(AbsolutePath, BeginsAtTheCurrentFolder) {
  const std::u8string here = std::filesystem::current_path().u8string();
  const std::string expected = std::string(here.begin(), here.end()) + (kIsWindows ? "\\" : "/");
  EXPECT_EQ(AbsolutePath("log.qvx"), expected + "log.qvx");
  EXPECT_EQ(AbsolutePath("./other/../log.qvx"), expected + "log.qvx");
  EXPECT_EQ(AbsolutePath(expected + "\xC3\xA9.qvx"), expected + "\xC3\xA9.qvx");
}

TEST(IsSamePath, IgnoresCaseWhereTheSystemDoes) {
  EXPECT_TRUE(IsSamePath("/a/x.qvx", "/a/x.qvx"));
  EXPECT_EQ(IsSamePath("/a/x.qvx", "/A/X.QVX"), kIsWindows);
  EXPECT_FALSE(IsSamePath("/a/x.qvx", "/a/y.qvx"));
}

}  // namespace
}  // namespace qvl
