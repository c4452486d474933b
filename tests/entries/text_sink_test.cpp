#include "entries/text_sink.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "entries/message.h"

namespace qvl {
namespace {

using namespace std::string_view_literals;

// What a message with one number field reads.
template <std::size_t N>
std::string WithNumber(const char (&literal)[N], Number number) {
  const Message<Number> message(literal);
  std::array<char, 64> buffer;
  TextSink out(buffer);
  out.Format(message, number);
  return buffer.data();
}

TEST(TextSink, IsATerminatedEmptyTextFromTheStart) {
  std::array<char, 3> buffer = {'x', 'x', 'x'};
  const TextSink out(buffer);
  EXPECT_TRUE(out.empty());
  EXPECT_EQ(out.size(), 0U);
  EXPECT_EQ(buffer, (std::array<char, 3>{'\0', 'x', 'x'}));
}

TEST(TextSink, TerminatesAfterEveryAppend) {
  std::array<char, 8> buffer;
  buffer.fill('x');
  TextSink out(buffer);
  out.Append("ab"sv);
  EXPECT_STREQ(buffer.data(), "ab");
  out.Append("c"sv);
  EXPECT_STREQ(buffer.data(), "abc");
  EXPECT_EQ(out.view(), "abc");
  EXPECT_EQ(out.size(), 3U);
  EXPECT_FALSE(out.empty());
  EXPECT_EQ(buffer[4], 'x');
}

TEST(TextSink, CutsWhatDoesNotFitAndKeepsTheTerminator) {
  std::array<char, 8> buffer;
  buffer.fill('#');
  TextSink out(buffer.data(), 5);
  out.Append("abcdefgh"sv);
  EXPECT_EQ(buffer, (std::array<char, 8>{'a', 'b', 'c', 'd', '\0', '#', '#', '#'}));
  out.Append("more"sv);
  out.AppendDecimal(7);
  EXPECT_EQ(out.view(), "abcd");
  EXPECT_EQ(buffer, (std::array<char, 8>{'a', 'b', 'c', 'd', '\0', '#', '#', '#'}));
}

TEST(TextSink, FillsABufferToItsLastByte) {
  std::array<char, 5> buffer;
  TextSink out(buffer);
  out.Append("ab"sv);
  out.Append("cd"sv);
  EXPECT_STREQ(buffer.data(), "abcd");
}

TEST(TextSink, WritesOnlyTheTerminatorIntoOneByte) {
  std::array<char, 2> buffer = {'#', '#'};
  TextSink out(buffer.data(), 1);
  out.Append("abc"sv);
  EXPECT_EQ(buffer, (std::array<char, 2>{'\0', '#'}));
  EXPECT_TRUE(out.empty());
}

TEST(TextSink, TouchesNothingWithoutABuffer) {
  char byte = '#';
  TextSink none(&byte, 0);
  none.Append("abc"sv);
  none.AppendSigned(-1);
  none.AppendHex(0xABC, 8);
  EXPECT_EQ(byte, '#');
  EXPECT_EQ(none.view(), "");

  TextSink null(nullptr, 0);
  null.Append("abc"sv);
  EXPECT_TRUE(null.empty());
}

TEST(TextSink, AppendsBytesAsTheyAre) {
  std::array<char, 16> buffer;
  TextSink out(buffer);
  out.Append("%s\t\xFF\x01"sv);
  out.Append(Text("name"));
  EXPECT_EQ(out.view(), "%s\t\xFF\x01name");
}

TEST(TextSink, AppendsUnsignedNumbers) {
  std::array<char, 64> buffer;
  TextSink out(buffer);
  out.AppendDecimal(0);
  out.Append(","sv);
  out.AppendDecimal(10);
  out.Append(","sv);
  out.AppendDecimal(0x80000000U);
  out.Append(","sv);
  out.AppendDecimal(0xFFFFFFFFU);
  EXPECT_STREQ(buffer.data(), "0,10,2147483648,4294967295");
}

TEST(TextSink, AppendsSignedNumbers) {
  std::array<char, 64> buffer;
  TextSink out(buffer);
  out.AppendSigned(0);
  out.Append(","sv);
  out.AppendSigned(-1);
  out.Append(","sv);
  out.AppendSigned(INT32_MAX);
  out.Append(","sv);
  out.AppendSigned(INT32_MIN);
  EXPECT_STREQ(buffer.data(), "0,-1,2147483647,-2147483648");
}

TEST(TextSink, AppendsAtLeastTheHexadecimalDigitsAskedFor) {
  std::array<char, 64> buffer;
  TextSink out(buffer);
  out.AppendHex(0, 1);
  out.Append(","sv);
  out.AppendHex(0xA, 4);
  out.Append(","sv);
  out.AppendHex(0xABCDE, 2);
  out.Append(","sv);
  out.AppendHex(0xFFFFFFFFU, 8);
  out.Append(","sv);
  out.AppendHex(0xBEEF, 8, false);
  EXPECT_STREQ(buffer.data(), "0,000A,ABCDE,FFFFFFFF,0000beef");
}

TEST(TextSink, CutsNumbersLikeTexts) {
  std::array<char, 4> buffer;
  TextSink decimal(buffer);
  decimal.AppendDecimal(12345);
  EXPECT_STREQ(buffer.data(), "123");
  TextSink negative(buffer);
  negative.AppendSigned(-12345);
  EXPECT_STREQ(buffer.data(), "-12");
  TextSink hex(buffer);
  hex.AppendHex(0xABCD, 8);
  EXPECT_STREQ(buffer.data(), "000");
}

TEST(TextSinkFormat, WritesTextFields) {
  constexpr Message<Text, Text> kMessage = "Board %s, Module %s.";
  std::array<char, 64> buffer;
  TextSink out(buffer);
  out.Format(kMessage, "2", "7A"sv);
  EXPECT_STREQ(buffer.data(), "Board 2, Module 7A.");
}

TEST(TextSinkFormat, LeavesAnEmptyFieldOut) {
  constexpr Message<Text> kMessage = "(%s)";
  std::array<char, 64> buffer;
  TextSink out(buffer);
  out.Format(kMessage, Text());
  EXPECT_STREQ(buffer.data(), "()");
}

TEST(TextSinkFormat, NeverReadsAFieldAsAMessage) {
  constexpr Message<Text> kMessage = "Note: %s";
  std::array<char, 64> buffer;
  TextSink out(buffer);
  out.Format(kMessage, "%n %s %d 100%");
  EXPECT_STREQ(buffer.data(), "Note: %n %s %d 100%");
}

TEST(TextSinkFormat, WritesUnsignedFields) {
  EXPECT_EQ(WithNumber("%uC", 40), "40C");
  EXPECT_EQ(WithNumber("<%u>", 0), "<0>");
  EXPECT_EQ(WithNumber("%u", 0xFFFFFFFFU), "4294967295");
}

TEST(TextSinkFormat, WritesSignedFields) {
  EXPECT_EQ(WithNumber("(%d)", 65535), "(65535)");
  EXPECT_EQ(WithNumber("(%d)", 0xFFFFFFFFU), "(-1)");
  EXPECT_EQ(WithNumber("(%d)", 0x80000000U), "(-2147483648)");
}

TEST(TextSinkFormat, WritesHexadecimalFields) {
  EXPECT_EQ(WithNumber("%02X", 0), "00");
  EXPECT_EQ(WithNumber("%02X", 0xAB), "AB");
  EXPECT_EQ(WithNumber("%02X", 0x1AB), "1AB");
  EXPECT_EQ(WithNumber("%04X", 0x1A), "001A");
  EXPECT_EQ(WithNumber("%04X", 0xFEDC), "FEDC");
  EXPECT_EQ(WithNumber("%08X", 0xC0FFEE), "00C0FFEE");
  EXPECT_EQ(WithNumber("%08X", 0xFFFFFFFFU), "FFFFFFFF");
  EXPECT_EQ(WithNumber("%02x", 0xB), "0b");
  EXPECT_EQ(WithNumber("%02x", 0xEF), "ef");
}

TEST(TextSinkFormat, WritesFieldsWithNothingBetweenThem) {
  constexpr Message<Number, Text, Number, Number> kMessage = "%u%s%d%02x";
  std::array<char, 64> buffer;
  TextSink out(buffer);
  out.Format(kMessage, 1U, "-", 0xFFFFFFFFU, 10U);
  EXPECT_STREQ(buffer.data(), "1--10a");
}

TEST(TextSinkFormat, WritesAMessageWithoutFields) {
  constexpr FixedMessage kMessage = "Log Cleared";
  std::array<char, 64> buffer;
  TextSink out(buffer);
  out.Format(kMessage);
  EXPECT_STREQ(buffer.data(), "Log Cleared");
}

TEST(TextSinkFormat, AppendsToWhatIsThere) {
  constexpr Message<Number> kMessage = " Slot %u";
  std::array<char, 64> buffer;
  TextSink out(buffer);
  out.Append("PCI"sv);
  out.Format(kMessage, 4U);
  EXPECT_STREQ(buffer.data(), "PCI Slot 4");
}

TEST(TextSinkFormat, CutsAtEveryPlaceOfAMessage) {
  constexpr Message<Text, Number> kMessage = "ab%scd%uef";
  const std::string whole = "abTEXTcd123ef";
  for (std::size_t size = 1; size <= whole.size() + 2; ++size) {
    std::array<char, 24> buffer;
    buffer.fill('#');
    TextSink out(buffer.data(), size);
    out.Format(kMessage, "TEXT", 123U);
    EXPECT_STREQ(buffer.data(), whole.substr(0, size - 1).c_str()) << size;
    EXPECT_EQ(buffer[size], '#') << size;
  }
}

class Recorder : public RowObserver {
 public:
  void Reached(const void* row) override { rows.push_back(row); }

  std::vector<const void*> rows;
};

TEST(TextSinkObserver, HearsOfMessagesAndNamesInTheirOrder) {
  static constexpr Message<Text, Text> kMessage = "%s, %s";
  static constexpr Name kName = "Upper";
  Recorder recorder;
  std::array<char, 64> buffer;
  TextSink out(buffer.data(), buffer.size(), &recorder);
  out.Format(kMessage, kName, "no name of a table");
  out.Append(Text(kName));
  EXPECT_STREQ(buffer.data(), "Upper, no name of a tableUpper");
  EXPECT_EQ(recorder.rows, (std::vector<const void*>{&kMessage, &kName, &kName}));
}

}  // namespace
}  // namespace qvl
