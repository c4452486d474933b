#include "files/page_layout.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "entries/entry_list.h"
#include "files/text_report.h"
#include "tests/files/file_fixtures.h"

namespace qvl {
namespace {

using testing::Record;

constexpr int kLargest = std::numeric_limits<int>::max();

// Entries whose description tells their index.
class PageBody {
 public:
  explicit PageBody(std::size_t count) : count_(count) {
    for (std::size_t i = 0; i < count; ++i) {
      list_.Append(Record(0, 12, static_cast<std::uint16_t>(i)));
    }
  }

  std::vector<std::string> Lines(const PageLayout& layout, int page) const {
    return layout.BodyLines(page, count_,
                            [this](std::size_t i) -> const CEventLogEntry& { return list_[i]; });
  }

  // The indices of the entries that a page shows; every entry must be a blank line and its block.
  std::vector<int> Entries(const PageLayout& layout, int page) const {
    const std::vector<std::string> lines = Lines(layout, page);
    EXPECT_EQ(lines.size() % 7, 0U);
    std::vector<int> shown;
    for (std::size_t i = 0; i + 7 <= lines.size(); i += 7) {
      EXPECT_EQ(lines[i], std::string(static_cast<std::size_t>(layout.charactersPerLine()), ' '));
      for (std::size_t entry = 0; entry < count_; ++entry) {
        if (lines[i + 1] == ReportLines(list_[entry])[0]) shown.push_back(static_cast<int>(entry));
      }
    }
    return shown;
  }

