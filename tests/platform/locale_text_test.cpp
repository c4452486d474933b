#include "platform/locale_text.h"

#include <gtest/gtest.h>

#include <string>

namespace qvl {
namespace {

// The tests run in the C locale, so the user's own locale reads as US English too.
void ExpectUsEnglish(const LocaleText& locale) {
  EXPECT_EQ(locale.ShortDate(1999, 12, 31), "12/31/1999");
  EXPECT_EQ(locale.ShortDate(2024, 2, 9), "2/9/2024");
  EXPECT_EQ(locale.ShortDate(1601, 1, 1), "1/1/1601");
  EXPECT_EQ(locale.ShortDate(25755, 12, 31), "12/31/25755");
  EXPECT_EQ(locale.ShortTime(0, 0), "12:00 AM");
  EXPECT_EQ(locale.ShortTime(0, 5), "12:05 AM");
  EXPECT_EQ(locale.ShortTime(9, 59), "9:59 AM");
  EXPECT_EQ(locale.ShortTime(11, 59), "11:59 AM");
  EXPECT_EQ(locale.ShortTime(12, 0), "12:00 PM");
  EXPECT_EQ(locale.ShortTime(12, 5), "12:05 PM");
  EXPECT_EQ(locale.ShortTime(13, 5), "1:05 PM");
  EXPECT_EQ(locale.ShortTime(23, 59), "11:59 PM");
}

TEST(LocaleText, ReadsAsUsEnglishForTheUserOfTheTests) {
  ExpectUsEnglish(LocaleText());
}

TEST(LocaleText, ReadsAsUsEnglishInTheCLocale) {
  ExpectUsEnglish(LocaleText("C"));
}

TEST(LocaleText, ReadsAsUsEnglishInThePosixLocale) {
  ExpectUsEnglish(LocaleText("POSIX"));
}

TEST(LocaleText, ReadsAsUsEnglishInTheCLocaleWithACodeset) {
  ExpectUsEnglish(LocaleText("C.UTF-8"));
  ExpectUsEnglish(LocaleText("C.utf8"));
}

TEST(LocaleText, ReadsAsUsEnglishWithoutAName) {
  ExpectUsEnglish(LocaleText(""));
}

}  // namespace
}  // namespace qvl
