#include "files/unicode_text.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace qvl {
namespace {

using namespace std::string_literals;

std::string Encoded(char32_t point) {
  std::string out;
  if (point < 0x80) {
    out = {static_cast<char>(point)};
  } else if (point < 0x800) {
    out = {static_cast<char>(0xC0 | point >> 6), static_cast<char>(0x80 | (point & 0x3F))};
  } else if (point < 0x10000) {
    out = {static_cast<char>(0xE0 | point >> 12), static_cast<char>(0x80 | (point >> 6 & 0x3F)),
           static_cast<char>(0x80 | (point & 0x3F))};
  } else {
    out = {static_cast<char>(0xF0 | point >> 18), static_cast<char>(0x80 | (point >> 12 & 0x3F)),
           static_cast<char>(0x80 | (point >> 6 & 0x3F)), static_cast<char>(0x80 | (point & 0x3F))};
  }
  return out;
}

bool IsSurrogate(char32_t point) {
  return point >= 0xD800 && point <= 0xDFFF;
}

TEST(IsUtf8, AcceptsEveryCodePointButSurrogates) {
  for (char32_t point = 0; point <= 0x10FFFF; ++point) {
    ASSERT_EQ(IsUtf8(Encoded(point)), !IsSurrogate(point)) << static_cast<unsigned>(point);
  }
}

TEST(IsUtf8, RejectsCodePointsBeyondTheLast) {
  EXPECT_TRUE(IsUtf8("\xF4\x8F\xBF\xBF"));
  EXPECT_FALSE(IsUtf8("\xF4\x90\x80\x80"));
  EXPECT_FALSE(IsUtf8("\xF5\x80\x80\x80"));
  EXPECT_FALSE(IsUtf8("\xF8\x88\x80\x80\x80"));
  EXPECT_FALSE(IsUtf8("\xFF"));
  EXPECT_FALSE(IsUtf8("\xFE"));
}

TEST(IsUtf8, RejectsOverlongForms) {
  EXPECT_FALSE(IsUtf8("\xC0\x80"));
  EXPECT_FALSE(IsUtf8("\xC0\xAF"));
  EXPECT_FALSE(IsUtf8("\xC1\xBF"));
  EXPECT_FALSE(IsUtf8("\xE0\x80\xAF"));
  EXPECT_FALSE(IsUtf8("\xE0\x9F\xBF"));
  EXPECT_FALSE(IsUtf8("\xF0\x80\x80\xAF"));
  EXPECT_FALSE(IsUtf8("\xF0\x8F\xBF\xBF"));
}

TEST(IsUtf8, RejectsSurrogates) {
  EXPECT_TRUE(IsUtf8("\xED\x9F\xBF"));
  EXPECT_FALSE(IsUtf8("\xED\xA0\x80"));
  EXPECT_FALSE(IsUtf8("\xED\xBF\xBF"));
  EXPECT_FALSE(IsUtf8("\xED\xA0\xBD\xED\xB8\x80"));  // a pair of them
  EXPECT_TRUE(IsUtf8("\xEE\x80\x80"));
}

TEST(IsUtf8, RejectsTruncatedSequences) {
  for (const std::string& whole : {"\xC3\xA9"s, "\xE2\x82\xAC"s, "\xF0\x9F\x98\x80"s}) {
    ASSERT_TRUE(IsUtf8(whole));
    for (std::size_t size = 1; size < whole.size(); ++size) {
      EXPECT_FALSE(IsUtf8(whole.substr(0, size)));
      EXPECT_FALSE(IsUtf8("a" + whole.substr(0, size)));
      EXPECT_FALSE(IsUtf8(whole.substr(0, size) + "a"));
      EXPECT_FALSE(IsUtf8(whole.substr(0, size) + whole));
    }
    EXPECT_FALSE(IsUtf8(whole.substr(1)));
  }
}

TEST(IsUtf8, AcceptsTextsOfAllLengths) {
  EXPECT_TRUE(IsUtf8(""));
  EXPECT_TRUE(IsUtf8("a\0b"s));
  EXPECT_TRUE(IsUtf8("caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80"));
  EXPECT_FALSE(IsUtf8("caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80 \x80"));
}

// Counting all strings of a length leaves no form unasked.
TEST(IsUtf8, AcceptsExactlyTheWellFormedStringsOfTwoAndThreeBytes) {
  constexpr unsigned kOne = 128;
  constexpr unsigned kTwo = 0x800 - 0x80;
  constexpr unsigned kThree = 0x10000 - 0x800 - 0x800;  // without the surrogates
  unsigned two = 0;
  unsigned three = 0;
  std::string text(3, '\0');
  for (unsigned value = 0; value < 0x1000000; ++value) {
    text[0] = static_cast<char>(value & 0xFFU);
    text[1] = static_cast<char>(value >> 8U & 0xFFU);
    text[2] = static_cast<char>(value >> 16U);
    if (IsUtf8(text)) ++three;
    if (value < 0x10000 && IsUtf8(std::string_view(text).substr(0, 2))) ++two;
  }
  EXPECT_EQ(two, kOne * kOne + kTwo);
  EXPECT_EQ(three, kOne * kOne * kOne + 2 * kOne * kTwo + kThree);
}

TEST(Utf8FromText, KeepsWellFormedText) {
  for (const std::string& text : {""s, "plain"s, "caf\xC3\xA9"s, "\xF0\x9F\x98\x80"s, "a\0b"s}) {
    EXPECT_EQ(Utf8FromText(text), text);
  }
}

TEST(Utf8FromText, ReadsOtherTextAsWindows1252) {
  EXPECT_EQ(Utf8FromText("\x80"), "\xE2\x82\xAC");  // euro sign
  EXPECT_EQ(Utf8FromText("5 \x80"), "5 \xE2\x82\xAC");
  EXPECT_EQ(Utf8FromText("caf\xE9"), "caf\xC3\xA9");
  EXPECT_EQ(Utf8FromText("\x93quoted\x94"), "\xE2\x80\x9Cquoted\xE2\x80\x9D");
  EXPECT_EQ(Utf8FromText("\x99"), "\xE2\x84\xA2");  // trade mark
  // One stray byte makes the whole text Windows-1252.
  EXPECT_EQ(Utf8FromText("\xC3\xA9\xFF"), "\xC3\x83\xC2\xA9\xC3\xBF");
  EXPECT_EQ(Utf8FromText("\xE2\x82"), "\xC3\xA2\xE2\x80\x9A");  // cut in the middle of a character
  EXPECT_EQ(Utf8FromText("a\0\xE9"s), "a\0\xC3\xA9"s);
}

// https://www.unicode.org/Public/MAPPINGS/VENDORS/MICSFT/WindowsBestFit/bestfit1252.txt
TEST(Utf8FromText, TurnsEverySingleByteIntoOneWellFormedCharacter) {
  constexpr std::array<char32_t, 32> kUpperControls = {
      0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
      0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
      0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
  for (unsigned byte = 0; byte < 256; ++byte) {
    const char32_t point =
        byte >= 0x80 && byte < 0xA0 ? kUpperControls[byte - 0x80] : static_cast<char32_t>(byte);
    const std::string text = Utf8FromText(std::string(1, static_cast<char>(byte)));
    EXPECT_TRUE(IsUtf8(text)) << byte;
    EXPECT_EQ(text, Encoded(point)) << byte;
  }
}

TEST(TextColumns, AreTwoForWideCharacters) {
  EXPECT_EQ(TextColumns(""), 0U);
  EXPECT_EQ(TextColumns("abc "), 4U);
  EXPECT_EQ(TextColumns("\xC3\xA9"), 1U);                  // e with an acute accent
  EXPECT_EQ(TextColumns("\xE9"), 1U);                      // the same in Windows-1252
  EXPECT_EQ(TextColumns("ログ"), 4U);                      // katakana
  EXPECT_EQ(TextColumns("\xEF\xBD\xB8"), 1U);              // half-width katakana
  EXPECT_EQ(TextColumns("消去"), 4U);                      // ideographs
  EXPECT_EQ(TextColumns("\xEF\xBC\xA1"), 2U);              // a full-width letter
  EXPECT_EQ(TextColumns("\xF0\xA0\x80\x80"), 2U);          // an ideograph of the second plane
  EXPECT_EQ(TextColumns("\xE2\x80\xA6\xE2\x80\x94"), 2U);  // an ellipsis and a dash
}

}  // namespace
}  // namespace qvl
