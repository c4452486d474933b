#include <gtest/gtest.h>
#include <stdlib.h>

#include <optional>
#include <string>

#include "platform/locale_text.h"

namespace qvl {
namespace {

// Sets one of the variables that name the user's locale, or unsets it, and puts it back.
class LocaleVariable {
 public:
  LocaleVariable(const char* name, const char* value) : name_(name) {
    const char* const before = ::getenv(name);
    if (before != nullptr) before_ = before;
    Set(value);
  }
  ~LocaleVariable() { Set(before_.has_value() ? before_->c_str() : nullptr); }
  LocaleVariable(const LocaleVariable&) = delete;
  LocaleVariable& operator=(const LocaleVariable&) = delete;

 private:
  void Set(const char* value) {
    if (value == nullptr) {
      ::unsetenv(name_);
    } else {
      ::setenv(name_, value, 1);
    }
  }

  const char* name_;
  std::optional<std::string> before_;
};

std::string LastDayOf1999(const char* lcAll, const char* lcTime, const char* lang) {
  const LocaleVariable all("LC_ALL", lcAll);
  const LocaleVariable time("LC_TIME", lcTime);
  const LocaleVariable language("LANG", lang);
  const LocaleText locale;
  return locale.ShortDate(1999, 12, 31) + " " + locale.ShortTime(23, 59);
}

struct LocaleCase {
  const char* locale;
  const char* date;       // 1999-12-31
  const char* firstDate;  // 2024-02-09
  const char* night;      // 00:05
  const char* morning;    // 09:05
  const char* evening;    // 23:59
};

TEST(LocaleTextPosix, WritesDatesAndTimesAsTheLocaleDoes) {
  constexpr LocaleCase kCases[] = {
      {"en_US.UTF-8", "12/31/1999", "2/9/2024",   "12:05 AM", "9:05 AM", "11:59 PM"},
      {"en_GB",       "31/12/1999", "09/02/2024", "00:05",    "09:05",   "23:59"   },
      {"de_DE",       "31.12.1999", "9.2.2024",   "00:05",    "09:05",   "23:59"   },
      {"de_DE.UTF-8", "31.12.1999", "9.2.2024",   "00:05",    "09:05",   "23:59"   },
      {"ja_JP",       "1999/12/31", "2024/2/9",   "0:05",     "9:05",    "23:59"   },
      {"ja_JP.UTF-8", "1999/12/31", "2024/2/9",   "0:05",     "9:05",    "23:59"   },
  };
  for (const LocaleCase& expected : kCases) {
    SCOPED_TRACE(expected.locale);
    const LocaleText locale{std::string(expected.locale)};
    EXPECT_EQ(locale.ShortDate(1999, 12, 31), expected.date);
    EXPECT_EQ(locale.ShortDate(2024, 2, 9), expected.firstDate);
    EXPECT_EQ(locale.ShortTime(0, 5), expected.night);
    EXPECT_EQ(locale.ShortTime(9, 5), expected.morning);
    EXPECT_EQ(locale.ShortTime(23, 59), expected.evening);
  }
}

TEST(LocaleTextPosix, WritesTheFirstAndTheLastYear) {
  const LocaleText locale("de_DE");
  EXPECT_EQ(locale.ShortDate(1601, 1, 1), "1.1.1601");
  EXPECT_EQ(locale.ShortDate(25755, 12, 31), "31.12.25755");
}

TEST(LocaleTextPosix, WritesOnlyPlainBlanks) {
  for (const char* name : {"de_DE", "ja_JP", "en_US.UTF-8", "en_GB", "en_AU", "fr_FR", "es_MX"}) {
    const LocaleText locale{std::string(name)};
    for (int hour = 0; hour < 24; ++hour) {
      const std::string text =
          locale.ShortDate(2024, 1 + hour % 12, 1 + hour) + " " + locale.ShortTime(hour, 30);
      EXPECT_EQ(text.find("\u202F"), std::string::npos) << name << ": " << text;
      EXPECT_EQ(text.find("\u00A0"), std::string::npos) << name << ": " << text;
      EXPECT_EQ(text.find("\u2009"), std::string::npos) << name << ": " << text;
    }
  }
}

TEST(LocaleTextPosix, TakesTheUsersLocaleFromTheFirstVariableThatIsSet) {
  EXPECT_EQ(LastDayOf1999("de_DE.UTF-8", "ja_JP.UTF-8", "en_GB.UTF-8"), "31.12.1999 23:59");
  EXPECT_EQ(LastDayOf1999(nullptr, "ja_JP.UTF-8", "en_GB.UTF-8"), "1999/12/31 23:59");
  EXPECT_EQ(LastDayOf1999(nullptr, nullptr, "en_GB.UTF-8"), "31/12/1999 23:59");
}

TEST(LocaleTextPosix, PassesOverAnEmptyVariable) {
  EXPECT_EQ(LastDayOf1999("", "", "de_DE"), "31.12.1999 23:59");
}

TEST(LocaleTextPosix, ReadsAsUsEnglishWithoutAnyVariable) {
  EXPECT_EQ(LastDayOf1999(nullptr, nullptr, nullptr), "12/31/1999 11:59 PM");
}

}  // namespace
}  // namespace qvl
