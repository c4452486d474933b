#include "viewer/model/list_texts.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/files/file_fixtures.h"
#include "tests/viewer/model/recording_control.h"
#include "viewer/model/row_search.h"

namespace qvl {
namespace {

using testing::LanguageScope;
using testing::Record;
using testing::RecordingControl;

constexpr Moment kNow = 1795176300;

// A maintenance note shows its text as its description.
RawLogEntry NoteEntry(std::uint32_t number, std::string_view text) {
  RawLogEntry raw = Record(number, 33, 1, text);
  raw.updateTime = {20, 26, 11, 20, 13, 5};
  raw.initialTime = {20, 26, 11, 20, 13, 5};
  return raw;
}

class ListTextsTest : public ::testing::Test {
 protected:
  void Fill(const std::vector<RawLogEntry>& records) {
    for (const RawLogEntry& raw : records) list_.Append(raw);
    model_.SetSort({Column::kEntryNumber, true});
    model_.Refill(kNow);
    FillControl(control_, model_);
  }
  std::optional<std::size_t> Search(std::string_view text, std::size_t start = 0,
                                    SearchDirection direction = SearchDirection::kForward) {
    RowSearch search(model_, std::string(text), start, direction);
    const SearchState state = search.Continue(model_.rowCount() + 1);
    EXPECT_NE(state, SearchState::kSearching);
    return state == SearchState::kFound ? std::optional<std::size_t>(search.row()) : std::nullopt;
  }

