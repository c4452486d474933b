#include "files/text_report.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/files/file_fixtures.h"

namespace qvl {
namespace {

using testing::Record;
using testing::Written;

RawLogEntry ReplacedFan() {
  RawLogEntry raw = Record(1, 33, 2, "Replaced fan 3");
  raw.severity = 9;
  raw.count = 12;
  raw.updateTime = {20, 26, 11, 20, 13, 5};
  raw.initialTime = {20, 26, 1, 2, 0, 0};
  return raw;
}

using Lines = std::array<std::string, kReportLinesPerEntry>;

TEST(ReportLines, NamesEveryFieldButTheCode) {
  EXPECT_EQ(
      ReportLines(CEventLogEntry(ReplacedFan())),
      (Lines{"Maintenance note: Replaced fan 3",  //
             "    Class          : Maintenance",  //
             "    Severity       : Caution",      //
             "    Count          : 12",           //
             "    Update Time    : 11/20/2026 1:05 PM", "    Initial Time   : 1/2/2026 12:00 AM"}));
}

TEST(ReportLines, KeepTheLabelsOfWhatHasNoText) {
  RawLogEntry raw = Record(1, 35, 4);
  raw.severity = 7;
  raw.count = 0xFFFFFFFFU;
  raw.initialTime = {20, 26, 2, 31, 24, 1};
  EXPECT_EQ(ReportLines(CEventLogEntry(raw)),
            (Lines{"Unknown Event (Class 35, Code 4)",  //
                   "    Class          : ",             //
                   "    Severity       : ",             //
                   "    Count          : -1",           //
                   "    Update Time    : Invalid: 0/0/0 12:00 AM",
                   "    Initial Time   : Invalid: 2/31/2026 Invalid: 24:1"}));
}

TEST(AppendReportHead, NamesTitleMachineAndTime) {
  EXPECT_EQ(Written([](BufferedWriter& out) {
              AppendReportHead("SRV1", "Friday, November 20, 2026 at 01:05 PM", "\r\n", out);
            }),
            "Korvath Quarvel Log Viewer - SRV1\r\nFriday, November 20, 2026 at 01:05 PM\r\n");
  EXPECT_EQ(Written([](BufferedWriter& out) { AppendReportHead("", "now", "\n", out); }),
            "Korvath Quarvel Log Viewer - \nnow\n");
}

TEST(AppendReportEntry, EndsEveryLineAndLeavesNoBlankOne) {
  const std::string two = Written([](BufferedWriter& out) {
    AppendReportEntry(CEventLogEntry(ReplacedFan()), "\n", out);
    AppendReportEntry(CEventLogEntry(Record(2, 0, 0)), "\n", out);
  });
  EXPECT_EQ(two,
            "Maintenance note: Replaced fan 3\n"
            "    Class          : Maintenance\n"
            "    Severity       : Caution\n"
            "    Count          : 12\n"
            "    Update Time    : 11/20/2026 1:05 PM\n"
            "    Initial Time   : 1/2/2026 12:00 AM\n"
            "Empty\n"
            "    Class          : Empty\n"
            "    Severity       : \n"
            "    Count          : 0\n"
            "    Update Time    : Invalid: 0/0/0 12:00 AM\n"
            "    Initial Time   : Invalid: 0/0/0 12:00 AM\n");
}

TEST(AppendReportEntry, EndsTheLinesInsideADescriptionAsAllOthers) {
  const std::string noted = Written([](BufferedWriter& out) {
    AppendReportEntry(CEventLogEntry(Record(1, 33, 2, "one\ntwo\n\nfour")), "\r\n", out);
  });
  EXPECT_TRUE(
      noted.starts_with("Maintenance note: one\r\ntwo\r\n\r\nfour\r\n"
                        "    Class          : Maintenance\r\n"))
      << noted;

  // This description ends with a line feed of its own, before the line's end.
  const std::string reconfigured = Written([](BufferedWriter& out) {
    AppendReportEntry(CEventLogEntry(Record(1, 37, 131, "\x8C\x01")), "\r\n", out);
  });
  EXPECT_EQ(reconfigured,
            "Unexpected lower KTB board service processor FPGA Reconfiguration\r\n\r\n"
            "    Class          : KTB\r\n"
            "    Severity       : \r\n"
            "    Count          : 0\r\n"
            "    Update Time    : Invalid: 0/0/0 12:00 AM\r\n"
            "    Initial Time   : Invalid: 0/0/0 12:00 AM\r\n");
}

}  // namespace
}  // namespace qvl
