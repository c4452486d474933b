#include "viewer/model/viewer_settings.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/viewer/model/fake_viewer.h"

namespace qvl {
namespace {

using testing::LanguageScope;
using testing::MemorySettings;
using testing::RecordingControl;

using Names = std::vector<std::string>;

const std::string kKey = "Software\\Zelkor\\Quarvel Log Viewer";
const std::string kMachines = kKey + "\\MRU";

TEST(ColumnWidths, AreTheDefaultsUntilOneIsRemembered) {
  MemorySettings settings;
  EXPECT_EQ(LoadColumnWidths(settings),
            (std::array<int, kNumberOfColumns>{365, 115, 80, 45, 110, 110}));
  settings.SetNumber(kKey + "\\Update", "width", 200);
  settings.SetNumber(kKey + "\\Initial", "Width", 200);
  settings.SetNumber(kKey + "\\Class", "width", 0xFFFFFFFF);
  settings.SetNumber(kKey + "\\Count", "width", 0);
  EXPECT_EQ(LoadColumnWidths(settings),
            (std::array<int, kNumberOfColumns>{365, 115, 80, 0, 200, 110}));
}

TEST(ColumnWidths, AreStoredUnderTheirColumns) {
  MemorySettings settings;
  RecordingControl control;
  for (std::size_t i = 0; i < 6; ++i) control.SetColumnWidth(i, static_cast<int>(100 + i));
  SaveColumnWidths(settings, control);
  EXPECT_EQ(settings.numbers, (std::map<std::string, std::uint32_t>{
                                  {kKey + "\\Description|width", 100},
                                  {kKey + "\\Class|width",       101},
                                  {kKey + "\\Severity|width",    102},
                                  {kKey + "\\Count|width",       103},
                                  {kKey + "\\Update|width",      104},
                                  {kKey + "\\Initial|width",     105}
  }));
}

TEST(MachineNames, EndAtTheFirstMissingNumber) {
  MemorySettings settings;
  EXPECT_EQ(LoadMachineNames(settings), Names());
  settings.SetText(kMachines, "0", "A");
  settings.SetText(kMachines, "1", "B");
  settings.SetText(kMachines, "3", "D");
  EXPECT_EQ(LoadMachineNames(settings), (Names{"A", "B"}));
}

// It can be read, so the list goes on behind it.
TEST(MachineNames, DoNotEndAtAnEmptyText) {
  MemorySettings settings;
  settings.SetText(kMachines, "0", "");
  settings.SetText(kMachines, "1", "B");
  EXPECT_EQ(LoadMachineNames(settings), (Names{"", "B"}));
}

TEST(MachineNames, EndAtATextThatIsNoName) {
  MemorySettings settings;
  settings.SetText(kMachines, "0", std::string(259, 'a'));
  settings.SetText(kMachines, "1", std::string(260, 'b'));
  settings.SetText(kMachines, "2", "C");
  EXPECT_EQ(LoadMachineNames(settings), Names{std::string(259, 'a')});
}

TEST(MachineNames, AreAtMostTen) {
  MemorySettings settings;
  for (int i = 0; i < 12; ++i) settings.SetText(kMachines, std::to_string(i), "M");
  EXPECT_EQ(LoadMachineNames(settings).size(), 10U);
}

TEST(MachineNames, LeaveHigherNumbersOfEarlierRunsAlone) {
  MemorySettings settings;
  settings.SetText(kMachines, "0", "OLD0");
  settings.SetText(kMachines, "2", "OLD2");
  SaveMachineNames(settings, {"A", "B"});
  EXPECT_EQ(settings.texts,
            (std::map<std::string, std::string>{
                {kMachines + "|0", "A"   },
                {kMachines + "|1", "B"   },
                {kMachines + "|2", "OLD2"}
  }));
}

constexpr WindowPlacement kCurrent = {1, 2, 3, 4, 1, 0};

TEST(Placement, OfAFirstRunIsCentredAndNoLargerThan740By540) {
  const MemorySettings settings;
  EXPECT_EQ(LoadPlacement(settings, kCurrent, {1920, 1040}),
            (WindowPlacement{590, 250, 1330, 790, 1, 0}));
  EXPECT_EQ(LoadPlacement(settings, kCurrent, {800, 600}),
            (WindowPlacement{30, 30, 770, 570, 1, 0}));
  EXPECT_EQ(LoadPlacement(settings, kCurrent, {641, 481}),
            (WindowPlacement{30, 30, 611, 451, 1, 0}));
}

TEST(Placement, TakesWhatIsRememberedAndKeepsTheRest) {
  MemorySettings settings;
  settings.SetNumber(kKey, "top", 77);
  settings.SetNumber(kKey, "left", static_cast<std::uint32_t>(-5));
  settings.SetNumber(kKey, "state", 3);
  EXPECT_EQ(LoadPlacement(settings, kCurrent, {1920, 1040}), (WindowPlacement{-5, 77, 3, 4, 3, 0}));
}

TEST(Placement, NeedsOnlyTheKeyToCountAsALaterRun) {
  MemorySettings settings;
  settings.SetNumber(kKey + "\\Class", "width", 9);
  EXPECT_EQ(LoadPlacement(settings, kCurrent, {1920, 1040}), kCurrent);
}

TEST(Placement, IsStoredAsSixNumbers) {
  MemorySettings settings;
  SavePlacement(settings, {-1, 2, 3, 4, 2, 7});
  EXPECT_EQ(settings.numbers, (std::map<std::string, std::uint32_t>{
                                  {kKey + "|left",   0xFFFFFFFF},
                                  {kKey + "|top",    2         },
                                  {kKey + "|right",  3         },
                                  {kKey + "|bottom", 4         },
                                  {kKey + "|state",  2         },
                                  {kKey + "|flags",  7         }
  }));
}

TEST(FilterSettings, ComeBackAsTheyWere) {
  MemorySettings settings;
  EXPECT_EQ(LoadFilterChoices(settings), FilterChoices());
  FilterChoices choices;
  choices.eventClass = "CPU";
  choices.severity = "Critical";
  choices.updateTime = "Since Last Week";
  choices.initialTime = "Since Last Year";
  SaveFilterChoices(settings, choices);
  EXPECT_EQ(settings.numbers[kKey + "\\Filter|active"], 1U);
  EXPECT_EQ(LoadFilterChoices(settings), choices);
  SaveFilterChoices(settings, FilterChoices());
  EXPECT_EQ(settings.numbers[kKey + "\\Filter|active"], 0U);
  EXPECT_EQ(LoadFilterChoices(settings), FilterChoices());
}

TEST(FilterSettings, OfATextThatIsNoLongerOfferedAreTheNearestOrAll) {
  MemorySettings settings;
  settings.SetNumber(kKey + "\\Filter", "active", 1);
  settings.SetText(kKey + "\\Filter", "class", "power");
  settings.SetText(kKey + "\\Filter", "severity", "Fatal");
  const FilterChoices choices = LoadFilterChoices(settings);
  EXPECT_EQ(choices.eventClass, "Power Subsystem");
  EXPECT_EQ(choices.severity, "(All)");
  EXPECT_EQ(choices.updateTime, "(All)");
}

TEST(FilterSettings, OfAnotherLanguageRestrictNothing) {
  MemorySettings settings;
  FilterChoices choices;
  choices.severity = "Critical";
  SaveFilterChoices(settings, choices);
  const LanguageScope language(Language::kJapanese);
  EXPECT_EQ(LoadFilterChoices(settings), FilterChoices());
}

}  // namespace
}  // namespace qvl
