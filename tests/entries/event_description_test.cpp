#include "entries/event_description.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "entries/raw_log_entry.h"
#include "entries/text_sink.h"

namespace qvl {
namespace {

using Data = std::array<std::uint8_t, EventData::kSize>;

constexpr char kGuard = '\x5A';
constexpr std::size_t kGuardBytes = 64;

// A buffer with guard bytes on both sides, itself filled with them too.
class GuardedBuffer {
 public:
  explicit GuardedBuffer(std::size_t size) : size_(size), bytes_(size + 2 * kGuardBytes, kGuard) {}

  char* out() { return bytes_.data() + kGuardBytes; }
  std::size_t size() const { return size_; }
  std::string_view inside() const { return {bytes_.data() + kGuardBytes, size_}; }
  std::string_view text() const { return inside().substr(0, inside().find('\0')); }

  bool GuardsIntact() const {
    const auto isGuard = [](char c) { return c == kGuard; };
    return std::all_of(bytes_.begin(), bytes_.begin() + kGuardBytes, isGuard) &&
           std::all_of(bytes_.end() - kGuardBytes, bytes_.end(), isGuard);
  }
  bool ZerosBehindText() const {
    const std::string_view behind = inside().substr(text().size());
    return std::all_of(behind.begin(), behind.end(), [](char c) { return c == '\0'; });
  }

