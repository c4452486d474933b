#include "entries/field_formatters.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace qvl {
namespace {

using namespace std::string_view_literals;

using Data = std::array<std::uint8_t, EventData::kSize>;

// `text` with a NUL behind it.
void PutText(Data& data, std::size_t offset, std::string_view text) {
  for (const char c : text) data[offset++] = static_cast<std::uint8_t>(c);
  data[offset] = 0;
}

TEST(FormatByteOrUnknown, WritesEveryByteInDecimalBut255) {
  for (int value = 0; value < 255; ++value) {
    EXPECT_EQ(FormatByteOrUnknown(static_cast<std::uint8_t>(value)).view(), std::to_string(value));
  }
  EXPECT_EQ(FormatByteOrUnknown(254).view(), "254");
  EXPECT_EQ(FormatByteOrUnknown(255).view(), "Unknown");
}

TEST(FormatDwordOrUnknown, WritesUnsignedDecimalButAllBitsSet) {
  Scratch scratch;
  EXPECT_EQ(FormatDwordOrUnknown(0, scratch).view(), "0");
  EXPECT_EQ(FormatDwordOrUnknown(255, scratch).view(), "255");
  EXPECT_EQ(FormatDwordOrUnknown(0x80000000U, scratch).view(), "2147483648");
  EXPECT_EQ(FormatDwordOrUnknown(0xFFFFFFFEU, scratch).view(), "4294967294");
  EXPECT_EQ(FormatDwordOrUnknown(0xFFFFFFFFU, scratch).view(), "Unknown");
}

TEST(FormatCharOrUnknown, WritesOneCharacterBut255) {
  EXPECT_EQ(FormatCharOrUnknown('A').view(), "A");
  EXPECT_EQ(FormatCharOrUnknown(' ').view(), " ");
  EXPECT_EQ(FormatCharOrUnknown(1).view(), "\x01");
  EXPECT_EQ(FormatCharOrUnknown(254).view(), "\xFE");
  EXPECT_EQ(FormatCharOrUnknown(255).view(), "Unknown");
}

TEST(FormatCharOrUnknown, GivesAnEmptyFieldForANul) {
  EXPECT_TRUE(FormatCharOrUnknown(0).empty());
}

TEST(FormatHex32, WritesEightUpperCaseDigits) {
  Scratch scratch;
  EXPECT_EQ(FormatHex32(0, scratch).view(), "0x00000000");
  EXPECT_EQ(FormatHex32(0x12AB, scratch).view(), "0x000012AB");
  EXPECT_EQ(FormatHex32(0xDEADBEEFU, scratch).view(), "0xDEADBEEF");
  EXPECT_EQ(FormatHex32(0xFFFFFFFFU, scratch).view(), "0xFFFFFFFF");
}

TEST(FormatTemperature, WritesDegreesWithoutABlankBut255) {
  Scratch scratch;
  EXPECT_EQ(FormatTemperature(0, scratch).view(), "0C");
  EXPECT_EQ(FormatTemperature(40, scratch).view(), "40C");
  EXPECT_EQ(FormatTemperature(254, scratch).view(), "254C");
  EXPECT_EQ(FormatTemperature(255, scratch).view(), "Unknown");
}

TEST(FormatNameOrNumber, PrefersTheName) {
  EXPECT_EQ(FormatNameOrNumber(3, "Rear").view(), "Rear");
  EXPECT_EQ(FormatNameOrNumber(255, "Rear").view(), "Rear");
  EXPECT_EQ(FormatNameOrNumber(3, " ").view(), " ");
}

TEST(FormatNameOrNumber, GivesTheNumberWithoutAName) {
  EXPECT_EQ(FormatNameOrNumber(3, "").view(), "3");
  EXPECT_EQ(FormatNameOrNumber(0, {}).view(), "0");
  EXPECT_EQ(FormatNameOrNumber(255, "").view(), "Unknown");
  EXPECT_EQ(FormatNameOrNumber(255, {}).view(), "Unknown");
}

TEST(FormatChassisPrefix, EndsWithACommaAndABlank) {
  Scratch scratch;
  EXPECT_EQ(FormatChassisPrefix("CAB7", scratch).view(), "Chassis CAB7, ");
}

TEST(FormatChassisPrefix, IsEmptyForAnEmptyName) {
  Scratch scratch;
  EXPECT_TRUE(FormatChassisPrefix("", scratch).empty());
  EXPECT_TRUE(FormatChassisPrefix({}, scratch).empty());
}

TEST(FormatChassisPrefix, HoldsANameAsLongAsTheData) {
  Scratch scratch;
  const std::string name(EventData::kSize, 'N');
  EXPECT_EQ(FormatChassisPrefix(name, scratch).view(), "Chassis " + name + ", ");
}

TEST(FormatEnclosureId, GivesASerialNumberThatBeginsWithALetterOrDigit) {
  Scratch scratch;
  const Data data = {};
  EXPECT_EQ(FormatEnclosureId("8J31KXW", EventData(data), scratch).view(),
            "Enclosure Serial Number 8J31KXW");
  for (const std::string first : {"0", "9", "A", "Z", "a", "z"}) {
    EXPECT_EQ(FormatEnclosureId(first, EventData(data), scratch).view(),
              "Enclosure Serial Number " + first);
  }
  EXPECT_EQ(FormatEnclosureId("A /!", EventData(data), scratch).view(),
            "Enclosure Serial Number A /!");
}

TEST(FormatEnclosureId, CutsTheSerialNumberAt16Characters) {
  Scratch scratch;
  const Data data = {};
  EXPECT_EQ(FormatEnclosureId("ABCDEFGHIJKLMNOP", EventData(data), scratch).view(),
            "Enclosure Serial Number ABCDEFGHIJKLMNOP");
  EXPECT_EQ(FormatEnclosureId("ABCDEFGHIJKLMNOPQ", EventData(data), scratch).view(),
            "Enclosure Serial Number ABCDEFGHIJKLMNOP");
}

TEST(FormatEnclosureId, GivesTheAddressForAnyOtherSerialNumber) {
  Scratch scratch;
  Data data = {};
  data[0] = 0xFF;
  data[1] = 0x12;
  data[2] = 0x34;
  data[3] = 0xFF;
  for (const std::string_view serial : {""sv, "\0ABC"sv, " 8J31"sv, "-8J31"sv, "/8"sv, ":8"sv,
                                        "@A"sv, "[A"sv, "`a"sv, "{a"sv, "\xC4ngel"sv, "\xFF"sv}) {
    EXPECT_EQ(FormatEnclosureId(serial, EventData(data), scratch).view(), "Enclosure Address 1234")
        << serial;
  }
  EXPECT_EQ(FormatEnclosureId({}, EventData(data), scratch).view(), "Enclosure Address 1234");
}

TEST(FormatEnclosureId, WritesTheAddressWithFourUpperCaseDigits) {
  Scratch scratch;
  Data data = {};
  EXPECT_EQ(FormatEnclosureId("", EventData(data), scratch).view(), "Enclosure Address 0000");
  data[2] = 0xAB;
  EXPECT_EQ(FormatEnclosureId("", EventData(data), scratch).view(), "Enclosure Address 00AB");
  data[1] = 0xFF;
  data[2] = 0xFF;
  EXPECT_EQ(FormatEnclosureId("", EventData(data), scratch).view(), "Enclosure Address FFFF");
}

TEST(GetLocationName, NamesEveryCode) {
  constexpr std::string_view kNames[] = {
      "System",    "System Board", "I/O Board",       "CPU",
      "Memory",    "Storage",      "Removable Media", "Power Supply",
      "Ambient",   "Chassis",      "Bridge Board",    "Management Board",
      "Backplane", "Network Slot", "Blade Slot",      "Virtual"};
  for (std::size_t code = 0; code < 256; ++code) {
    const std::string_view expected = code < std::size(kNames) ? kNames[code] : "Unknown";
    EXPECT_EQ(GetLocationName(static_cast<std::uint8_t>(code)).text, expected) << code;
  }
}

TEST(GetUpperLowerName, NamesEveryValue) {
  for (int value = 0; value < 256; ++value) {
    const std::string_view expected = value == 1 ? "Upper" : value == 2 ? "Lower" : "Unknown";
    EXPECT_EQ(GetUpperLowerName(static_cast<std::uint8_t>(value)).text, expected) << value;
  }
}

TEST(GetStorageEnclosureSide, ReadsDataByte0) {
  for (int value = 0; value < 256; ++value) {
    Data data;
    data.fill(2);
    data[0] = static_cast<std::uint8_t>(value);
    const std::string_view expected = value == 2 ? "External" : value == 3 ? "Internal" : "";
    EXPECT_EQ(GetStorageEnclosureSide(EventData(data)).text, expected) << value;
  }
}

TEST(FormatTwoChars, WritesBothBytesAsCharacters) {
  Scratch scratch;
  EXPECT_EQ(FormatTwoChars('1', 'E', scratch).view(), "1E");
  EXPECT_EQ(FormatTwoChars(' ', 0xFF, scratch).view(), " \xFF");
}

TEST(FormatTwoChars, EndsAtANul) {
  Scratch scratch;
  EXPECT_EQ(FormatTwoChars('1', 0, scratch).view(), "1");
  EXPECT_EQ(FormatTwoChars(0, 'E', scratch).view(), "");
  EXPECT_EQ(FormatTwoChars(0, 0, scratch).view(), "");
}

std::string BayLocation(const Data& data, std::size_t pair) {
  Scratch scratch;
  const EventData event(data);
  return std::string(FormatBayLocation(event.TextAt(pair), event, scratch).view());
}

TEST(FormatBayLocation, GivesChassisAndSlot) {
  Data data = {};
  data[1] = 3;
  PutText(data, 10, "CAB7");
  EXPECT_EQ(BayLocation(data, 10), "Chassis CAB7, Slot 3");
}

TEST(FormatBayLocation, GivesTheSlotAloneWithoutAChassis) {
  Data data = {};
  data[1] = 3;
  EXPECT_EQ(BayLocation(data, 10), "Slot 3");
}

TEST(FormatBayLocation, GivesTheBayNameInsteadOfTheSlot) {
  Data data = {};
  data[1] = 3;
  PutText(data, 10, "CAB7");
  PutText(data, 15, "Bay 12");
  EXPECT_EQ(BayLocation(data, 10), "Chassis CAB7, Bay 12");
}

TEST(FormatBayLocation, FindsTheBayNameBehindAnEmptyChassis) {
  Data data = {};
  data[1] = 3;
  PutText(data, 11, "Bay 12");
  EXPECT_EQ(BayLocation(data, 10), "Bay 12");
}

TEST(FormatBayLocation, NamesAnUnknownSlot) {
  Data data = {};
  data[1] = 255;
  EXPECT_EQ(BayLocation(data, 10), "Slot Unknown");
  PutText(data, 10, "CAB7");
  EXPECT_EQ(BayLocation(data, 10), "Chassis CAB7, Slot Unknown");
}

TEST(FormatBayLocation, ReadsNothingBehindTheData) {
  Data data;
  data.fill('B');
  data[1] = 9;
  // The chassis name has no NUL, so nothing can follow it.
  EXPECT_EQ(BayLocation(data, 220), "Chassis BBBBBBBB, Slot 9");
  // The bay's name ends with the last data byte.
  data[223] = 0;
  EXPECT_EQ(BayLocation(data, 220), "Chassis BBB, BBBB");
  // The chassis' NUL is the last data byte.
  data[223] = 'B';
  data[227] = 0;
  EXPECT_EQ(BayLocation(data, 220), "Chassis BBBBBBB, Slot 9");
  EXPECT_EQ(BayLocation(data, 227), "Slot 9");
}

TEST(FormatBayLocation, HoldsTheLongestPair) {
  Data data;
  data.fill('C');
  data[120] = 0;
  const std::string chassis(120 - 6, 'C');
  const std::string bay(227 - 120, 'C');
  EXPECT_EQ(BayLocation(data, 6), "Chassis " + chassis + ", " + bay);
}

std::string Collapsed(std::string_view text) {
  Scratch scratch;
  return std::string(CollapseWhitespace(text, scratch).view());
}

TEST(CollapseWhitespace, DropsItAtTheEndsAndLeavesOneBlankInside) {
  EXPECT_EQ(Collapsed("  CPU   1 \t failed  "), "CPU 1 failed");
}

TEST(CollapseWhitespace, KeepsATidyText) {
  EXPECT_EQ(Collapsed("CPU 1 failed"), "CPU 1 failed");
  EXPECT_EQ(Collapsed("x"), "x");
}

TEST(CollapseWhitespace, TakesEveryKindOfWhitespace) {
  EXPECT_EQ(Collapsed("\t\n\v\f\r a\tb\nc\vd\fe\rf \t\n\v\f\r"), "a b c d e f");
}

TEST(CollapseWhitespace, KeepsOtherControlsAndBytesAbove127) {
  EXPECT_EQ(Collapsed("\x08 \x0E\x1F  \x7F\x85\xA0\xFF"), "\x08 \x0E\x1F \x7F\x85\xA0\xFF");
}

TEST(CollapseWhitespace, IsEmptyForNothingButWhitespace) {
  EXPECT_EQ(Collapsed(""), "");
  EXPECT_EQ(Collapsed(" "), "");
  EXPECT_EQ(Collapsed(" \t\r\n "), "");
}

TEST(CollapseWhitespace, HoldsATextAsLongAsTheData) {
  const std::string text(EventData::kSize, 'w');
  EXPECT_EQ(Collapsed(text), text);
}

TEST(CollapseWhitespace, CutsAtTheEndOfItsBuffer) {
  const std::string text(1000, 'w');
  EXPECT_EQ(Collapsed(text), text.substr(0, std::tuple_size_v<Scratch> - 1));
}

}  // namespace
}  // namespace qvl
