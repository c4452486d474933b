#include "tools/qvlog/visible_text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace qvl {
namespace {

TEST(VisibleText, LeavesPrintableAsciiAlone) {
  std::string printable;
  for (char c = 0x20; c < 0x7F; ++c) printable += c;
  EXPECT_EQ(VisibleText(printable), printable);
  EXPECT_EQ(VisibleText(""), "");
}

TEST(VisibleText, WritesLineFeedAndTabByName) {
  EXPECT_EQ(VisibleText("a\nb\tc"), "a\\nb\\tc");
}

TEST(VisibleText, WritesEveryOtherControlCharacterAsHexadecimal) {
  for (int byte = 0; byte < 0x20; ++byte) {
    if (byte == '\n' || byte == '\t') continue;
    const std::string text(1, static_cast<char>(byte));
    const std::string digits = "0123456789ABCDEF";
    const auto index = static_cast<std::size_t>(byte);
    EXPECT_EQ(VisibleText(text), std::string("\\x") + digits[index / 16] + digits[index % 16]);
  }
  EXPECT_EQ(VisibleText("\x7F"), "\\x7F");
}

TEST(VisibleText, DisarmsTheSequencesThatATerminalObeys) {
  EXPECT_EQ(VisibleText("\x1B[2Jx"), "\\x1B[2Jx");
  EXPECT_EQ(VisibleText("\x1B]0;title\a"), "\\x1B]0;title\\x07");
  EXPECT_EQ(VisibleText("good\rbad"), "good\\x0Dbad");
}

TEST(VisibleText, KeepsUtf8) {
  EXPECT_EQ(VisibleText("caf\xC3\xA9 \xE6\x97\xA5\xE6\x9C\xAC \xF0\x9F\x98\x80"),
            "caf\xC3\xA9 \xE6\x97\xA5\xE6\x9C\xAC \xF0\x9F\x98\x80");
}

// U+0080 to U+009F are control characters too; U+009B alone begins what ESC [ begins.
TEST(VisibleText, WritesTheSecondControlSetOfUtf8AsHexadecimal) {
  EXPECT_EQ(VisibleText("a\xC2\x9B"
                        "2Jb"),
            "a\\x9B2Jb");
  EXPECT_EQ(VisibleText("\xC2\x80\xC2\x9F"), "\\x80\\x9F");
  // The first printable neighbours.
  EXPECT_EQ(VisibleText("\xC2\xA0\xC2\xBF"), "\xC2\xA0\xC2\xBF");
}

TEST(VisibleText, OnlyTheLeadByteC2IntroducesASecondControlSet) {
  EXPECT_EQ(VisibleText("\xC3\x9B"), "\xC3\x9B");                  // U+00DB
  EXPECT_EQ(VisibleText("\xE2\x82\x9B"), "\xE2\x82\x9B");          // U+209B
  EXPECT_EQ(VisibleText("\xF0\x90\x82\x80"), "\xF0\x90\x82\x80");  // U+10080
}

TEST(VisibleText, ReadsAnythingElseAsWindows1252) {
  EXPECT_EQ(VisibleText("caf\xE9"), "caf\xC3\xA9");
  EXPECT_EQ(VisibleText("\x80 5"), "\xE2\x82\xAC 5");
  EXPECT_EQ(VisibleText("\x93quoted\x94"), "\xE2\x80\x9Cquoted\xE2\x80\x9D");
  // A text that was cut inside a character is no UTF-8 either.
  EXPECT_EQ(VisibleText("caf\xC3"), "caf\xC3\x83");
}

TEST(VisibleText, WritesTheBytesThatWindows1252LeavesOpenAsHexadecimal) {
  EXPECT_EQ(VisibleText("\x81\x8D\x8F\x90\x9D"), "\\x81\\x8D\\x8F\\x90\\x9D");
}

TEST(VisibleText, WritesEveryByteWithoutLettingAControlCharacterThrough) {
  for (int first = 0; first < 256; ++first) {
    for (int second = 0; second < 256; ++second) {
      const std::string text = {static_cast<char>(first), static_cast<char>(second)};
      const std::string visible = VisibleText(text);
      for (std::size_t i = 0; i < visible.size(); ++i) {
        const auto byte = static_cast<unsigned char>(visible[i]);
        ASSERT_TRUE(byte >= 0x20 && byte != 0x7F) << first << ' ' << second;
        const bool introduces = byte == 0xC2 && i + 1 < visible.size();
        ASSERT_FALSE(introduces && static_cast<unsigned char>(visible[i + 1]) < 0xA0)
            << first << ' ' << second;
      }
    }
  }
}

TEST(VisibleText, KeepsBackslashesAsTheyAre) {
  EXPECT_EQ(VisibleText("DOMAIN\\new"), "DOMAIN\\new");
}

TEST(EscapedBytes, WritesALineFeedAndABackslashSoThatTheyTurnBack) {
  EXPECT_EQ(EscapedBytes("a\nb\\c"), "a\\nb\\\\c");
  EXPECT_EQ(EscapedBytes("\\n"), "\\\\n");
  EXPECT_EQ(EscapedBytes("\n\n"), "\\n\\n");
  EXPECT_EQ(EscapedBytes(""), "");
}

TEST(EscapedBytes, KeepsEveryOtherByte) {
  std::string text;
  std::string expected;
  for (int byte = 0; byte < 256; ++byte) {
    text += static_cast<char>(byte);
    if (byte == '\n') {
      expected += "\\n";
    } else if (byte == '\\') {
      expected += "\\\\";
    } else {
      expected += static_cast<char>(byte);
    }
  }
  EXPECT_EQ(EscapedBytes(text), expected);
}

}  // namespace
}  // namespace qvl
