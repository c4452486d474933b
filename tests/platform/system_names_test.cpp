#include "platform/system_names.h"

#include <gtest/gtest.h>

#include <string>

namespace qvl {
namespace {

TEST(ComputerName, IsASingleName) {
  const std::string name = ComputerName();
  EXPECT_FALSE(name.empty());
  EXPECT_EQ(name.find('.'), std::string::npos) << name;
  EXPECT_EQ(name.find('\0'), std::string::npos);
}

TEST(LoggedOnUserName, IsGivenWhereThereIsRoomForItAndItsZero) {
  std::string name;
  ASSERT_TRUE(LoggedOnUserName(1000, name));
  ASSERT_FALSE(name.empty());
  EXPECT_EQ(name.find('\0'), std::string::npos);
  std::string same;
  EXPECT_TRUE(LoggedOnUserName(name.size() + 1, same));
  EXPECT_EQ(same, name);
}

TEST(LoggedOnUserName, LeavesTheTextAloneWhereThereIsNoRoom) {
  std::string whole;
  ASSERT_TRUE(LoggedOnUserName(1000, whole));
  std::string name = "before";
  EXPECT_FALSE(LoggedOnUserName(whole.size(), name));
  EXPECT_FALSE(LoggedOnUserName(1, name));
  EXPECT_FALSE(LoggedOnUserName(0, name));
  EXPECT_EQ(name, "before");
}

}  // namespace
}  // namespace qvl
