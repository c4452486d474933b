#include "entries/event_log_entry.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "entries/event_description.h"
#include "entries/severity.h"
#include "texts/strings.h"

namespace qvl {
namespace {

using RecordBytes = std::array<std::uint8_t, 256>;

RawLogEntry FromBytes(const RecordBytes& bytes) {
  RawLogEntry raw;
  std::memcpy(&raw, bytes.data(), sizeof raw);
  return raw;
}

// Every byte holds its own offset.
RecordBytes CountingBytes() {
  RecordBytes bytes;
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<std::uint8_t>(i);
  return bytes;
}

RawLogEntry Numbered(std::uint32_t number) {
  RawLogEntry raw = {};
  raw.entryNumber = number;
  return raw;
}

CEventLogEntry OfClass(std::uint16_t eventClass, std::uint32_t number = 1) {
  RawLogEntry raw = Numbered(number);
  raw.eventClass = eventClass;
  return CEventLogEntry(raw);
}

CEventLogEntry OfSeverity(std::uint8_t severity, std::uint32_t number = 1) {
  RawLogEntry raw = Numbered(number);
  raw.severity = severity;
  return CEventLogEntry(raw);
}

CEventLogEntry OfCount(std::uint32_t count, std::uint32_t number = 1) {
  RawLogEntry raw = Numbered(number);
  raw.count = count;
  return CEventLogEntry(raw);
}

template <typename Append>
std::string TextOf(Append append) {
  std::array<char, kDescriptionSize> buffer;
  TextSink out(buffer);
  append(out);
  return std::string(out.view());
}

std::string ColumnText(const CEventLogEntry& entry, Column column) {
  return TextOf([&](TextSink& out) { entry.GetColumnText(column, out); });
}

class RestoredLanguage {
 public:
  explicit RestoredLanguage(Language language) { SetCurrentLanguage(language); }
  ~RestoredLanguage() { SetCurrentLanguage(before_); }
  RestoredLanguage(const RestoredLanguage&) = delete;
  RestoredLanguage& operator=(const RestoredLanguage&) = delete;