 private:
  std::size_t size_;
  std::vector<char> bytes_;
};

struct Described {
  int result;
  std::string text;
};

Described Describe(std::uint16_t eventClass, std::uint16_t code, const Data& data = {}) {
  std::array<char, kDescriptionSize> out;
  out.fill('x');
  const int result =
      FormatEventDescription(eventClass, code, EventData(data), out.data(), out.size());
  return {result, out.data()};
}

TEST(FormatEventDescription, ReadsEmptyForClass0WhateverTheCode) {
  for (const int code : {0, 1, 255, 65535}) {
    const Described described = Describe(0, static_cast<std::uint16_t>(code));
    EXPECT_EQ(described.text, "Empty") << code;
    EXPECT_EQ(described.result, 1) << code;
  }
}

TEST(FormatEventDescription, ReadsReservedForClass1WhateverTheCode) {
  for (const int code : {0, 1, 255, 65535}) {
    const Described described = Describe(1, static_cast<std::uint16_t>(code));
    EXPECT_EQ(described.text, "Reserved") << code;
    EXPECT_EQ(described.result, 1) << code;
  }
}

TEST(FormatEventDescription, NamesClassAndCodeOfAClassWithoutADecoder) {
  const Described ups = Describe(12, 1);
  EXPECT_EQ(ups.text, "Unknown Event (Class 12, Code 1)");
  EXPECT_EQ(ups.result, 0);
  const Described unnamed = Describe(16, 0);
  EXPECT_EQ(unnamed.text, "Unknown Event (Class 16, Code 0)");
  EXPECT_EQ(unnamed.result, 0);
  const Described gap = Describe(35, 7);
  EXPECT_EQ(gap.text, "Unknown Event (Class 35, Code 7)");
  EXPECT_EQ(gap.result, 0);
}

TEST(FormatEventDescription, PrintsClassAndCodeOfTheFallbackUnsigned) {
  const Described described = Describe(65535, 65535);
  EXPECT_EQ(described.text, "Unknown Event (Class 65535, Code 65535)");
  EXPECT_EQ(described.result, 0);
  EXPECT_EQ(Describe(32768, 40000).text, "Unknown Event (Class 32768, Code 40000)");
}

TEST(FormatEventDescription, HasNoDecoderOutsideTheListOfClasses) {
  std::vector<int> classes = {12, 15, 16, 35, 36, 38, 39, 255, 256, 258, 32768, 65535};
  for (int eventClass = 21; eventClass <= 31; ++eventClass) classes.push_back(eventClass);
  for (const int eventClass : classes) {
    for (int code = 0; code < 64; ++code) {
      const Described described =
          Describe(static_cast<std::uint16_t>(eventClass), static_cast<std::uint16_t>(code));
      EXPECT_EQ(described.text, "Unknown Event (Class " + std::to_string(eventClass) + ", Code " +
                                    std::to_string(code) + ")");
      EXPECT_EQ(described.result, 0);
    }
  }
}

TEST(FormatEventDescription, NamesClassAndCodeOfACodeThatNoDecoderKnows) {
  for (const int eventClass :
       {2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 13, 14, 17, 18, 19, 20, 32, 33, 34}) {
    const Described described = Describe(static_cast<std::uint16_t>(eventClass), 65000);
    EXPECT_EQ(described.text,
              "Unknown Event (Class " + std::to_string(eventClass) + ", Code 65000)");
    EXPECT_EQ(described.result, 0) << eventClass;
  }
}

// The node controllers' decoder has a text of its own for such codes, so nothing falls back.
TEST(FormatEventDescription, LeavesUnknownCodesOfClass37ToItsDecoder) {
  const Described described = Describe(37, 65000);
  EXPECT_EQ(described.text, "Unknown KTB event occurred, Code 0xFDE8");
  EXPECT_EQ(described.result, 1);
}

TEST(FormatEventDescription, FillsTheBufferBehindTheTextWithZeros) {
  GuardedBuffer known(kDescriptionSize);
  FormatEventDescription(1, 0, EventData(Data()), known.out(), known.size());
  EXPECT_EQ(known.inside(), std::string("Reserved") + std::string(kDescriptionSize - 8, '\0'));
  EXPECT_TRUE(known.GuardsIntact());

  GuardedBuffer fallback(kDescriptionSize);
  FormatEventDescription(12, 1, EventData(Data()), fallback.out(), fallback.size());
  EXPECT_EQ(fallback.text(), "Unknown Event (Class 12, Code 1)");
  EXPECT_TRUE(fallback.ZerosBehindText());
  EXPECT_TRUE(fallback.GuardsIntact());
}

TEST(FormatEventDescription, CutsTheTextToTheBuffer) {
  const std::string reserved = "Reserved";
  const std::string unknown = "Unknown Event (Class 12, Code 1)";
  for (const std::size_t size : {1U, 2U, 8U, 9U, 10U, 32U, 33U, 350U}) {
    GuardedBuffer known(size);
    FormatEventDescription(1, 0, EventData(Data()), known.out(), size);
    EXPECT_EQ(known.text(), reserved.substr(0, size - 1)) << size;
    EXPECT_TRUE(known.ZerosBehindText()) << size;
    EXPECT_TRUE(known.GuardsIntact()) << size;

    GuardedBuffer fallback(size);
    FormatEventDescription(12, 1, EventData(Data()), fallback.out(), size);
    EXPECT_EQ(fallback.text(), unknown.substr(0, size - 1)) << size;
    EXPECT_TRUE(fallback.ZerosBehindText()) << size;
    EXPECT_TRUE(fallback.GuardsIntact()) << size;
  }
}

TEST(FormatEventDescription, TouchesNothingWhenTheBufferHasNoBytes) {
  GuardedBuffer none(0);
  FormatEventDescription(1, 0, EventData(Data()), none.out(), 0);
  FormatEventDescription(12, 1, EventData(Data()), none.out(), 0);
  EXPECT_TRUE(none.GuardsIntact());
  EXPECT_EQ(FormatEventDescription(12, 1, EventData(Data()), nullptr, 0), 0);
}

TEST(FormatEntryDescription, ReadsEmptyForARecordOfZeros) {
  const RawLogEntry zeros = {};
  std::array<char, kDescriptionSize> out;
  out.fill('x');
  EXPECT_EQ(FormatEntryDescription(zeros, out.data(), out.size()), 1);
  EXPECT_STREQ(out.data(), "Empty");
}

TEST(FormatEntryDescription, TakesClassCodeAndDataFromTheRecord) {
  std::array<std::uint8_t, 256> bytes{};
  bytes[8] = 0x39;  // class 0x3039
  bytes[9] = 0x30;
  bytes[10] = 0x31;  // code 0xD431
  bytes[11] = 0xD4;
  RawLogEntry entry;
  std::memcpy(&entry, bytes.data(), sizeof entry);
  std::array<char, kDescriptionSize> out;
  EXPECT_EQ(FormatEntryDescription(entry, out.data(), out.size()), 0);
  EXPECT_STREQ(out.data(), "Unknown Event (Class 12345, Code 54321)");
}

TEST(AppendEventDescription, GivesTheSameTextToASink) {
  std::array<char, kDescriptionSize> out;
  TextSink known(out);
  EXPECT_EQ(AppendEventDescription(0, 9, EventData(Data()), known), 1);
  EXPECT_EQ(known.view(), "Empty");
  TextSink fallback(out);
  EXPECT_EQ(AppendEventDescription(12, 9, EventData(Data()), fallback), 0);
  EXPECT_EQ(fallback.view(), "Unknown Event (Class 12, Code 9)");
}

// Any bytes are a record. Whatever they say, the text stays in its buffer, ends with a NUL, and a
// smaller buffer holds the beginning of what the largest one holds.
class AnyRecord {
 public:
  RawLogEntry Next() {
    std::array<std::uint8_t, 256> bytes;
    for (std::uint8_t& byte : bytes) byte = Byte();
    const std::uint8_t kind = Byte();
    // Mostly classes and codes that decoders know, and data that reads as numbers and as texts.
    if (kind % 8 != 0) {
      bytes[8] = static_cast<std::uint8_t>(bytes[8] % 40);
      bytes[9] = 0;
    }
    if (kind % 4 != 0) {
      bytes[10] = static_cast<std::uint8_t>(bytes[10] % 80);
      bytes[11] = 0;
    }
    if (kind % 3 == 1) {
      for (std::size_t i = 28; i < bytes.size(); ++i) {
        bytes[i] = static_cast<std::uint8_t>(bytes[i] % 8);
      }
    } else if (kind % 3 == 2) {
      for (std::size_t i = 36; i < bytes.size(); ++i) bytes[i] = bytes[i] | 0x40U;
    }
    RawLogEntry entry;
    std::memcpy(&entry, bytes.data(), sizeof entry);
    return entry;
  }

