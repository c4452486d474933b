// The help, held against the program: what it names is there, and what is there it names.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <utility>
#include <vector>

#include "texts/strings.h"
#include "viewer/model/commands.h"
#include "viewer/model/filter.h"

namespace qvl {
namespace {

const std::filesystem::path kFolder = QVL_HELP_DIR;

std::string ReadPage(const std::string& name) {
  std::ifstream file(kFolder / name, std::ios::binary);
  EXPECT_TRUE(file) << name;
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> FilesNamed(const std::string& extension) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(kFolder)) {
    if (entry.path().extension() == extension) names.push_back(entry.path().filename().string());
  }
  return names;
}

/// Every match of the first group, in order.
std::vector<std::string> Matches(const std::string& text, const std::string& pattern) {
  const std::regex regex(pattern, std::regex::icase);
  std::vector<std::string> found;
  for (std::sregex_iterator match(text.begin(), text.end(), regex), end; match != end; ++match) {
    found.push_back((*match)[1]);
  }
  return found;
}

/// A page as its reader sees it: without tags, blanks and line ends as one blank each.
std::string VisibleText(const std::string& page) {
  std::string text = std::regex_replace(page, std::regex("<[^>]*>"), "");
  const std::pair<const char*, const char*> signs[] = {
      {"&quot;", "\""},
      {"&lt;",   "<" },
      {"&gt;",   ">" },
      {"&amp;",  "&" }
  };
  for (const auto& [name, sign] : signs) text = std::regex_replace(text, std::regex(name), sign);
  return std::regex_replace(text, std::regex("\\s+"), " ");
}

/// A label as the user reads it: no mnemonic, no blank at its end.
std::string Readable(std::string_view label) {
  std::string text(label);
  std::erase(text, '&');
  while (text.ends_with(' ')) text.pop_back();
  return text;
}

/// Every key of a command, the menu's own first.
std::string KeysOf(const MenuItem& item) {
  std::string keys(SplitMenuText(GetString(item.text)).keys);
  for (const Accelerator& extra : ExtraAccelerators()) {
    if (extra.command != item.command) continue;
    if (!keys.empty()) keys += ", ";
    keys += extra.keys;
  }
  return keys;
}

/// The row of a table whose first cell reads `label`; empty when there is none.
std::string RowOf(const std::string& page, const std::string& label) {
  for (const std::string& row : Matches(page, "<tr>([\\s\\S]*?)</tr>")) {
    const std::vector<std::string> cells = Matches(row, "<td>([\\s\\S]*?)</td>");
    if (!cells.empty() && VisibleText(cells.front()) == label) return row;
  }
  return {};
}

bool LeadsSomewhere(const std::string& page, const std::string& link) {
  const std::size_t hash = link.find('#');
  const std::string file = hash == 0 ? page : link.substr(0, hash);
  if (!std::filesystem::exists(kFolder / file)) return false;
  if (hash == std::string::npos) return true;
  const std::vector<std::string> anchors = Matches(ReadPage(file), "<a name=\"([^\"]*)\"");
  return std::find(anchors.begin(), anchors.end(), link.substr(hash + 1)) != anchors.end();
}

std::vector<std::string> LinksOf(const std::string& page) {
  return Matches(ReadPage(page), "(?:href=|name=\"Local\" value=)\"([^\"]*)\"");
}

TEST(HelpPages, TellWhatEachCommandDoesAndItsKey) {
  const std::string page = ReadPage("commands.html");
  for (const Menu& menu : MenuBar()) {
    EXPECT_NE(page.find("<h2>" + Readable(GetString(menu.title)) + "</h2>"), std::string::npos);
    for (const MenuItem& item : menu.items) {
      const MenuText text = SplitMenuText(GetString(item.text));
      const std::string row = RowOf(page, Readable(text.label));
      ASSERT_FALSE(row.empty()) << text.label;
      const std::vector<std::string> cells = Matches(row, "<td>([\\s\\S]*?)</td>");
      ASSERT_EQ(cells.size(), 3U) << text.label;
      EXPECT_EQ(cells[1], KeysOf(item)) << text.label;
      EXPECT_GT(VisibleText(cells[2]).size(), 10U) << text.label;
    }
  }
}

TEST(HelpPages, NameEveryKey) {
  const std::string page = ReadPage("keys.html");
  for (const Menu& menu : MenuBar()) {
    for (const MenuItem& item : menu.items) {
      const MenuText text = SplitMenuText(GetString(item.text));
      if (text.keys.empty()) continue;
      const std::string row = VisibleText(RowOf(page, std::string(text.keys)));
      std::string label = Readable(text.label);
      label = label.substr(0, label.find("..."));
      EXPECT_TRUE(row.ends_with(label)) << text.keys << ": " << row;
    }
  }
  for (const Accelerator& key : ExtraAccelerators()) {
    EXPECT_FALSE(RowOf(page, std::string(key.keys)).empty()) << key.keys;
  }
}

TEST(HelpPages, TellWhatEachChoiceOfTheFilterMeans) {
  const std::string page = ReadPage("filter.html");
  for (const std::string_view choice : TimeChoices()) {
    if (choice == GetString(StringId::kAll)) continue;
    EXPECT_FALSE(RowOf(page, std::string(choice)).empty()) << choice;
  }
  for (const std::string_view choice : SeverityChoices()) {
    EXPECT_NE(VisibleText(page).find(choice), std::string::npos) << choice;
  }
  for (const StringId id : {StringId::kFilterClass, StringId::kFilterSeverity,
                            StringId::kFilterUpdateTime, StringId::kFilterInitialTime}) {
    std::string label = Readable(GetString(id));
    label.pop_back();  // the colon
    EXPECT_FALSE(RowOf(page, label).empty()) << label;
  }
}

TEST(HelpPages, ExplainTheMessagesOfAMachineThatFails) {
  const std::string page = ReadPage("machines.html");
  for (const StringId id : {StringId::kStatusAccessDenied, StringId::kStatusServerUnavailable,
                            StringId::kStatusUnknownInterface, StringId::kStatusNoDriver,
                            StringId::kNoLog, StringId::kStatusNotAdministrator}) {
    EXPECT_FALSE(RowOf(page, std::string(GetString(id))).empty()) << GetString(id);
  }
}

TEST(HelpPages, HaveNoLinkThatLeadsNowhere) {
  std::vector<std::string> pages = FilesNamed(".html");
  ASSERT_GE(pages.size(), 10U);
  pages.insert(pages.end(), {"zlkqvxv.hhc", "zlkqvxv.hhk"});
  for (const std::string& page : pages) {
    const std::vector<std::string> links = LinksOf(page);
    EXPECT_FALSE(links.empty()) << page;
    for (const std::string& link : links) {
      EXPECT_TRUE(LeadsSomewhere(page, link)) << page << ": " << link;
    }
  }
}

TEST(HelpPages, StandInTheContentsAndInTheBook) {
  const std::string project = ReadPage("zlkqvxv.hhp");
  const std::vector<std::string> contents = LinksOf("zlkqvxv.hhc");
  for (const std::string& page : FilesNamed(".html")) {
    EXPECT_NE(std::find(contents.begin(), contents.end(), page), contents.end()) << page;
    EXPECT_NE(project.find("\n" + page + "\n"), std::string::npos) << page;
  }
  for (const std::string& file : Matches(project, "\\n([a-z]+\\.(?:html|css))(?=\\n)")) {
    EXPECT_TRUE(std::filesystem::exists(kFolder / file)) << file;
  }
}

// The contents have no character set of their own: each system reads other bytes differently.
TEST(HelpPages, KeepTheContentsInAscii) {
  for (const char* const name : {"zlkqvxv.hhp", "zlkqvxv.hhc", "zlkqvxv.hhk"}) {
    for (const char character : ReadPage(name)) {
      ASSERT_LT(static_cast<unsigned char>(character), 0x80) << name;
    }
  }
}

// Whoever looks a word up expects the alphabet.
TEST(HelpPages, HaveAnIndexInOrder) {
  std::vector<std::string> words =
      Matches(ReadPage("zlkqvxv.hhk"), "name=\"Name\" value=\"([^\"]*)\"");
  ASSERT_GE(words.size(), 20U);
  for (std::string& word : words) {
    for (char& letter : word) letter = static_cast<char>(std::tolower(letter));
  }
  EXPECT_TRUE(std::is_sorted(words.begin(), words.end()));
}

}  // namespace
}  // namespace qvl
