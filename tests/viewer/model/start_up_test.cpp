#include "viewer/model/start_up.h"

#include <gtest/gtest.h>

namespace qvl {
namespace {

TEST(PathOfArgument, IsThePathItself) {
  EXPECT_EQ(PathOfArgument("old.qvx"), "old.qvx");
  EXPECT_EQ(PathOfArgument("C:\\logs\\a%20b.qvx"), "C:\\logs\\a%20b.qvx");
  EXPECT_EQ(PathOfArgument(""), "");
  EXPECT_EQ(PathOfArgument("files/a.qvx"), "files/a.qvx");
}

TEST(PathOfArgument, IsThePathOfAFileUri) {
  EXPECT_EQ(PathOfArgument("file:///var/log/a.qvx"), "/var/log/a.qvx");
  EXPECT_EQ(PathOfArgument("file:/var/log/a.qvx"), "/var/log/a.qvx");
  EXPECT_EQ(PathOfArgument("FILE://LOCALHOST/var/a.qvx"), "/var/a.qvx");
  EXPECT_EQ(PathOfArgument("file:///tmp/a%20b%25%C3%bc.qvx"), "/tmp/a b%\xC3\xBC.qvx");
}

TEST(PathOfArgument, KnowsDriveLetters) {
  EXPECT_EQ(PathOfArgument("file:///C:/logs/a.qvx"), "C:/logs/a.qvx");
  EXPECT_EQ(PathOfArgument("file:///c%3A/logs/a.qvx"), "c:/logs/a.qvx");
  EXPECT_EQ(PathOfArgument("file:///1:/a.qvx"), "/1:/a.qvx");
}

TEST(PathOfArgument, RefusesOtherMachinesAndBrokenEscapes) {
  for (const char* const uri : {"file://server/share/a.qvx", "file://server", "file:///a%2",
                                "file:///a%", "file:///a%zz", "file:///a%+1", "file:///a%00b"}) {
    EXPECT_EQ(PathOfArgument(uri), "") << uri;
  }
}

}  // namespace
}  // namespace qvl