 private:
  std::uint8_t Byte() { return static_cast<std::uint8_t>(random_() >> 11U); }

  std::mt19937 random_{20261120};
};

TEST(FormatEntryDescription, StaysInsideItsBufferForAnyBytes) {
  AnyRecord records;
  for (int i = 0; i < 40000; ++i) {
    const RawLogEntry entry = records.Next();
    GuardedBuffer whole(kDescriptionSize);
    const int result = FormatEntryDescription(entry, whole.out(), whole.size());
    ASSERT_TRUE(whole.GuardsIntact()) << i;
    ASSERT_TRUE(whole.ZerosBehindText()) << i;
    ASSERT_FALSE(whole.text().empty()) << i;
    ASSERT_LT(whole.text().size(), whole.size()) << i;
    ASSERT_EQ(result == 0, whole.text().starts_with("Unknown Event (Class ")) << whole.text();
    for (const std::size_t size : {0U, 1U, 2U, 10U}) {
      GuardedBuffer cut(size);
      FormatEntryDescription(entry, cut.out(), size);
      ASSERT_TRUE(cut.GuardsIntact()) << i << ", " << size;
      if (size == 0) continue;
      ASSERT_EQ(cut.text(), whole.text().substr(0, size - 1)) << i << ", " << size;
      ASSERT_TRUE(cut.ZerosBehindText()) << i << ", " << size;
    }
  }
}

}  // namespace
}  // namespace qvl
