#include "batch/report_printing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "files/text_report.h"
#include "tests/fakes/fake_printer.h"
#include "tests/files/file_fixtures.h"

namespace qvl {
namespace {

using testing::FakePrinter;
using testing::PrintRecord;
using testing::Record;

using Calls = std::vector<std::string>;

// Thirty lines a page and eighty characters a line, of ten units each.
constexpr PrinterMetrics kSmallPage = {.horizontalResolution = 800,
                                       .verticalResolution = 300,
                                       .fontHeight = 8,
                                       .externalLeading = 2,
                                       .averageCharacterWidth = 10};

class ReportPrinting : public ::testing::Test {
 protected:
  ReportPrinting() { record_.metrics = kSmallPage; }

  void AddEntries(int count) {
    for (int i = 0; i < count; ++i) entries_.Append(Record(0, 12, static_cast<std::uint16_t>(i)));
  }

  bool Print(std::string_view machine = "SRV1") {
    FakePrinter printer(record_);
    return PrintReport(printer, machine, entries_, now_);
  }

  // What one page, counted from 1, is given between its start and its end.
  Calls Page(int number) const {
    auto begin = record_.calls.begin();
    for (int page = 0; page < number; ++page) {
      begin = std::find(begin, record_.calls.end(), "page");
      if (begin == record_.calls.end()) return {"no such page"};
      ++begin;
    }
    return {begin, std::find(begin, record_.calls.end(), "end of page")};
  }

  std::ptrdiff_t Count(const std::string& call) const {
    return std::count(record_.calls.begin(), record_.calls.end(), call);
  }

