#include "viewer/model/list_model.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/files/file_fixtures.h"
#include "tests/viewer/model/recording_control.h"

namespace qvl {
namespace {

using testing::LanguageScope;
using testing::Record;
using testing::RecordingControl;

using Calls = std::vector<std::string>;

constexpr Moment kNoon = 1795176300;

RawLogEntry Entry(std::uint32_t number, std::uint16_t eventClass, std::uint8_t severity,
                  std::uint32_t count, LogTime update) {
  RawLogEntry raw = Record(number, eventClass, 1);
  raw.severity = severity;
  raw.count = count;
  raw.updateTime = update;
  return raw;
}

// Numbers 10, 20, 30, 40 in list order.
EntryList FourEntries() {
  EntryList list;
  list.Append(Entry(10, 12, 15, 3, {20, 26, 11, 1, 0, 0}));
  list.Append(Entry(20, 15, 9, 1, {20, 26, 11, 3, 0, 0}));
  list.Append(Entry(30, 12, 2, 2, {20, 26, 11, 2, 0, 0}));
  list.Append(Entry(40, 34, 15, 4, {20, 26, 11, 3, 0, 0}));
  return list;
}

std::vector<std::uint32_t> Numbers(const ListModel& model) {
  std::vector<std::uint32_t> numbers;
  for (std::size_t row = 0; row < model.rowCount(); ++row) {
    EXPECT_EQ(model.EntryIndexAt(row) * 10 + 10, model.EntryAt(row).GetEntryNumber());
    numbers.push_back(model.EntryAt(row).GetEntryNumber());
  }
  return numbers;
}

using Expected = std::vector<std::uint32_t>;

FilterChoices ClassChoice(std::string_view text) {
  FilterChoices choices;
  choices.eventClass = text;
  return choices;
}

TEST(ListColumns, HaveHeadingsWidthsAndKeys) {
  struct Row {
    Column column;
    const char* heading;
    int width;
    const char* key;
  };
  constexpr Row kRows[] = {
      {Column::kDescription, "Description",  365, "Description"},
      {Column::kClass,       "Class",        115, "Class"      },
      {Column::kSeverity,    "Severity",     80,  "Severity"   },
      {Column::kCount,       "Count",        45,  "Count"      },
      {Column::kUpdateTime,  "Update Time",  110, "Update"     },
      {Column::kInitialTime, "Initial Time", 110, "Initial"    },
  };
  ASSERT_EQ(ListColumns().size(), std::size(kRows));
  for (std::size_t i = 0; i < std::size(kRows); ++i) {
    const ListColumn& column = ListColumns()[i];
    EXPECT_EQ(column.column, kRows[i].column);
    EXPECT_EQ(static_cast<std::size_t>(column.column), i);
    EXPECT_EQ(GetString(column.heading, Language::kEnglish), kRows[i].heading);
    EXPECT_EQ(static_cast<int>(column.heading), 61268 + static_cast<int>(i));
    EXPECT_EQ(column.defaultWidth, kRows[i].width);
    EXPECT_STREQ(column.settingsKey, kRows[i].key);
  }
}

TEST(CreateColumns, SetsReportModeAndInsertsTheColumns) {
  RecordingControl control;
  CreateColumns(control, {365, 1, 80, 45, 222, 110});
  EXPECT_EQ(control.calls(), (Calls{"report mode", "column 0 Description 365", "column 1 Class 1",
                                    "column 2 Severity 80", "column 3 Count 45",
                                    "column 4 Update Time 222", "column 5 Initial Time 110"}));
}

TEST(CreateColumns, TakesTheHeadingsOfTheLanguage) {
  const LanguageScope language(Language::kJapanese);
  RecordingControl control;
  CreateColumns(control, {1, 2, 3, 4, 5, 6});
  ASSERT_EQ(control.calls().size(), 7U);
  EXPECT_EQ(
      control.calls()[2],
      "column 1 " + std::string(GetString(StringId::kColumnClass, Language::kJapanese)) + " 2");
}

TEST(FillControl, HandsOverAllRowsAndSelectsTheFirst) {
  const EntryList list = FourEntries();
  ListModel model(list);
  model.Refill(kNoon);
  RecordingControl control;
  FillControl(control, model);
  EXPECT_EQ(control.calls(), (Calls{"delete all rows", "insert 4 rows", "select row 0"}));
  FillControl(control, model);
  EXPECT_EQ(control.RowCount(), 4U);
}

TEST(FillControl, HandsOverTheRowsOfTheFilter) {
  const EntryList list = FourEntries();
  ListModel model(list);
  model.SetFilter(ClassChoice("UPS"));
  model.Refill(kNoon);
  RecordingControl control;
  FillControl(control, model);
  EXPECT_EQ(control.calls(), (Calls{"delete all rows", "insert 2 rows", "select row 0"}));
}

TEST(FillControl, SelectsNothingInAnEmptyList) {
  const EntryList list = FourEntries();
  ListModel model(list);
  model.SetFilter(ClassChoice("CPU"));
  model.Refill(kNoon);
  RecordingControl control;
  control.InsertRows(5);
  FillControl(control, model);
  EXPECT_EQ(control.RowCount(), 0U);
  for (const std::string& call : control.calls()) EXPECT_FALSE(call.starts_with("select")) << call;

  const EntryList none;
  ListModel empty(none);
  empty.Refill(kNoon);
  RecordingControl emptyControl;
  FillControl(emptyControl, empty);
  EXPECT_EQ(emptyControl.RowCount(), 0U);
  for (const std::string& call : emptyControl.calls()) EXPECT_FALSE(call.starts_with("select"));
}

TEST(ListModel, ShowsTheLatestUpdateFirst) {
  const EntryList list = FourEntries();
  ListModel model(list);
  EXPECT_EQ(model.rowCount(), 0U);
  model.Refill(kNoon);
  EXPECT_EQ(model.sort(), (SortState{Column::kUpdateTime, false}));
  // Of two entries with the same time the later number stands first: the tie is turned too.
  EXPECT_EQ(Numbers(model), (Expected{40, 20, 30, 10}));
}

TEST(ListModel, SortsAscendingAtTheFirstClickAndTurnsAtTheSecond) {
  const EntryList list = FourEntries();
  ListModel model(list);
  model.Refill(kNoon);
  model.ClickHeader(Column::kCount);
  EXPECT_EQ(model.sort(), (SortState{Column::kCount, true}));
  EXPECT_EQ(Numbers(model), (Expected{20, 30, 10, 40}));
  model.ClickHeader(Column::kCount);
  EXPECT_EQ(model.sort(), (SortState{Column::kCount, false}));
  EXPECT_EQ(Numbers(model), (Expected{40, 10, 30, 20}));
  model.ClickHeader(Column::kCount);
  EXPECT_EQ(model.sort(), (SortState{Column::kCount, true}));
  // Another column begins ascending, whatever the direction was.
  model.ClickHeader(Column::kCount);
  model.ClickHeader(Column::kClass);
  EXPECT_EQ(model.sort(), (SortState{Column::kClass, true}));
  EXPECT_EQ(Numbers(model), (Expected{20, 40, 10, 30}));
}

TEST(ListModel, TurnsTheDefaultSortAtAClickOnItsColumn) {
  const EntryList list = FourEntries();
  ListModel model(list);
  model.Refill(kNoon);
  model.ClickHeader(Column::kUpdateTime);
  EXPECT_EQ(model.sort(), (SortState{Column::kUpdateTime, true}));
  EXPECT_EQ(Numbers(model), (Expected{10, 30, 20, 40}));
}

TEST(ListModel, KeepsTheSortWhenItIsRefilled) {
  EntryList list = FourEntries();
  ListModel model(list);
  model.Refill(kNoon);
  model.ClickHeader(Column::kCount);
  model.ClickHeader(Column::kCount);
  list.Append(Entry(50, 12, 15, 9, {}));
  EXPECT_EQ(model.rowCount(), 4U);
  model.Refill(kNoon);
  EXPECT_EQ(model.sort(), (SortState{Column::kCount, false}));
  EXPECT_EQ(Numbers(model), (Expected{50, 40, 10, 30, 20}));
}

TEST(ListModel, SortsOnlyWhatTheFilterKeeps) {
  const EntryList list = FourEntries();
  ListModel model(list);
  model.SetFilter(ClassChoice("UPS"));
  EXPECT_EQ(model.filter(), ClassChoice("UPS"));
  model.Refill(kNoon);
  EXPECT_EQ(Numbers(model), (Expected{30, 10}));
  model.ClickHeader(Column::kUpdateTime);
  EXPECT_EQ(Numbers(model), (Expected{10, 30}));
  model.ClickHeader(Column::kSeverity);
  EXPECT_EQ(Numbers(model), (Expected{30, 10}));
}

// Four entries with equal keys and numbers keep the order of the list, whatever was sorted before.
TEST(ListModel, SortsFromTheOrderOfTheListEachTime) {
  EntryList list;
  for (const std::uint32_t count : {4U, 2U, 3U, 1U}) list.Append(Entry(5, 12, 15, count, {}));
  ListModel model(list);
  model.Refill(kNoon);
  model.ClickHeader(Column::kCount);
  ASSERT_EQ(model.EntryIndexAt(0), 3U);
  model.ClickHeader(Column::kSeverity);
  for (EntryIndex row = 0; row < 4; ++row) EXPECT_EQ(model.EntryIndexAt(row), row);
}

TEST(ListModel, CountsTimeCriteriaFromTheClockGiven) {
  EntryList list;
  list.Append(Entry(10, 12, 15, 1, {20, 26, 11, 20, 0, 0}));
  ListModel model(list);
  FilterChoices choices;
  choices.updateTime = "Since Yesterday";
  model.SetFilter(choices);
  Moment now = 0;
  ASSERT_TRUE(ToMoment({2026, 11, 21, 0, 0, 0}, now));
  model.Refill(now);
  EXPECT_EQ(model.rowCount(), 1U);
  model.Refill(now + 60);
  EXPECT_EQ(model.rowCount(), 0U);
}

TEST(ListModel, ResetsFilterAndSort) {
  const EntryList list = FourEntries();
  ListModel model(list);
  FilterChoices choices = ClassChoice("UPS");
  choices.severity = "Critical";
  choices.updateTime = "Since Yesterday";
  choices.initialTime = "Since Last Week";
  model.SetFilter(choices);
  model.SetSort({Column::kDescription, true});
  model.Reset();
  EXPECT_EQ(model.filter(), FilterChoices());
  EXPECT_FALSE(model.filter().IsActive());
  EXPECT_EQ(model.sort(), (SortState{Column::kUpdateTime, false}));
  model.Refill(kNoon);
  EXPECT_EQ(Numbers(model), (Expected{40, 20, 30, 10}));
}

TEST(ListModel, TakesASortThatWasRemembered) {
  const EntryList list = FourEntries();
  ListModel model(list);
  model.SetSort({Column::kEntryNumber, true});
  model.Refill(kNoon);
  EXPECT_EQ(Numbers(model), (Expected{10, 20, 30, 40}));
}

TEST(ListModel, GivesTheTextOfEveryCell) {
  EntryList list;
  RawLogEntry raw = Record(1, 33, 2, "Replaced fan 3");
  raw.severity = 9;
  raw.count = 0xFFFFFFFEU;
  raw.updateTime = {20, 26, 11, 20, 13, 5};
  raw.initialTime = {20, 26, 13, 1, 24, 0};
  list.Append(raw);
  ListModel model(list);
  model.Refill(kNoon);
  EXPECT_EQ(model.Cell(0, 0).text, "Maintenance note: Replaced fan 3");
  EXPECT_EQ(model.Cell(0, 1).text, "Maintenance");
  EXPECT_EQ(model.Cell(0, 2).text, "Caution");
  EXPECT_EQ(model.Cell(0, 3).text, "-2");
  EXPECT_EQ(model.Cell(0, 4).text, "11/20/2026 1:05 PM");
  EXPECT_EQ(model.Cell(0, 5).text, "Invalid: 13/1/2026 Invalid: 24:0");
  EXPECT_EQ(model.Cell(0, 0).image, 1);
  for (int column = 1; column < 6; ++column) EXPECT_EQ(model.Cell(0, column).image, -1);
}

TEST(ListModel, LeavesTheCellsOfWhatHasNoNameEmpty) {
  EntryList list;
  list.Append(Entry(1, 16, 7, 0, {}));
  ListModel model(list);
  model.Refill(kNoon);
  EXPECT_EQ(model.Cell(0, 0).text, "Unknown Event (Class 16, Code 1)");
  EXPECT_EQ(model.Cell(0, 1).text, "");
  EXPECT_EQ(model.Cell(0, 2).text, "");
  EXPECT_EQ(model.Cell(0, 3).text, "0");
}

TEST(ListModel, GivesThePictureOfTheSeverity) {
  EntryList list;
  for (int severity = 0; severity < 256; ++severity) {
    list.Append(Entry(1, 12, static_cast<std::uint8_t>(severity), 1, {}));
  }
  ListModel model(list);
  model.SetSort({Column::kSeverity, true});
  model.Refill(kNoon);
  for (std::size_t severity = 0; severity < 256; ++severity) {
    const int expected = severity == 15 ? 0 : severity == 9 ? 1 : severity == 6 ? 2 : 3;
    EXPECT_EQ(model.Cell(severity, 0).image, expected) << severity;
  }
}

TEST(ListModel, AStretchOfTimeNarrowsTheFilter) {
  const EntryList list = FourEntries();
  ListModel model(list);
  const std::optional<WallMinute> first = MinuteOf({20, 26, 11, 2, 0, 0});
  const std::optional<WallMinute> last = MinuteOf({20, 26, 11, 3, 0, 0});
  ASSERT_TRUE(first && last);
  model.SetTimeRange(TimeRange{*first, *last});
  model.Refill(kNoon);
  EXPECT_TRUE(model.IsFiltered());
  EXPECT_FALSE(model.filter().IsActive());
  EXPECT_EQ(Numbers(model), (std::vector<std::uint32_t>{40, 20, 30}));

  FilterChoices choices;
  choices.eventClass = "UPS";
  model.SetFilter(choices);
  model.Refill(kNoon);
  EXPECT_EQ(Numbers(model), std::vector<std::uint32_t>{30});

  model.Reset();
  model.Refill(kNoon);
  EXPECT_FALSE(model.IsFiltered());
  EXPECT_EQ(model.rowCount(), 4U);
}

}  // namespace
}  // namespace qvl
