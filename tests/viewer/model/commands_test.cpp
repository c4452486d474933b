#include "viewer/model/commands.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "tests/files/file_fixtures.h"

namespace qvl {
namespace {

using testing::LanguageScope;

constexpr Language kLanguages[] = {Language::kEnglish, Language::kJapanese};

std::vector<std::string> Texts(const Menu& menu) {
  std::vector<std::string> texts;
  for (const MenuItem& item : menu.items) texts.emplace_back(GetString(item.text));
  return texts;
}

TEST(Menus, HoldTheCommandsThatUsersKnow) {
  ASSERT_EQ(MenuBar().size(), 3U);
  EXPECT_EQ(GetString(MenuBar()[0].title), "&Log");
  EXPECT_EQ(Texts(MenuBar()[0]),
            (std::vector<std::string>{"&Browse for Machine...\tAlt+B", "&Open Log File...\tCtrl+O",
                                      "S&ave Log as...\tCtrl+S", "&Export Log...\tCtrl+E",
                                      "Print Pre&view ", "&Print...\tCtrl+P",
                                      "&Clear All Entries...\tCtrl+L", "&Mark Repaired\tCtrl+R",
                                      "Add Maintenance &Note...\tCtrl+M", "E&xit"}));
  EXPECT_EQ(GetString(MenuBar()[1].title), "&View");
  const std::vector<std::string> view = Texts(MenuBar()[1]);
  EXPECT_EQ(
      std::vector<std::string>(view.begin(), view.begin() + 3),
      (std::vector<std::string>{"&All Entries\tCtrl+A", "&Filter...\tCtrl+F", "&Refresh\tF5"}));
  EXPECT_EQ(GetString(MenuBar()[2].title), "&Help");
  EXPECT_EQ(Texts(MenuBar()[2]), (std::vector<std::string>{"Help &Topics", "&About..."}));
}

TEST(Menus, LeaveTheKeyOfTheHelpToNoMenu) {
  for (const Accelerator& accelerator : ExtraAccelerators()) {
    if (accelerator.keys != "F1") continue;
    EXPECT_EQ(accelerator.command, Command::kHelpTopics);
    return;
  }
  FAIL() << "no F1";
}

TEST(Menus, OfferMarkingAloneOnARightClick) {
  ASSERT_EQ(ContextMenu().size(), 1U);
  EXPECT_EQ(ContextMenu()[0].command, Command::kMarkRepaired);
  EXPECT_EQ(GetString(ContextMenu()[0].text), "Mark Repaired");
}

// Letters that are in both languages the same hand movements, and one command each.
TEST(Menus, HaveUniqueMnemonicsInEveryLanguage) {
  for (const Language language : kLanguages) {
    const LanguageScope scope(language);
    std::set<char> titles;
    for (const Menu& menu : MenuBar()) {
      EXPECT_TRUE(titles.insert(MnemonicOf(GetString(menu.title))).second);
      std::set<char> letters;
      for (const MenuItem& item : menu.items) {
        const std::string_view label = SplitMenuText(GetString(item.text)).label;
        const char letter = MnemonicOf(label);
        EXPECT_TRUE(letter >= 'a' && letter <= 'z') << label;
        EXPECT_TRUE(letters.insert(letter).second) << label;
      }
    }
  }
}

TEST(Menus, HaveTheSameLettersAndKeysInEveryLanguage) {
  for (const Menu& menu : MenuBar()) {
    for (const MenuItem& item : menu.items) {
      const MenuText english = SplitMenuText(GetString(item.text, Language::kEnglish));
      const MenuText japanese = SplitMenuText(GetString(item.text, Language::kJapanese));
      EXPECT_EQ(english.keys, japanese.keys);
      EXPECT_EQ(MnemonicOf(english.label), MnemonicOf(japanese.label)) << english.label;
    }
  }
}

TEST(Menus, ShareNoKeyBetweenCommands) {
  std::map<std::string, int> keys;
  std::set<Command> commands;
  for (const Menu& menu : MenuBar()) {
    for (const MenuItem& item : menu.items) {
      EXPECT_TRUE(commands.insert(item.command).second);
      const std::string_view bound = SplitMenuText(GetString(item.text)).keys;
      if (!bound.empty()) ++keys[std::string(bound)];
    }
  }
  for (const Accelerator& accelerator : ExtraAccelerators()) ++keys[std::string(accelerator.keys)];
  // The letters of the menu bar open menus.
  for (const Menu& menu : MenuBar()) {
    std::string alt = "Alt+";
    alt += static_cast<char>(MnemonicOf(GetString(menu.title)) - 'a' + 'A');
    ++keys[alt];
  }
  for (const auto& [key, count] : keys) EXPECT_EQ(count, 1) << key;
  EXPECT_EQ(keys.count("F1"), 1U);
  EXPECT_EQ(keys.count("Alt+R"), 1U);
  EXPECT_EQ(keys.count("Alt+M"), 1U);
  EXPECT_EQ(keys.count("Shift+Tab"), 1U);
}

// The texts of one dialog or bar, whose letters must differ.
TEST(Dialogs, HaveUniqueMnemonicsInEveryLanguage) {
  using enum StringId;
  using Texts = std::vector<StringId>;
  const Texts filter = {kFilterClass, kFilterSeverity, kFilterUpdateTime, kFilterInitialTime,
                        kFilterReset};
  const Texts clear = {kClearButton, kClearSaveButton, kClearExportButton, kClearPrintButton};
  const Texts tail = {kReplaceFile, kSaveOver};
  const Texts find = {kFindLabel, kFindNextButton, kFindPreviousButton};
  const Texts window = {kMachineLabel, kBrowseButton, kRefreshButton,
                        kMenuLog,      kMenuView,     kMenuHelp};
  for (const Language language : kLanguages) {
    for (const Texts& texts : {filter, clear, tail, find, window}) {
      std::set<char> letters;
      for (const StringId text : texts) {
        const char letter = MnemonicOf(GetString(text, language));
        EXPECT_NE(letter, '\0') << GetString(text, language);
        EXPECT_TRUE(letters.insert(letter).second) << GetString(text, language);
      }
    }
  }
}

TEST(MenuText, IsTakenApartAtItsTab) {
  EXPECT_EQ(SplitMenuText("&Open\tCtrl+O").label, "&Open");
  EXPECT_EQ(SplitMenuText("&Open\tCtrl+O").keys, "Ctrl+O");
  EXPECT_EQ(SplitMenuText("E&xit").label, "E&xit");
  EXPECT_EQ(SplitMenuText("E&xit").keys, "");
  EXPECT_EQ(MnemonicOf("E&xit"), 'x');
  EXPECT_EQ(MnemonicOf("終了(&X)"), 'x');
  EXPECT_EQ(MnemonicOf("none"), '\0');
  EXPECT_EQ(MnemonicOf("end&"), '\0');
}

}  // namespace
}  // namespace qvl