 private:
  Language before_ = CurrentLanguage();
};

constexpr Column kAllColumns[] = {Column::kEntryNumber, Column::kDescription, Column::kClass,
                                  Column::kSeverity,    Column::kCount,       Column::kUpdateTime,
                                  Column::kInitialTime};

TEST(RawLogEntry, ReadsEveryFieldAtItsOffset) {
  const RawLogEntry raw = FromBytes(CountingBytes());
  EXPECT_EQ(raw.reserved0, (std::array<std::uint8_t, 2>{0, 1}));
  EXPECT_EQ(std::uint32_t{raw.entryNumber}, 0x05040302U);
  EXPECT_EQ(raw.reserved6, 6);
  EXPECT_EQ(raw.severity, 7);
  EXPECT_EQ(std::uint16_t{raw.eventClass}, 0x0908);
  EXPECT_EQ(std::uint16_t{raw.eventCode}, 0x0B0A);
  EXPECT_EQ(raw.initialTime, (LogTime{12, 13, 14, 15, 16, 17}));
  EXPECT_EQ(raw.updateTime, (LogTime{18, 19, 20, 21, 22, 23}));
  EXPECT_EQ(std::uint32_t{raw.count}, 0x1B1A1918U);
  EXPECT_EQ(raw.data.size(), 228U);
  for (std::size_t i = 0; i < raw.data.size(); ++i) EXPECT_EQ(raw.data[i], 28 + i);
}

TEST(CEventLogEntry, KeepsItsOwnCopyOfAll256Bytes) {
  const RecordBytes bytes = CountingBytes();
  RawLogEntry raw = FromBytes(bytes);
  const CEventLogEntry entry(raw);
  raw = RawLogEntry{};
  EXPECT_EQ(std::memcmp(&entry.raw(), bytes.data(), bytes.size()), 0);
}

TEST(CEventLogEntry, GivesTheFieldsOfItsRecord) {
  const CEventLogEntry entry(FromBytes(CountingBytes()));
  EXPECT_EQ(entry.GetEntryNumber(), 0x05040302U);
  EXPECT_EQ(entry.GetSeverity(), 7);
  EXPECT_EQ(entry.GetCount(), 0x1B1A1918U);
  EXPECT_EQ(entry.GetInitialTime(), (LogTime{12, 13, 14, 15, 16, 17}));
  EXPECT_EQ(entry.GetUpdateTime(), (LogTime{18, 19, 20, 21, 22, 23}));
}

TEST(CEventLogEntry, SetRawEntryReplacesAll256Bytes) {
  RecordBytes filled;
  filled.fill(0xEE);
  CEventLogEntry entry(FromBytes(filled));
  const RecordBytes bytes = CountingBytes();
  entry.SetRawEntry(FromBytes(bytes));
  EXPECT_EQ(std::memcmp(&entry.raw(), bytes.data(), bytes.size()), 0);
}

TEST(CEventLogEntry, ReadsARecordOfZeros) {
  const CEventLogEntry entry{RawLogEntry{}};
  EXPECT_EQ(ColumnText(entry, Column::kDescription), "Empty");
  EXPECT_EQ(entry.GetClassName(), "Empty");
  EXPECT_EQ(entry.GetSeverityName(), "");
  EXPECT_EQ(ColumnText(entry, Column::kCount), "0");
  EXPECT_EQ(ColumnText(entry, Column::kUpdateTime), "Invalid: 0/0/0 12:00 AM");
  EXPECT_EQ(ColumnText(entry, Column::kInitialTime), "Invalid: 0/0/0 12:00 AM");
  EXPECT_EQ(entry.GetEntryNumber(), 0U);
  EXPECT_EQ(entry.GetSeverityImage(), 3);
}

TEST(CEventLogEntry, GivesEveryTextOfARecord) {
  RawLogEntry raw = Numbered(4711);
  raw.severity = 9;
  raw.eventClass = 12;
  raw.eventCode = 513;
  raw.initialTime = {19, 99, 12, 31, 23, 59};
  raw.updateTime = {20, 24, 2, 29, 12, 5};
  raw.count = 17;
  const CEventLogEntry entry(raw);

  std::array<char, kDescriptionSize> description;
  description.fill('x');
  entry.GetDescription(description.data(), description.size());
  EXPECT_STREQ(description.data(), "Unknown Event (Class 12, Code 513)");
  EXPECT_EQ(description.back(), '\0');
  EXPECT_EQ(entry.GetClassName(), "UPS");
  EXPECT_EQ(entry.GetSeverityName(), "Caution");
  EXPECT_EQ(TextOf([&](TextSink& out) { entry.GetCodeText(out); }), "513");
  EXPECT_EQ(TextOf([&](TextSink& out) { entry.GetCountText(out); }), "17");
  EXPECT_EQ(TextOf([&](TextSink& out) { entry.FormatUpdateTime(out); }), "2/29/2024 12:05 PM");
  EXPECT_EQ(TextOf([&](TextSink& out) { entry.FormatInitialTime(out); }), "12/31/1999 11:59 PM");
}

TEST(CEventLogEntry, GivesTheTextOfEveryColumn) {
  RawLogEntry raw = Numbered(0xFFFFFFFFU);
  raw.severity = 15;
  raw.eventClass = 1;
  raw.initialTime = {20, 1, 2, 3, 4, 5};
  raw.updateTime = {20, 6, 7, 8, 21, 10};
  raw.count = 3;
  const CEventLogEntry entry(raw);
  EXPECT_EQ(ColumnText(entry, Column::kEntryNumber), "4294967295");
  EXPECT_EQ(ColumnText(entry, Column::kDescription), "Reserved");
  EXPECT_EQ(ColumnText(entry, Column::kClass), "Internal Test");
  EXPECT_EQ(ColumnText(entry, Column::kSeverity), "Critical");
  EXPECT_EQ(ColumnText(entry, Column::kCount), "3");
  EXPECT_EQ(ColumnText(entry, Column::kUpdateTime), "7/8/2006 9:10 PM");
  EXPECT_EQ(ColumnText(entry, Column::kInitialTime), "2/3/2001 4:05 AM");
}

TEST(CEventLogEntry, CutsTheDescriptionToItsBuffer) {
  const CEventLogEntry entry = OfClass(1);
  std::array<char, 6> out = {'x', 'x', 'x', 'x', 'x', '#'};
  entry.GetDescription(out.data(), 5);
  EXPECT_STREQ(out.data(), "Rese");
  EXPECT_EQ(out[5], '#');
}

TEST(CEventLogEntry, AppendsNothingForAnUnnamedClass) {
  constexpr std::uint16_t kUnnamed[] = {16, 21, 31, 35, 36, 38, 256, 65535};
  for (const std::uint16_t eventClass : kUnnamed) {
    std::array<char, 50> buffer;
    TextSink out(buffer);
    out.Append(std::string_view("kept"));
    OfClass(eventClass).GetColumnText(Column::kClass, out);
    EXPECT_EQ(out.view(), "kept") << eventClass;
    EXPECT_TRUE(OfClass(eventClass).GetClassName().empty()) << eventClass;
  }
}

TEST(CEventLogEntry, AppendsNothingForAnUnnamedSeverity) {
  constexpr std::uint8_t kUnnamed[] = {0, 1, 4, 5, 7, 8, 10, 14, 16, 255};
  for (const std::uint8_t severity : kUnnamed) {
    std::array<char, 50> buffer;
    TextSink out(buffer);
    out.Append(std::string_view("kept"));
    OfSeverity(severity).GetColumnText(Column::kSeverity, out);
    EXPECT_EQ(out.view(), "kept") << int{severity};
    EXPECT_TRUE(OfSeverity(severity).GetSeverityName().empty()) << int{severity};
  }
}

TEST(CEventLogEntry, NamesAndPicturesEverySeverity) {
  for (int severity = 0; severity <= 255; ++severity) {
    std::string_view name;
    int image = 3;
    switch (severity) {
      case 2:
      case 3:
        name = "Informational";
        break;
      case 6:
        name = "Repaired";
        image = 2;
        break;
      case 9:
        name = "Caution";
        image = 1;
        break;
      case 15:
        name = "Critical";
        image = 0;
        break;
      default:
        break;
    }
    const CEventLogEntry entry = OfSeverity(static_cast<std::uint8_t>(severity));
    EXPECT_EQ(entry.GetSeverityName(), name) << severity;
    EXPECT_EQ(entry.GetSeverityImage(), image) << severity;
  }
}

TEST(CEventLogEntry, CanBeMarkedRepairedFromSeverity7) {
  EXPECT_EQ(kLowestRepairable, 7);
  EXPECT_LT(kRepaired, kLowestRepairable);
}

TEST(CEventLogEntry, NamesClassAndSeverityInTheProcessLanguage) {
  RawLogEntry raw = {};
  raw.eventClass = 3;
  raw.severity = 15;
  const CEventLogEntry entry(raw);
  EXPECT_EQ(entry.GetClassName(), "Main Memory");
  EXPECT_EQ(entry.GetSeverityName(), "Critical");
  const RestoredLanguage japanese(Language::kJapanese);
  EXPECT_EQ(entry.GetClassName(), "メイン メモリ");
  EXPECT_EQ(entry.GetSeverityName(), "重大");
}

TEST(CEventLogEntry, NeverTranslatesDescriptions) {
  const RestoredLanguage japanese(Language::kJapanese);
  EXPECT_EQ(ColumnText(OfClass(0), Column::kDescription), "Empty");
  EXPECT_EQ(ColumnText(OfClass(12), Column::kDescription), "Unknown Event (Class 12, Code 0)");
}

TEST(CEventLogEntry, PrintsTheCountAsASignedNumber) {
  EXPECT_EQ(ColumnText(OfCount(1), Column::kCount), "1");
  EXPECT_EQ(ColumnText(OfCount(0x7FFFFFFFU), Column::kCount), "2147483647");
  EXPECT_EQ(ColumnText(OfCount(0x80000000U), Column::kCount), "-2147483648");
  EXPECT_EQ(ColumnText(OfCount(0xFFFFFFFFU), Column::kCount), "-1");
}

// All codes fit the signed number that they are printed as.
TEST(CEventLogEntry, PrintsEvenTheHighestCodeWithoutASign) {
  RawLogEntry raw = {};
  raw.eventCode = 65535;
  const CEventLogEntry entry(raw);
  EXPECT_EQ(TextOf([&](TextSink& out) { entry.GetCodeText(out); }), "65535");
}

TEST(CompareTexts, ComparesBytesAsUnsignedNumbers) {
  EXPECT_LT(CompareTexts("CPU", "UPS"), 0);
  EXPECT_GT(CompareTexts("UPS", "CPU"), 0);
  EXPECT_LT(CompareTexts("Z", "a"), 0);
  EXPECT_LT(CompareTexts("z", "\xC3\xA4"), 0);
  EXPECT_GT(CompareTexts("\xFF", "\x01"), 0);
  EXPECT_EQ(CompareTexts("KTB", "KTB"), 0);
}

TEST(CompareTexts, PutsTheBeginningOfATextBeforeIt) {
  EXPECT_LT(CompareTexts("Slot 1", "Slot 10"), 0);
  EXPECT_GT(CompareTexts("Slot 10", "Slot 1"), 0);
}

TEST(CompareTexts, PutsTheEmptyTextLast) {
  EXPECT_GT(CompareTexts("", "\x01"), 0);
  EXPECT_GT(CompareTexts("", "\xFF"), 0);
  EXPECT_LT(CompareTexts("\xFF", ""), 0);
  EXPECT_EQ(CompareTexts("", ""), 0);
}

// Both orders, both directions.
void ExpectBefore(const CEventLogEntry& a, const CEventLogEntry& b, Column column) {
  SCOPED_TRACE(static_cast<int>(column));
  EXPECT_LT(CompareEntries(a, b, column, true), 0);
  EXPECT_GT(CompareEntries(b, a, column, true), 0);
  EXPECT_GT(CompareEntries(a, b, column, false), 0);
  EXPECT_LT(CompareEntries(b, a, column, false), 0);
}

TEST(CompareEntries, OrdersByEntryNumberAlone) {
  RawLogEntry early = Numbered(7);
  early.severity = 15;
  early.count = 99;
  early.eventClass = 37;
  RawLogEntry late = Numbered(300);
  ExpectBefore(CEventLogEntry(early), CEventLogEntry(late), Column::kEntryNumber);
}

TEST(CompareEntries, OrdersByDescription) {
  // Empty, Reserved, Unknown Event (Class 12, ...
  ExpectBefore(OfClass(0, 9), OfClass(1, 8), Column::kDescription);
  ExpectBefore(OfClass(1, 9), OfClass(12, 8), Column::kDescription);
  // As texts, 100 stands before 38.
  ExpectBefore(OfClass(100, 9), OfClass(38, 8), Column::kDescription);
}

TEST(CompareEntries, OrdersByClassName) {
  // CPU, Cache Memory, Drive Array Subsystem: neither the classes' numbers nor a dictionary.
  ExpectBefore(OfClass(5, 9), OfClass(4, 8), Column::kClass);
  ExpectBefore(OfClass(4, 9), OfClass(19, 8), Column::kClass);
  ExpectBefore(OfClass(19, 9), OfClass(2, 8), Column::kClass);
}

TEST(CompareEntries, PutsUnnamedClassesLastAndDescendingFirst) {
  ExpectBefore(OfClass(12, 9), OfClass(16, 8), Column::kClass);
  ExpectBefore(OfClass(20, 9), OfClass(35, 8), Column::kClass);
}

TEST(CompareEntries, OrdersUnnamedClassesByEntryNumber) {
  ExpectBefore(OfClass(36, 8), OfClass(16, 9), Column::kClass);
}

TEST(CompareEntries, OrdersSeveritiesByCodeAndNotByName) {
  constexpr std::uint8_t kAscending[] = {0, 1, 2, 3, 4, 6, 7, 9, 15, 16, 127, 128, 255};
  for (std::size_t i = 1; i < std::size(kAscending); ++i) {
    ExpectBefore(OfSeverity(kAscending[i - 1], 9), OfSeverity(kAscending[i], 8), Column::kSeverity);
  }
}

TEST(CompareEntries, OrdersByCount) {
  ExpectBefore(OfCount(0, 9), OfCount(1, 8), Column::kCount);
  // A text comparison would turn these around.
  ExpectBefore(OfCount(9, 9), OfCount(10, 8), Column::kCount);
  ExpectBefore(OfCount(1, 9), OfCount(0x7FFFFFFFU, 8), Column::kCount);
  ExpectBefore(OfCount(0xFFFFFFFEU, 9), OfCount(0xFFFFFFFFU, 8), Column::kCount);
}

// A difference of 32 bits would wrap here and the order would not be one: the numbers themselves
// compare.
TEST(CompareEntries, ComparesCountsAsUnsignedNumbers) {
  ExpectBefore(OfCount(0, 9), OfCount(0xFFFFFFFFU, 8), Column::kCount);
  ExpectBefore(OfCount(0, 9), OfCount(0x80000001U, 8), Column::kCount);
  ExpectBefore(OfCount(0x7FFFFFFFU, 9), OfCount(0x80000000U, 8), Column::kCount);
}

TEST(CompareEntries, ComparesEntryNumbersAsUnsignedNumbers) {
  for (const Column column : kAllColumns) {
    ExpectBefore(CEventLogEntry(Numbered(1)), CEventLogEntry(Numbered(0xFFFFFFFFU)), column);
    ExpectBefore(CEventLogEntry(Numbered(1)), CEventLogEntry(Numbered(0x80000002U)), column);
    ExpectBefore(CEventLogEntry(Numbered(1)), CEventLogEntry(Numbered(0x80000000U)), column);
  }
}

TEST(CompareEntries, ComparesTimesByteByByte) {
  constexpr LogTime kMiddle = {20, 20, 6, 15, 12, 30};
  // Each is later than the one before by its first differing byte, whatever the bytes behind say.
  constexpr LogTime kAscending[] = {
      {0,   0,   0,   0,   0,   0  },
      {19,  255, 255, 255, 255, 255},
      {20,  19,  255, 255, 255, 255},
      {20,  20,  5,   255, 255, 255},
      {20,  20,  6,   14,  255, 255},
      {20,  20,  6,   15,  11,  255},
      {20,  20,  6,   15,  12,  29 },
      kMiddle,
      {20,  20,  6,   15,  12,  31 },
      {20,  20,  6,   15,  13,  0  },
      {20,  20,  6,   16,  0,   0  },
      {20,  20,  7,   0,   0,   0  },
      {20,  21,  0,   0,   0,   0  },
      {21,  0,   0,   0,   0,   0  },
      {127, 0,   0,   0,   0,   0  },
      {128, 0,   0,   0,   0,   0  },
      {255, 0,   0,   0,   0,   0  },
  };
  for (std::size_t i = 1; i < std::size(kAscending); ++i) {
    SCOPED_TRACE(i);
    RawLogEntry earlier = Numbered(9);
    RawLogEntry later = Numbered(8);
    earlier.updateTime = kAscending[i - 1];
    later.updateTime = kAscending[i];
    // The other stamp says the opposite and must not be looked at.
    earlier.initialTime = {99, 0, 0, 0, 0, 0};
    ExpectBefore(CEventLogEntry(earlier), CEventLogEntry(later), Column::kUpdateTime);

    earlier.initialTime = kAscending[i - 1];
    later.initialTime = kAscending[i];
    earlier.updateTime = {99, 0, 0, 0, 0, 0};
    later.updateTime = {};
    ExpectBefore(CEventLogEntry(earlier), CEventLogEntry(later), Column::kInitialTime);
  }
}

TEST(CompareEntries, BreaksTiesByEntryNumberInTheSameDirection) {
  RawLogEntry first = FromBytes(CountingBytes());
  RawLogEntry second = first;
  first.entryNumber = 41;
  second.entryNumber = 42;
  for (const Column column : kAllColumns) {
    ExpectBefore(CEventLogEntry(first), CEventLogEntry(second), column);
  }
}

TEST(CompareEntries, CallsEqualOnlyWhatHasTheSameKeyAndNumber) {
  const CEventLogEntry entry(FromBytes(CountingBytes()));
  const CEventLogEntry copy(entry.raw());
  for (const Column column : kAllColumns) {
    EXPECT_EQ(CompareEntries(entry, copy, column, true), 0);
    EXPECT_EQ(CompareEntries(entry, copy, column, false), 0);
  }
}

}  // namespace
}  // namespace qvl
