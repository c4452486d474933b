#include "files/csv_export.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "entries/event_log_entry.h"
#include "platform/exclusive_file.h"
#include "tests/files/file_fixtures.h"
#include "tests/support/golden.h"

namespace qvl {
namespace {

using testing::LanguageScope;
using testing::Record;
using testing::TemporaryFile;
using testing::Written;

const std::string kHeadings = "Description,Class,Code,Severity,Count,Update Time,Initial Time\r\n";

constexpr LogTime kUpdate = {20, 26, 11, 20, 13, 5};
constexpr LogTime kInitial = {19, 99, 12, 31, 0, 59};

RawLogEntry Timed(RawLogEntry raw, std::uint8_t severity, std::uint32_t count) {
  raw.severity = severity;
  raw.count = count;
  raw.updateTime = kUpdate;
  raw.initialTime = kInitial;
  return raw;
}

std::string Line(const RawLogEntry& raw) {
  return Written([&](BufferedWriter& out) { AppendCsvLine(CEventLogEntry(raw), out); });
}

std::string Exported(std::string_view machine, const EntryList& list) {
  const TemporaryFile file(".csv");
  EXPECT_TRUE(ExportCsvFile(file.path(), machine, list).ok());
  return file.Read();
}

TEST(ExportCsvFile, WritesTheTwoHeadLinesAloneForALogWithoutEntries) {
  EXPECT_EQ(Exported("SRV1", EntryList()), "Korvath Quarvel Log Viewer:  SRV1\r\n" + kHeadings);
  EXPECT_EQ(Exported("", EntryList()), "Korvath Quarvel Log Viewer:  \r\n" + kHeadings);
}

TEST(ExportCsvFile, WritesEveryEntryInTheOrderOfTheList) {
  EntryList list;
  list.Append(Timed(Record(9, 33, 2, "Replaced fan 3"), 2, 1));
  list.Append(Timed(Record(2, 33, 2, "50% done, \"left\" side\nsecond line"), 15, 2));
  list.Append(Timed(Record(5, 99, 65535), 4, 0xFFFFFFFFU));
  list.Append(Timed(Record(5, 37, 131, "\x8A\x01"), 9, 0x80000000U));
  list.Append(Record(0, 0, 0));
  list.Append(Timed(Record(1, 12, 7), 6, 2147483647));
  EXPECT_EQ(
      Exported("SRV1", list),
      "Korvath Quarvel Log Viewer:  SRV1\r\n"
      "Description,Class,Code,Severity,Count,Update Time,Initial Time\r\n"
      "\"Maintenance note: Replaced fan 3\",Maintenance,2,Informational,1,"
      "11/20/2026 1:05 PM,12/31/1999 12:59 AM\r\n"
      "\"Maintenance note: 50% done, \"left\" side\r\nsecond line\",Maintenance,2,Critical,2,"
      "11/20/2026 1:05 PM,12/31/1999 12:59 AM\r\n"
      "\"Unknown Event (Class 99, Code 65535)\",,65535,,-1,"
      "11/20/2026 1:05 PM,12/31/1999 12:59 AM\r\n"
      "\"Unexpected upper KTB board service processor FPGA Reconfiguration\r\n\",KTB,131,Caution,"
      "-2147483648,11/20/2026 1:05 PM,12/31/1999 12:59 AM\r\n"
      "\"Empty\",Empty,0,,0,Invalid: 0/0/0 12:00 AM,Invalid: 0/0/0 12:00 AM\r\n"
      "\"Unknown Event (Class 12, Code 7)\",UPS,7,Repaired,2147483647,"
      "11/20/2026 1:05 PM,12/31/1999 12:59 AM\r\n");
}

TEST(ExportCsvFile, LeavesTheOldTailOfALongerFile) {
  const TemporaryFile file(".csv");
  const std::string old(1000, 'o');
  file.Write(old);
  ASSERT_TRUE(ExportCsvFile(file.path(), "M", EntryList()).ok());
  const std::string fresh = "Korvath Quarvel Log Viewer:  M\r\n" + kHeadings;
  EXPECT_EQ(file.Read(), fresh + old.substr(fresh.size()));
}

TEST(ExportCsvFile, WritesLogsLargerThanItsBuffer) {
  EntryList list;
  std::string expected = "Korvath Quarvel Log Viewer:  M\r\n" + kHeadings;
  for (std::uint32_t i = 0; i < 5000; ++i) {
    const std::string note = "note " + std::to_string(i) + std::string(i % 190, '.') + "\n!";
    const RawLogEntry raw = Timed(Record(i, 33, 2, note), 3, i);
    list.Append(raw);
    expected += "\"Maintenance note: note " + std::to_string(i) + std::string(i % 190, '.') +
                "\r\n!\",Maintenance,2,Informational," + std::to_string(i) +
                ",11/20/2026 1:05 PM,12/31/1999 12:59 AM\r\n";
  }
  EXPECT_TRUE(Exported("M", list) == expected);
}

TEST(ExportCsvFile, FailsWhereTheFolderIsMissing) {
  const TemporaryFile folder(".missing");
  const Status status = ExportCsvFile(folder.path() + "/log.csv", "M", EntryList());
  EXPECT_FALSE(status.ok());
  EXPECT_FALSE(status.message().empty());
}

TEST(ExportCsvFile, FailsWhileTheFileIsReadAndLeavesItAlone) {
  const TemporaryFile file(".csv");
  file.Write("before");
  ExclusiveFile reader;
  ASSERT_TRUE(reader.Open(file.path(), ExclusiveFile::Mode::kRead).ok());
  EXPECT_FALSE(ExportCsvFile(file.path(), "M", EntryList()).ok());
  ASSERT_TRUE(reader.Close().ok());
  EXPECT_EQ(file.Read(), "before");
}

TEST(AppendCsvHead, KeepsTheHeadingsInEveryLanguage) {
  const LanguageScope language(Language::kJapanese);
  const std::string head = Written([](BufferedWriter& out) { AppendCsvHead("SRV1", out); });
  EXPECT_TRUE(head.ends_with("SRV1\r\n" + kHeadings)) << head;
}

TEST(AppendCsvLine, WritesImpossibleTimesAsInvalid) {
  RawLogEntry raw = Record(1, 12, 1);
  raw.severity = 15;
  raw.updateTime = {20, 26, 13, 1, 24, 0};
  raw.initialTime = {20, 26, 2, 28, 23, 60};
  EXPECT_EQ(Line(raw),
            "\"Unknown Event (Class 12, Code 1)\",UPS,1,Critical,0,"
            "Invalid: 13/1/2026 Invalid: 24:0,2/28/2026 Invalid: 23:60\r\n");
}

TEST(AppendCsvLine, LeavesTheFieldsOfUnnamedClassesAndSeveritiesEmpty) {
  for (const auto eventClass : std::to_array<std::uint16_t>({16, 21, 31, 35, 36, 38, 65535})) {
    for (const auto severity : std::to_array<std::uint8_t>({0, 1, 4, 7, 14, 16, 255})) {
      const std::string number = std::to_string(eventClass);
      EXPECT_EQ(Line(Timed(Record(1, eventClass, 1), severity, 3)),
                "\"Unknown Event (Class " + number +
                    ", Code 1)\",,1,,3,11/20/2026 1:05 PM,12/31/1999 12:59 AM\r\n");
    }
  }
}

// Whatever a decoder writes, its text stands between the quotes as it is, but for line feeds.
TEST(AppendCsvLine, QuotesEveryDescriptionAsItIs) {
  std::size_t longest = 0;
  for (const std::string& file : testing::GoldenDescriptionFiles()) {
    for (const testing::GoldenDescription& golden : testing::ReadGoldenDescriptions(file)) {
      RawLogEntry raw = Timed(Record(1, golden.eventClass, golden.code), 0, 1);
      raw.data = golden.data;
      std::string expected = "\"";
      for (const char c : golden.text) expected += c == '\n' ? std::string("\r\n") : std::string{c};
      expected += "\",";
      expected += CEventLogEntry(raw).GetClassName();
      expected += "," + std::to_string(golden.code) + ",,1,";
      expected += "11/20/2026 1:05 PM,12/31/1999 12:59 AM\r\n";
      EXPECT_EQ(Line(raw), expected) << golden.where;
      longest = std::max(longest, golden.text.size());
    }
  }
  EXPECT_EQ(longest, 349U) << "no description is cut any more";
}

}  // namespace
}  // namespace qvl
