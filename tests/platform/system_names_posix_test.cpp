#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <map>
#include <string>

#include "platform/system_names.h"

namespace qvl {
namespace {

// Puts the locale's variables back as they were.
class UserReadsJapaneseTest : public ::testing::Test {
 protected:
  UserReadsJapaneseTest() {
    for (const char* const name : kNames) {
      const char* const value = std::getenv(name);
      if (value != nullptr) before_[name] = value;
      ::unsetenv(name);
    }
  }
  ~UserReadsJapaneseTest() override {
    for (const char* const name : kNames) {
      const auto found = before_.find(name);
      if (found == before_.end()) {
        ::unsetenv(name);
      } else {
        ::setenv(name, found->second.c_str(), 1);
      }
    }
  }

 private:
  static constexpr std::array<const char*, 3> kNames = {"LC_ALL", "LC_MESSAGES", "LANG"};
  std::map<std::string, std::string> before_;
};

TEST_F(UserReadsJapaneseTest, NeedsALocaleOfThatLanguage) {
  EXPECT_FALSE(UserReadsJapanese());
  for (const char* const locale : {"ja", "ja_JP", "ja_JP.UTF-8", "ja.UTF-8", "ja_JP@cjk"}) {
    ::setenv("LANG", locale, 1);
    EXPECT_TRUE(UserReadsJapanese()) << locale;
  }
  for (const char* const locale : {"", "C", "en_US.UTF-8", "jav_ID", "JA_JP", "j"}) {
    ::setenv("LANG", locale, 1);
    EXPECT_FALSE(UserReadsJapanese()) << locale;
  }
}

TEST_F(UserReadsJapaneseTest, HearsTheFirstVariableThatSaysAnything) {
  ::setenv("LANG", "ja_JP.UTF-8", 1);
  ::setenv("LC_MESSAGES", "en_US.UTF-8", 1);
  EXPECT_FALSE(UserReadsJapanese());
  ::setenv("LC_ALL", "ja_JP.UTF-8", 1);
  EXPECT_TRUE(UserReadsJapanese());
  ::setenv("LC_ALL", "", 1);
  EXPECT_FALSE(UserReadsJapanese());
}

TEST(ProcessCommandLine, QuotesWhatHoldsABlankOrNothing) {
  constexpr std::array<const char*, 5> kArguments = {"./zlkqvxv", "/m:srv", "/note:two words", "",
                                                     "/save:a"};
  EXPECT_EQ(ProcessCommandLine(static_cast<int>(kArguments.size()), kArguments.data()),
            "./zlkqvxv /m:srv \"/note:two words\" \"\" /save:a");
  EXPECT_EQ(ProcessCommandLine(0, kArguments.data()), "");
}

}  // namespace
}  // namespace qvl