  PrintRecord record_;
  EntryList entries_;
  const Moment now_ = 1795179900;
  const std::string nowText_ = LongDateAndTime(now_);
};

TEST_F(ReportPrinting, DrawsHeaderAndBlocksAndAnEmptyPageAtTheEnd) {
  RawLogEntry raw = Record(1, 33, 2, "Replaced fan 3");
  raw.severity = 15;
  raw.count = 2;
  raw.updateTime = {20, 26, 11, 20, 13, 5};
  raw.initialTime = {20, 26, 1, 2, 0, 0};
  entries_.Append(raw);
  EXPECT_TRUE(Print());
  EXPECT_EQ(
      record_.calls,
      (Calls{"document Report",  //
             "page", "25,25 Korvath Quarvel Log Viewer - SRV1" + std::string(41, ' ') + "Page 1",
             "25,35 " + nowText_,  //
             "25,45 " + std::string(80, '_'), "25,55 " + std::string(80, ' '),
             "25,65 Maintenance note: Replaced fan 3", "25,75     Class          : Maintenance",
             "25,85     Severity       : Critical", "25,95     Count          : 2",
             "25,105     Update Time    : 11/20/2026 1:05 PM",
             "25,115     Initial Time   : 1/2/2026 12:00 AM",
             "end of page",  //
             "page",         //
             "end of page",  //
             "end of document"}));
}

TEST_F(ReportPrinting, PrintsOnlyTheEmptyPageWithoutEntries) {
  EXPECT_TRUE(Print());
  EXPECT_EQ(record_.calls, (Calls{"document Report", "page", "end of page", "end of document"}));
}

TEST_F(ReportPrinting, StartsEveryPageAtTheTop) {
  AddEntries(5);
  EXPECT_TRUE(Print());
  EXPECT_EQ(Count("page"), 3);
  EXPECT_EQ(Count("end of page"), 3);
  // Four entries are 28 lines; with the header's three they run one line past the thirty.
  ASSERT_EQ(Page(1).size(), 31U);
  EXPECT_EQ(Page(1)[30].substr(0, 7), "25,325 ");
  EXPECT_EQ(Page(1)[25].substr(7), ReportLines(entries_[3])[0]);
  ASSERT_EQ(Page(2).size(), 10U);
  EXPECT_EQ(Page(2)[0].substr(0, 6), "25,25 ");
  EXPECT_EQ(Page(2)[0].substr(Page(2)[0].size() - 7), " Page 2");
  EXPECT_EQ(Page(2)[4], "25,65 " + ReportLines(entries_[4])[0]);
  EXPECT_TRUE(Page(3).empty());
}

// Thirty entries are 210 lines, seven pages of thirty: what needs an eighth page is left out.
TEST_F(ReportPrinting, EndsWithTheLastCountedPage) {
  AddEntries(30);
  EXPECT_TRUE(Print());
  EXPECT_EQ(Count("page"), 8);
  EXPECT_EQ(Page(7)[4], "25,65 " + ReportLines(entries_[24])[0]);
  EXPECT_TRUE(Page(8).empty());
}

TEST_F(ReportPrinting, CountsTheRestOfALastPage) {
  record_.metrics.verticalResolution = 220;  // 22 lines: three entries and a line
  AddEntries(3);
  EXPECT_TRUE(Print());
  EXPECT_EQ(Count("page"), 2);
  entries_.Clear();
  record_.calls.clear();
  AddEntries(4);  // 28 lines
  EXPECT_TRUE(Print());
  EXPECT_EQ(Count("page"), 3);
}

// Eight lines have room for one entry, six for none.
TEST_F(ReportPrinting, PrintsHeadersAloneOnPagesTooShortForAnEntry) {
  AddEntries(8);
  record_.metrics.verticalResolution = 80;
  EXPECT_TRUE(Print());
  EXPECT_EQ(Count("page"), 8);
  EXPECT_EQ(Page(7)[4], "25,65 " + ReportLines(entries_[6])[0]);
  record_.calls.clear();
  record_.metrics.verticalResolution = 60;
  EXPECT_TRUE(Print());
  EXPECT_EQ(Count("page"), 11);
  EXPECT_EQ(Page(1).size(), 3U);
  EXPECT_EQ(Page(10).size(), 3U);
}

TEST_F(ReportPrinting, AddsNoBlanksToAHeaderThatIsTooWide) {
  record_.metrics.horizontalResolution = 100;
  AddEntries(1);
  EXPECT_TRUE(Print());
  EXPECT_EQ(Page(1)[0], "25,25 Korvath Quarvel Log Viewer - SRV1Page 1");
  EXPECT_EQ(Page(1)[2], "25,45 __________");
  record_.calls.clear();
  record_.metrics.horizontalResolution = 390;  // exactly as wide as both texts
  EXPECT_TRUE(Print());
  EXPECT_EQ(Page(1)[0], "25,25 Korvath Quarvel Log Viewer - SRV1Page 1");
  EXPECT_EQ(Page(1)[2], "25,45 " + std::string(39, '_'));
}

TEST_F(ReportPrinting, TakesAMachinesNameAsItIs) {
  AddEntries(1);
  EXPECT_TRUE(Print("%s%n%d"));
  EXPECT_EQ(Page(1)[0],
            "25,25 Korvath Quarvel Log Viewer - %s%n%d" + std::string(39, ' ') + "Page 1");
}

TEST_F(ReportPrinting, DrawsUtf8WhateverTheEntryHolds) {
  entries_.Append(Record(1, 33, 2,
                         "L\xFC"
                         "fter"));
  EXPECT_TRUE(Print());
  EXPECT_EQ(Page(1)[4],
            "25,65 Maintenance note: L\xC3\xBC"
            "fter");
}

TEST_F(ReportPrinting, SurvivesAPrinterWithoutMeasures) {
  record_.metrics = {};
  AddEntries(2);
  EXPECT_TRUE(Print());
  EXPECT_EQ(Count("page"), 15);
}

TEST_F(ReportPrinting, DrawsNothingWhenTheDocumentDoesNotStart) {
  record_.refusesStart = true;
  AddEntries(1);
  EXPECT_FALSE(Print());
  EXPECT_EQ(record_.calls, Calls{"document Report"});
}

TEST_F(ReportPrinting, TellsWhenTheSpoolerRefusesTheDocument) {
  record_.refusesEnd = true;
  AddEntries(1);
  EXPECT_FALSE(Print());
  EXPECT_EQ(record_.calls.back(), "end of document");
}

}  // namespace
}  // namespace qvl
