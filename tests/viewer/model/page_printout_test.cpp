#include "viewer/model/page_printout.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/files/file_fixtures.h"

namespace qvl {
namespace {

using testing::Record;

constexpr Moment kNoon = 1795176300;

using Lines = std::vector<std::string>;

// Entries numbered 0 to `count` - 1 in list order, which read their number.
EntryList Numbered(std::uint32_t count) {
  EntryList list;
  for (std::uint32_t i = 0; i < count; ++i) {
    RawLogEntry raw = Record(i, i % 2 == 0 ? 12 : 15, static_cast<std::uint16_t>(i));
    raw.severity = 15;
    raw.count = 2;
    raw.updateTime = {20, 26, 11, 20, 13, 5};
    raw.initialTime = {20, 26, 1, 2, 0, 0};
    list.Append(raw);
  }
  return list;
}

// The descriptions on a page, by the order of the lines.
Lines Descriptions(const PageLayout& layout, const ListModel& model, int page) {
  const Lines lines = PrintoutPage(layout, model, "SRV1", page);
  Lines descriptions;
  for (std::size_t i = 3; i < lines.size(); i += 7) descriptions.push_back(lines[i]);
  return descriptions;
}

TEST(PrintoutPage, HasHeaderRuleAndTheBlocksOfTheRows) {
  const EntryList list = Numbered(1);
  ListModel model(list);
  model.Refill(kNoon);
  EXPECT_EQ(
      PrintoutPage(PageLayout(20, 40), model, "SRV1", 1),
      (Lines{"Korvath Quarvel Log - SRV1        Page 1", "________________________________________",
             "                                        ",
             "Unknown Event (Class 12, Code 0)",  //
             "    Class          : UPS",          //
             "    Severity       : Critical",     //
             "    Count          : 2",            //
             "    Update Time    : 11/20/2026 1:05 PM", "    Initial Time   : 1/2/2026 12:00 AM"}));
}

TEST(PrintoutPage, AddsNoBlanksToTheHeaderOfANarrowPage) {
  const EntryList list;
  ListModel model(list);
  model.Refill(kNoon);
  EXPECT_EQ(PrintoutPage(PageLayout(20, 32), model, "SRV1", 1),
            (Lines{"Korvath Quarvel Log - SRV1Page 1", std::string(32, '_')}));
  EXPECT_EQ(PrintoutPage(PageLayout(20, 5), model, "SRV1", 1),
            (Lines{"Korvath Quarvel Log - SRV1Page 1", "_____"}));
  EXPECT_EQ(PrintoutPage(PageLayout(20, 33), model, "SRV1", 1)[0],
            "Korvath Quarvel Log - SRV1 Page 1");
}

TEST(PrintoutPage, PrintsTheHeaderAloneForAListWithoutRows) {
  const EntryList list = Numbered(5);
  ListModel model(list);
  FilterChoices choices;
  choices.eventClass = "CPU";
  model.SetFilter(choices);
  model.Refill(kNoon);
  const PageLayout layout(20, 40);
  EXPECT_EQ(PrintoutPageCount(layout, model), 1);
  EXPECT_EQ(PrintoutPage(layout, model, "old.qvx", 1).size(), 2U);
  EXPECT_EQ(PrintoutPage(layout, model, "old.qvx", 1)[0],
            "Korvath Quarvel Log - old.qvx     Page 1");
}

TEST(PrintoutPage, PrintsTheRowsAsFilteredAndSorted) {
  const EntryList list = Numbered(7);
  ListModel model(list);
  FilterChoices choices;
  choices.eventClass = "UPS";
  model.SetFilter(choices);
  model.SetSort({Column::kEntryNumber, false});
  model.Refill(kNoon);
  const PageLayout layout(20, 40);
  EXPECT_EQ(PrintoutPageCount(layout, model), 2);  // 28 of 20 lines
  EXPECT_EQ(Descriptions(layout, model, 1),
            (Lines{"Unknown Event (Class 12, Code 6)", "Unknown Event (Class 12, Code 4)"}));
  EXPECT_EQ(Descriptions(layout, model, 2),
            (Lines{"Unknown Event (Class 12, Code 2)", "Unknown Event (Class 12, Code 0)"}));
}

TEST(PrintoutPage, StartsAgainBeyondTheLastRow) {
  const EntryList list = Numbered(3);
  ListModel model(list);
  model.SetSort({Column::kEntryNumber, true});
  model.Refill(kNoon);
  const PageLayout layout(20, 40);
  const Lines first = Descriptions(layout, model, 1);
  EXPECT_EQ(first, (Lines{"Unknown Event (Class 12, Code 0)", "Unknown Event (Class 15, Code 1)"}));
  EXPECT_EQ(Descriptions(layout, model, 2), (Lines{"Unknown Event (Class 12, Code 2)"}));
  EXPECT_EQ(Descriptions(layout, model, 3), first);
  EXPECT_EQ(PrintoutPage(layout, model, "SRV1", 3)[0], "Korvath Quarvel Log - SRV1        Page 3");
}

TEST(PrintoutPageCount, CountsSevenLinesARowRoundedUp) {
  const PageLayout layout(20, 40);
  for (const std::uint32_t rows : {0U, 1U, 2U, 3U, 5U, 6U, 20U, 21U, 1000U}) {
    const EntryList list = Numbered(rows);
    ListModel model(list);
    model.Refill(kNoon);
    const int expected = rows == 0 ? 1 : static_cast<int>((7 * rows + 19) / 20);
    EXPECT_EQ(PrintoutPageCount(layout, model), expected) << rows;
  }
}

}  // namespace
}  // namespace qvl
