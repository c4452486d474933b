#include "files/additional_exports.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <random>
#include <string>
#include <vector>

#include "files/unicode_text.h"
#include "tests/files/file_fixtures.h"
#include "tests/support/golden.h"

namespace qvl {
namespace {

using testing::LanguageScope;
using testing::RandomRecord;
using testing::Record;
using testing::Written;
using Json = nlohmann::json;
using Fields = std::vector<std::string>;

RawLogEntry Note(std::string_view text) {
  RawLogEntry raw = Record(7, 33, 2, text);
  raw.severity = 15;
  raw.count = 3;
  raw.updateTime = {20, 26, 11, 20, 13, 5};
  raw.initialTime = {19, 99, 2, 3, 4, 9};
  return raw;
}

std::string CsvLine(const RawLogEntry& raw) {
  return Written([&](BufferedWriter& out) { AppendStrictCsvLine(CEventLogEntry(raw), out); });
}

std::string JsonLine(const RawLogEntry& raw) {
  return Written([&](BufferedWriter& out) { AppendJsonLine(CEventLogEntry(raw), out); });
}

// Reads one record as RFC 4180 has it; `ok` tells whether nothing in it breaks the rules.
Fields ParseCsv(const std::string& line, bool& ok) {
  Fields fields = {""};
  std::size_t at = 0;
  ok = true;
  for (;;) {
    if (line[at] == '"') {
      for (++at; at < line.size(); ++at) {
        if (line[at] == '"' && line[at + 1] != '"') break;
        if (line[at] == '"') ++at;
        fields.back() += line[at];
      }
      ++at;
    } else {
      while (at < line.size() && line[at] != ',' && line[at] != '\r') {
        if (line[at] == '"' || line[at] == '\n') ok = false;
        fields.back() += line[at++];
      }
    }
    if (line.compare(at, std::string::npos, "\r\n") == 0) return fields;
    if (at >= line.size() || line[at] != ',') {
      ok = false;
      return fields;
    }
    ++at;
    fields.emplace_back();
  }
}

Fields ParsedCsv(const RawLogEntry& raw) {
  bool ok = false;
  Fields fields = ParseCsv(CsvLine(raw), ok);
  EXPECT_TRUE(ok) << CsvLine(raw);
  return fields;
}

TEST(IsoTime, WritesTheMinute) {
  EXPECT_EQ(IsoTime({20, 26, 11, 20, 13, 5}), "2026-11-20T13:05");
  EXPECT_EQ(IsoTime({20, 0, 1, 2, 3, 4}), "2000-01-02T03:04");
  EXPECT_EQ(IsoTime({19, 99, 12, 31, 23, 59}), "1999-12-31T23:59");
  EXPECT_EQ(IsoTime({20, 24, 2, 29, 0, 0}), "2024-02-29T00:00");
  EXPECT_EQ(IsoTime({99, 99, 1, 1, 0, 0}), "9999-01-01T00:00");
}

TEST(IsoTime, IsEmptyForATimeThatDoesNotExist) {
  EXPECT_EQ(IsoTime({}), "");
  EXPECT_EQ(IsoTime({0, 26, 11, 20, 13, 5}), "");
  EXPECT_EQ(IsoTime({20, 26, 0, 20, 13, 5}), "");
  EXPECT_EQ(IsoTime({20, 26, 11, 0, 13, 5}), "");
  EXPECT_EQ(IsoTime({20, 26, 13, 1, 13, 5}), "");
  EXPECT_EQ(IsoTime({20, 26, 2, 29, 13, 5}), "");
  EXPECT_EQ(IsoTime({20, 26, 4, 31, 13, 5}), "");
  EXPECT_EQ(IsoTime({20, 26, 11, 20, 24, 0}), "");
  EXPECT_EQ(IsoTime({20, 26, 11, 20, 13, 60}), "");
  EXPECT_EQ(IsoTime({100, 0, 1, 1, 0, 0}), "");  // the year 10000
}

TEST(StrictCsv, HasAHeadingLine) {
  EXPECT_EQ(Written([](BufferedWriter& out) { AppendStrictCsvHead(out); }),
            "Number,Description,Class,Code,Severity,Count,Update Time,Initial Time\r\n");
}

TEST(StrictCsv, WritesPlainFieldsWithoutQuotes) {
  EXPECT_EQ(CsvLine(Note("Replaced fan 3")),
            "7,Maintenance note: Replaced fan 3,Maintenance,2,Critical,3,"
            "2026-11-20T13:05,1999-02-03T04:09\r\n");
}

TEST(StrictCsv, QuotesCommasQuotesAndLineEndsAndDoublesQuotes) {
  const std::string rest = ",Maintenance,2,Critical,3,2026-11-20T13:05,1999-02-03T04:09\r\n";
  EXPECT_EQ(CsvLine(Note("a,b")), "7,\"Maintenance note: a,b\"" + rest);
  EXPECT_EQ(CsvLine(Note("the \"left\" side")),
            "7,\"Maintenance note: the \"\"left\"\" side\"" + rest);
  EXPECT_EQ(CsvLine(Note("\"")), "7,\"Maintenance note: \"\"\"" + rest);
  EXPECT_EQ(CsvLine(Note("one\ntwo")), "7,\"Maintenance note: one\ntwo\"" + rest);
  EXPECT_EQ(CsvLine(Note("one\r\ntwo")), "7,\"Maintenance note: one\r\ntwo\"" + rest);
}

TEST(StrictCsv, LeavesMissingNamesAndTimesEmptyAndNumbersUnsigned) {
  RawLogEntry raw = Record(0xFFFFFFFFU, 99, 65535);
  raw.severity = 7;
  raw.count = 0xFFFFFFFFU;
  EXPECT_EQ(CsvLine(raw),
            "4294967295,\"Unknown Event (Class 99, Code 65535)\",,65535,,4294967295,,\r\n");
}

TEST(StrictCsv, IsEnglishInEveryLanguage) {
  const std::string english = CsvLine(Note("x"));
  const LanguageScope language(Language::kJapanese);
  EXPECT_EQ(CsvLine(Note("x")), english);
  EXPECT_EQ(Json::parse(JsonLine(Note("x")))["className"], "Maintenance");
}

TEST(StrictCsv, GivesBackEveryDescription) {
  for (const std::string& file : testing::GoldenDescriptionFiles()) {
    for (const testing::GoldenDescription& golden : testing::ReadGoldenDescriptions(file)) {
      RawLogEntry raw = Record(1, golden.eventClass, golden.code);
      raw.data = golden.data;
      const Fields fields = ParsedCsv(raw);
      ASSERT_EQ(fields.size(), 8U) << golden.where;
      EXPECT_EQ(fields[1], Utf8FromText(golden.text)) << golden.where;
    }
  }
}

// What a spreadsheet would run: a cell that begins with one of these.
bool BeginsFormula(const std::string& field) {
  return !field.empty() && std::string("=+-@\t\r").find(field[0]) != std::string::npos;
}

TEST(StrictCsv, PutsAnApostropheBeforeWhatASpreadsheetWouldRun) {
  const auto field = [](std::string_view text) {
    return Written([&](BufferedWriter& out) { AppendStrictCsvField(text, out); });
  };
  EXPECT_EQ(field("=1+1"), "\"'=1+1\"");
  EXPECT_EQ(field("+1"), "\"'+1\"");
  EXPECT_EQ(field("-1"), "\"'-1\"");
  EXPECT_EQ(field("@cell"), "\"'@cell\"");
  EXPECT_EQ(field("\tx"), "\"'\tx\"");
  EXPECT_EQ(field("\rx"), "\"'\rx\"");
  EXPECT_EQ(field("=\"a\""), "\"'=\"\"a\"\"\"");
  EXPECT_EQ(field("a=1"), "a=1");
  EXPECT_EQ(field(""), "");
}

TEST(StrictCsv, WritesNoFieldThatASpreadsheetWouldRun) {
  std::mt19937 random(1);
  std::vector<RawLogEntry> records;
  for (const char c : std::string("=+-@\t\r")) {
    for (std::uint16_t eventClass = 0; eventClass < 40; ++eventClass) {
      for (std::uint16_t code = 0; code < 260; ++code) {
        RawLogEntry raw = RandomRecord(random);
        raw.eventClass = eventClass;
        raw.eventCode = code;
        raw.data.fill(static_cast<std::uint8_t>(c));
        raw.data[0] = static_cast<std::uint8_t>(random());
        records.push_back(raw);
      }
    }
  }
  for (const RawLogEntry& raw : records) {
    const Fields fields = ParsedCsv(raw);
    ASSERT_EQ(fields.size(), 8U);
    for (const std::string& field : fields) EXPECT_FALSE(BeginsFormula(field)) << field;
  }
}

TEST(StrictCsv, KeepsItsEightFieldsForAnyRecord) {
  std::mt19937 random(2);
  for (int i = 0; i < 20000; ++i) {
    RawLogEntry raw = RandomRecord(random);
    raw.eventClass = static_cast<std::uint16_t>(raw.eventClass % 40);
    raw.eventCode = static_cast<std::uint16_t>(raw.eventCode % 300);
    EXPECT_EQ(ParsedCsv(raw).size(), 8U);
    EXPECT_TRUE(IsUtf8(CsvLine(raw)));
  }
}

TEST(JsonLine, HoldsEveryField) {
  const std::string line = JsonLine(Note("Replaced \"fan\" 3\n"));
  ASSERT_TRUE(line.ends_with("}\n"));
  EXPECT_EQ(line.find('\n'), line.size() - 1);  // one line
  const Json object = Json::parse(line);
  EXPECT_EQ(object.size(), 12U);
  EXPECT_EQ(object["number"], 7);
  EXPECT_EQ(object["description"], "Maintenance note: Replaced \"fan\" 3\n");
  EXPECT_EQ(object["class"], 33);
  EXPECT_EQ(object["className"], "Maintenance");
  EXPECT_EQ(object["code"], 2);
  EXPECT_EQ(object["severity"], 15);
  EXPECT_EQ(object["severityName"], "Critical");
  EXPECT_EQ(object["count"], 3);
  EXPECT_EQ(object["updateTime"], "2026-11-20T13:05");
  EXPECT_EQ(object["initialTime"], "1999-02-03T04:09");
  const std::string text = object["data"];
  EXPECT_EQ(text.size(), 456U);
  EXPECT_EQ(text.substr(0, 20), "5265706c616365642022");
  EXPECT_EQ(text.substr(440), "0000000000000000");
  EXPECT_EQ(object["reserved"], "000000");
}

TEST(JsonLine, HoldsTheReservedBytes) {
  RawLogEntry raw = Note("x");
  raw.reserved0 = {0x12, 0xAB};
  raw.reserved6 = 0xCD;
  EXPECT_EQ(Json::parse(JsonLine(raw))["reserved"], "12abcd");
}

TEST(JsonLine, KeepsItsFieldsInOrder) {
  EXPECT_TRUE(JsonLine(Note("x")).starts_with(
      R"({"number":7,"description":"Maintenance note: x","class":33,"className":"Maintenance",)"
      R"("code":2,"severity":15,"severityName":"Critical","count":3,)"
      R"("updateTime":"2026-11-20T13:05","initialTime":"1999-02-03T04:09","data":"78000)"));
}

TEST(JsonLine, HasNullsForWhatIsMissing) {
  RawLogEntry raw = Record(0xFFFFFFFFU, 16, 65535, "\x01\xFE");
  raw.severity = 4;
  raw.count = 0xFFFFFFFFU;
  raw.initialTime = {20, 26, 2, 31, 0, 0};
  const Json object = Json::parse(JsonLine(raw));
  EXPECT_EQ(object["number"], 4294967295U);
  EXPECT_EQ(object["class"], 16);
  EXPECT_TRUE(object["className"].is_null());
  EXPECT_EQ(object["code"], 65535);
  EXPECT_EQ(object["severity"], 4);
  EXPECT_TRUE(object["severityName"].is_null());
  EXPECT_EQ(object["count"], 4294967295U);
  EXPECT_TRUE(object["updateTime"].is_null());
  EXPECT_TRUE(object["initialTime"].is_null());
  EXPECT_EQ(object["data"], "01fe" + std::string(452, '0'));
}

TEST(JsonLine, ReadsDescriptionsThatAreNoUtf8AsWindows1252) {
  EXPECT_EQ(Json::parse(JsonLine(Note("caf\xE9 \x80")))["description"],
            "Maintenance note: caf\xC3\xA9 \xE2\x82\xAC");
  EXPECT_EQ(Json::parse(JsonLine(Note("caf\xC3\xA9")))["description"],
            "Maintenance note: caf\xC3\xA9");
  EXPECT_EQ(ParsedCsv(Note("caf\xE9 \x80"))[1], "Maintenance note: caf\xC3\xA9 \xE2\x82\xAC");
}

TEST(JsonLine, ParsesForAnyRecord) {
  static constexpr std::string_view kDigits = "0123456789abcdef";
  std::mt19937 random(3);
  for (int i = 0; i < 20000; ++i) {
    RawLogEntry raw = RandomRecord(random);
    raw.eventClass = static_cast<std::uint16_t>(raw.eventClass % 40);
    raw.eventCode = static_cast<std::uint16_t>(raw.eventCode % 300);
    const Json object = Json::parse(JsonLine(raw), nullptr, false);
    ASSERT_FALSE(object.is_discarded());
    EXPECT_EQ(object["number"], std::uint32_t{raw.entryNumber});
    EXPECT_EQ(object["count"], std::uint32_t{raw.count});
    std::string digits;
    for (const std::uint8_t byte : raw.data) {
      digits += {kDigits[byte / 16U], kDigits[byte % 16U]};
    }
    EXPECT_EQ(object["data"], digits);
  }
}

}  // namespace
}  // namespace qvl