  EntryList list_;
  ListModel model_{list_};
  RecordingControl control_;
};

TEST_F(ListTextsTest, NothingSelectedCopiesNothing) {
  Fill({NoteEntry(1, "x")});
  control_.Click({}, 0);
  EXPECT_EQ(SelectedRowsText(control_, model_, "\n"), "");
}

TEST_F(ListTextsTest, CellsOfACopyHoldNoTabsAndNoLineEnds) {
  Fill({NoteEntry(1, "a\tb\r\nc")});
  const std::string text = SelectedRowsText(control_, model_, "\r\n");
  const std::string row = text.substr(text.find('\n') + 1);
  EXPECT_NE(row.find("a b  c"), std::string::npos) << row;
  EXPECT_EQ(std::count(row.begin(), row.end(), '\t'), 5);
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 2);
  EXPECT_EQ(text.substr(text.size() - 2), "\r\n");
}

TEST_F(ListTextsTest, EmptyCellsKeepTheirTabs) {
  RawLogEntry raw{};
  raw.eventClass = 16;
  Fill({raw});
  const std::string text = SelectedRowsText(control_, model_, "\n");
  EXPECT_EQ(text.substr(text.find('\n') + 1),
            "Unknown Event (Class 16, Code 0)\t\t\t0\tInvalid: 0/0/0 12:00 AM\t"
            "Invalid: 0/0/0 12:00 AM\n");
}

TEST_F(ListTextsTest, CopiesSpeakTheUsersLanguage) {
  const LanguageScope language(Language::kJapanese);
  list_.Append(NoteEntry(1, "x"));
  ListModel model(list_);
  model.Refill(kNow);
  FillControl(control_, model);
  const std::string text = SelectedRowsText(control_, model, "\n");
  EXPECT_EQ(text.substr(0, text.find('\n')), "説明\tクラス\t重大度\t回数\t更新日時\t初回日時");
}

TEST_F(ListTextsTest, WindowsTextsOfEarlierDaysAreReadAsTheirCodePage) {
  Fill({NoteEntry(1, "B\xFCro")});
  EXPECT_NE(CellText(model_, 0, Column::kDescription).find("B\xC3\xBCro"), std::string::npos);
  EXPECT_EQ(Search("b\xC3\xBCro"), 0U);
}

TEST_F(ListTextsTest, SearchesEveryColumn) {
  Fill({NoteEntry(1, "first"), NoteEntry(2, "second")});
  EXPECT_EQ(Search("SECOND"), 1U);
  EXPECT_EQ(Search("maintenance"), 0U);
  EXPECT_EQ(Search("1:05 pm"), 0U);
  EXPECT_EQ(Search("nowhere"), std::nullopt);
  EXPECT_EQ(Search(""), std::nullopt);
}

TEST_F(ListTextsTest, SearchesRoundOverBothEnds) {
  Fill({NoteEntry(1, "apple"), NoteEntry(2, "pear"), NoteEntry(3, "apple"), NoteEntry(4, "plum")});
  EXPECT_EQ(Search("apple", 1), 2U);
  EXPECT_EQ(Search("apple", 3), 0U);
  EXPECT_EQ(Search("apple", 4), 0U);
  EXPECT_EQ(Search("apple", 1, SearchDirection::kBackward), 0U);
  EXPECT_EQ(Search("plum", 1, SearchDirection::kBackward), 3U);
}

TEST_F(ListTextsTest, SearchingNoRowsFindsNothing) {
  Fill({});
  EXPECT_EQ(Search("x"), std::nullopt);
  EXPECT_EQ(Search("x", 7, SearchDirection::kBackward), std::nullopt);
}

TEST(EntryFields, TellEveryFieldAndTheNumbersBehindTheNames) {
  RawLogEntry raw = NoteEntry(77, "fan");
  raw.severity = 15;
  raw.count = 0xFFFFFFFF;
  std::string lines;
  for (const EntryField& field : EntryFields(CEventLogEntry(raw))) {
    lines += field.label + ": " + field.value + "\n";
  }
  EXPECT_EQ(lines.substr(lines.find("Class:")),
            "Class: Maintenance (33)\n"
            "Code: 1\n"
            "Severity: Critical (15)\n"
            "Count: -1\n"
            "Update Time: 11/20/2026 1:05 PM\n"
            "Initial Time: 11/20/2026 1:05 PM\n"
            "Entry Number: 77\n");
  EXPECT_EQ(lines.substr(0, 13), "Description: ");
}

TEST(EntryFields, GiveTheNumberAloneWhereThereIsNoName) {
  RawLogEntry raw{};
  raw.eventClass = 16;
  raw.severity = 7;
  const std::vector<EntryField> fields = EntryFields(CEventLogEntry(raw));
  EXPECT_EQ(fields[1].value, "16");
  EXPECT_EQ(fields[3].value, "7");
}

TEST(DataDump, ShowsBytesBesideTheirText) {
  RawLogEntry raw = Record(1, 33, 1, "0123456789abcdefXY\x7F~ ");
  raw.data[227] = 0xFF;
  const std::string dump = DataDump(CEventLogEntry(raw));
  EXPECT_EQ(dump.substr(0, dump.find('\n')),
            "00  30 31 32 33 34 35 36 37 38 39 61 62 63 64 65 66  0123456789abcdef");
  EXPECT_EQ(dump.substr(dump.find('\n') + 1, 69),
            "10  58 59 7f 7e 20 00 00 00 00 00 00 00 00 00 00 00  XY.~ ...........");
  EXPECT_EQ(std::count(dump.begin(), dump.end(), '\n'), 15);
  EXPECT_EQ(dump.substr(dump.rfind('\n', dump.size() - 2) + 1),
            "e0  00 00 00 ff                                      ....\n");
}

TEST(DataDump, TakesFewerBytesALineWhereThereIsLittleRoom) {
  const std::string dump = DataDump(CEventLogEntry(Record(1, 33, 1, "0123456789")), 8);
  EXPECT_EQ(dump.substr(0, dump.find('\n')), "00  30 31 32 33 34 35 36 37  01234567");
  EXPECT_EQ(dump.find('\n'), DataDumpWidth(8));
  EXPECT_EQ(std::count(dump.begin(), dump.end(), '\n'), 29);
  EXPECT_EQ(DataDump(CEventLogEntry(Record(1, 33, 1, ""))).find('\n'), DataDumpWidth(16));
}

}  // namespace
}  // namespace qvl