 private:
  std::size_t count_;
  EntryList list_;
};

using Shown = std::vector<int>;

TEST(PageLayout, DividesThePageByTheFont) {
  // Letter paper at 600 dots an inch.
  const PageLayout layout(PrinterMetrics{4900, 6400, 90, 10, 50});
  EXPECT_EQ(layout.lineHeight(), 100);
  EXPECT_EQ(layout.linesPerPage(), 64);
  EXPECT_EQ(layout.charactersPerLine(), 98);
}

TEST(PageLayout, RoundsDown) {
  const PageLayout layout(PrinterMetrics{999, 1999, 95, 5, 100});
  EXPECT_EQ(layout.linesPerPage(), 19);
  EXPECT_EQ(layout.charactersPerLine(), 9);
}

TEST(PageLayout, SurvivesPrintersWithoutMeasures) {
  const PageBody body(3);
  for (const PrinterMetrics& metrics : {
           PrinterMetrics{  },
           PrinterMetrics{ 0,    0,    10,  0, 5},
           PrinterMetrics{ 100,  100,  0,   0, 0},
           PrinterMetrics{ 100,  100,  5,   -5, 0},
           PrinterMetrics{ -100, -100, -10, -10, -5},
  }) {
    const PageLayout layout(metrics);
    EXPECT_GE(layout.lineHeight(), 1);
    EXPECT_GE(layout.linesPerPage(), 1);
    EXPECT_GE(layout.charactersPerLine(), 0);
    EXPECT_GE(layout.PageCount(3), 1);
    for (int page = 1; page <= layout.PageCount(3); ++page) body.Lines(layout, page);
    EXPECT_EQ(layout.JustifiedLine("a", "b").substr(0, 1), "a");
  }
}

TEST(PageLayout, TakesTheSmallestPages) {
  const PageBody body(3);
  for (const int lines : {-1, 0, 1, 2, 3, 6, 7}) {
    const PageLayout layout(lines, 10);
    const int counted = std::max(1, lines);
    EXPECT_EQ(layout.linesPerPage(), counted);
    EXPECT_EQ(layout.PageCount(3), (21 + counted - 1) / counted);
    for (int page = 1; page <= 4; ++page) {
      // Less than six lines are left behind the header's two.
      EXPECT_EQ(body.Entries(layout, page), Shown{}) << lines << " lines, page " << page;
    }
  }
  EXPECT_EQ(PageLayout(20, -5).charactersPerLine(), 0);
  EXPECT_EQ(PageLayout(20, -5).Rule(), "");
}

TEST(PageLayout, CountsSevenLinesAnEntryRoundedUp) {
  const PageLayout layout(20, 80);
  EXPECT_EQ(layout.PageCount(0), 0);
  EXPECT_EQ(layout.PageCount(1), 1);
  EXPECT_EQ(layout.PageCount(2), 1);   // 14 of 20 lines
  EXPECT_EQ(layout.PageCount(3), 2);   // 21
  EXPECT_EQ(layout.PageCount(5), 2);   // 35
  EXPECT_EQ(layout.PageCount(6), 3);   // 42
  EXPECT_EQ(layout.PageCount(20), 7);  // 140, without a remainder
  EXPECT_EQ(layout.PageCount(21), 8);
  EXPECT_EQ(PageLayout(21, 80).PageCount(6), 2);
  EXPECT_EQ(PageLayout(21, 80).PageCount(7), 3);
  EXPECT_EQ(PageLayout(7, 80).PageCount(1000000), 1000000);
  EXPECT_EQ(PageLayout(1, 80).PageCount(4000000000U), kLargest);
}

TEST(PageLayout, PutsTwoEntriesOnTwentyLines) {
  const PageLayout layout(20, 80);
  const PageBody body(5);
  EXPECT_EQ(layout.PageCount(5), 2);
  EXPECT_EQ(body.Entries(layout, 1), (Shown{0, 1}));
  EXPECT_EQ(body.Entries(layout, 2), (Shown{2, 3}));
  EXPECT_EQ(body.Entries(layout, 3), (Shown{4}));
}

TEST(PageLayout, StartsAgainBeyondTheLastEntry) {
  const PageLayout layout(20, 80);
  EXPECT_EQ(layout.FirstEntry(1, 5), 0U);
  EXPECT_EQ(layout.FirstEntry(2, 5), 2U);
  EXPECT_EQ(layout.FirstEntry(3, 5), 4U);
  EXPECT_EQ(layout.FirstEntry(4, 5), 0U);
  EXPECT_EQ(layout.FirstEntry(3, 4), 0U);  // 4 is not below 4
  EXPECT_EQ(layout.FirstEntry(1, 0), 0U);
  EXPECT_EQ(layout.FirstEntry(kLargest, 5), 0U);
  const PageBody body(5);
  EXPECT_EQ(body.Entries(layout, 4), (Shown{0, 1}));
  EXPECT_EQ(body.Entries(layout, 100), (Shown{0, 1}));
}

TEST(PageLayout, TakesPagesBelowOneForTheFirst) {
  const PageLayout layout(20, 80);
  for (const int page : {0, -1, std::numeric_limits<int>::min()}) {
    EXPECT_EQ(layout.FirstEntry(page, 5), 0U);
  }
}

TEST(BodyLines, StartAnEntryWhileSixLinesAreLeft) {
  // Line 2 of 7 leaves five lines, line 2 of 8 leaves six.
  EXPECT_EQ(PageBody(9).Entries(PageLayout(7, 9), 1), Shown{});
  EXPECT_EQ(PageBody(9).Entries(PageLayout(8, 9), 1), (Shown{0}));
  EXPECT_EQ(PageBody(9).Entries(PageLayout(14, 9), 1), (Shown{0}));
  // The second entry starts at line 9.
  EXPECT_EQ(PageBody(9).Entries(PageLayout(15, 9), 1), (Shown{0, 1}));
  EXPECT_EQ(PageBody(9).Entries(PageLayout(21, 9), 1), (Shown{0, 1}));
  EXPECT_EQ(PageBody(9).Entries(PageLayout(22, 9), 1), (Shown{0, 1, 2}));
  EXPECT_EQ(PageBody(9).Entries(PageLayout(1000, 9), 1), (Shown{0, 1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST(BodyLines, MayEndOneLineBelowThePage) {
  // Two header lines and three entries of seven: 23 lines on a page of 22.
  EXPECT_EQ(PageBody(9).Lines(PageLayout(22, 9), 1).size() + 2, 23U);
}

// Fourteen lines are budgeted for two entries but have room for one, so every second entry never
// shows: users' printouts have always been so.
TEST(BodyLines, LeaveOutWhatTheBudgetCountsAndThePageHasNoRoomFor) {
  const PageLayout layout(14, 9);
  const PageBody body(4);
  EXPECT_EQ(layout.PageCount(4), 2);
  EXPECT_EQ(body.Entries(layout, 1), (Shown{0}));
  EXPECT_EQ(body.Entries(layout, 2), (Shown{2}));
}

TEST(BodyLines, HoldNothingWithoutEntries) {
  EXPECT_TRUE(PageBody(0).Lines(PageLayout(60, 80), 1).empty());
}

TEST(BodyLines, AreABlankLineAndTheBlockOfEachEntry) {
  RawLogEntry raw = Record(1, 33, 2, "Replaced fan 3");
  raw.severity = 15;
  raw.count = 2;
  raw.updateTime = {20, 26, 11, 20, 13, 5};
  raw.initialTime = {20, 26, 1, 2, 0, 0};
  const CEventLogEntry entry(raw);
  EXPECT_EQ(PageLayout(20, 5).BodyLines(
                1, 1, [&](std::size_t) -> const CEventLogEntry& { return entry; }),
            (std::vector<std::string>{"     ",                             //
                                      "Maintenance note: Replaced fan 3",  //
                                      "    Class          : Maintenance",  //
                                      "    Severity       : Critical",     //
                                      "    Count          : 2",            //
                                      "    Update Time    : 11/20/2026 1:05 PM",
                                      "    Initial Time   : 1/2/2026 12:00 AM"}));
}

TEST(JustifiedLine, FillsTheLineWithBlanks) {
  EXPECT_EQ(PageLayout(20, 10).JustifiedLine("abc", "xy"), "abc     xy");
  EXPECT_EQ(PageLayout(20, 6).JustifiedLine("abc", "xy"), "abc xy");
}

TEST(JustifiedLine, CountsColumnsAndNotBytes) {
  EXPECT_EQ(PageLayout(20, 10).JustifiedLine("ログ", "xy"), "ログ    xy");
  EXPECT_EQ(PageLayout(20, 10).JustifiedLine("K\xC3\xB6ln", "1"), "K\xC3\xB6ln     1");
  EXPECT_EQ(PageLayout(20, 10).JustifiedLine("K\xF6ln", "1"), "K\xF6ln     1");
}

TEST(JustifiedLine, AddsNoBlanksWhereThePageIsTooNarrow) {
  EXPECT_EQ(PageLayout(20, 5).JustifiedLine("abc", "xy"), "abcxy");  // none are left
  EXPECT_EQ(PageLayout(20, 4).JustifiedLine("abc", "xy"), "abcxy");  // less than none
  EXPECT_EQ(PageLayout(20, 0).JustifiedLine("abc", "xy"), "abcxy");
}

TEST(Rule, IsAsWideAsThePage) {
  EXPECT_EQ(PageLayout(20, 7).Rule(), "_______");
}

TEST(ReportPageHeader, HasTitlePageTimeAndRule) {
  EXPECT_EQ(
      ReportPageHeader(PageLayout(20, 50), "SRV1", "Friday, November 20, 2026 at 01:05 PM", 12),
      (std::vector<std::string>{"Korvath Quarvel Log Viewer - SRV1          Page 12",
                                "Friday, November 20, 2026 at 01:05 PM",
                                "__________________________________________________"}));
}

TEST(ReportPageHeader, RunsTogetherOnANarrowPage) {
  EXPECT_EQ(
      ReportPageHeader(PageLayout(20, 10), "SRV1", "now", 1),
      (std::vector<std::string>{"Korvath Quarvel Log Viewer - SRV1Page 1", "now", "__________"}));
}

TEST(FillNumber, ReplacesThePlaceholder) {
  EXPECT_EQ(FillNumber("Page %d", 3), "Page 3");
  EXPECT_EQ(FillNumber("%d of many", -1), "-1 of many");
  EXPECT_EQ(FillNumber("no number", 3), "no number");
}

TEST(PageLayout, StepsDownFromTheMarginByTheLineHeight) {
  PrinterMetrics metrics;
  metrics.fontHeight = 30;
  metrics.externalLeading = 4;
  metrics.verticalResolution = 3400;
  const PageLayout layout(metrics);
  EXPECT_EQ(layout.LineTop(0), 25);
  EXPECT_EQ(layout.LineTop(1), 59);
  EXPECT_EQ(layout.LineTop(10), 365);
}

}  // namespace
}  // namespace qvl
