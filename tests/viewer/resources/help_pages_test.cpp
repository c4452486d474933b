// The help, held against the program: what it names is there, and what is there it names.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "texts/strings.h"
#include "viewer/model/commands.h"
#include "viewer/model/filter.h"

namespace qvl {
namespace {

const std::filesystem::path kFolder = QVL_HELP_DIR;

/// The pages in the process's language; what both share stands in the English ones' folder.
std::filesystem::path FolderOfPages() {
  return CurrentLanguage() == Language::kJapanese ? kFolder / "ja" : kFolder;
}

std::string ReadPage(const std::string& name) {
  std::ifstream file(FolderOfPages() / name, std::ios::binary);
  EXPECT_TRUE(file) << name;
  return {std::istreambuf_iterator<char>(file), {}};
}

/// In alphabetical order.
std::vector<std::string> FilesNamed(const std::string& extension) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(FolderOfPages())) {
    if (entry.path().extension() == extension) names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
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

/// A label as a page names it: no mnemonic, as "&x" or "(&X)", no blank at its end.
std::string Readable(std::string_view label) {
  std::string text = std::regex_replace(std::string(label), std::regex("\\(&.\\)"), "");
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

std::vector<std::string> AnchorsOf(const std::string& page) {
  return Matches(ReadPage(page), "<a name=\"([^\"]*)\"");
}

bool LeadsSomewhere(const std::string& page, const std::string& link) {
  const std::size_t hash = link.find('#');
  const std::string file = hash == 0 ? page : link.substr(0, hash);
  if (file == "help.css") return std::filesystem::exists(kFolder / file);
  if (!std::filesystem::exists(FolderOfPages() / file)) return false;
  if (hash == std::string::npos) return true;
  const std::vector<std::string> anchors = AnchorsOf(file);
  return std::find(anchors.begin(), anchors.end(), link.substr(hash + 1)) != anchors.end();
}

std::vector<std::string> LinksOf(const std::string& page) {
  return Matches(ReadPage(page), "(?:href=|name=\"Local\" value=)\"([^\"]*)\"");
}

/// A process speaks one language at a time.
class HelpPages : public testing::TestWithParam<Language> {
 protected:
  void SetUp() override { SetCurrentLanguage(GetParam()); }
  void TearDown() override { SetCurrentLanguage(Language::kEnglish); }
};
INSTANTIATE_TEST_SUITE_P(InEachLanguage, HelpPages,
                         testing::Values(Language::kEnglish, Language::kJapanese),
                         [](const testing::TestParamInfo<Language>& parameter) {
                           return parameter.param == Language::kJapanese ? "Japanese" : "English";
                         });

TEST_P(HelpPages, TellWhatEachCommandDoesAndItsKey) {
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

TEST_P(HelpPages, NameEveryKey) {
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

TEST_P(HelpPages, TellWhatEachChoiceOfTheFilterMeans) {
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

TEST_P(HelpPages, ExplainTheMessagesOfAMachineThatFails) {
  const std::string page = ReadPage("machines.html");
  for (const StringId id : {StringId::kStatusAccessDenied, StringId::kStatusServerUnavailable,
                            StringId::kStatusUnknownInterface, StringId::kStatusNoDriver,
                            StringId::kNoLog, StringId::kStatusNotAdministrator}) {
    EXPECT_FALSE(RowOf(page, std::string(GetString(id))).empty()) << GetString(id);
  }
}

TEST_P(HelpPages, HaveNoLinkThatLeadsNowhere) {
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

TEST_P(HelpPages, StandInTheContentsAndInTheBook) {
  const std::string project = ReadPage("zlkqvxv.hhp.in");
  const std::vector<std::string> contents = LinksOf("zlkqvxv.hhc");
  for (const std::string& page : FilesNamed(".html")) {
    EXPECT_NE(std::find(contents.begin(), contents.end(), page), contents.end()) << page;
  }
  // Filled in with every page when the book is made.
  EXPECT_TRUE(project.ends_with("\n[FILES]\n@files@\n"));
}

// Whoever looks a word up expects the alphabet, and Japanese words by how they are read.
TEST_P(HelpPages, HaveAnIndexInOrder) {
  std::vector<std::string> words;
  for (const std::string& entry :
       Matches(ReadPage("zlkqvxv.hhk"), "<OBJECT([\\s\\S]*?)</OBJECT>")) {
    std::vector<std::string> word = Matches(entry, "name=\"Comment\" value=\"([^\"]*)\"");
    if (word.empty()) word = Matches(entry, "name=\"Name\" value=\"([^\"]*)\"");
    ASSERT_EQ(word.size(), 1U) << entry;
    words.push_back(word.front());
  }
  ASSERT_GE(words.size(), 20U);
  for (std::string& word : words) {
    for (char& letter : word) {
      if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    }
  }
  EXPECT_TRUE(std::is_sorted(words.begin(), words.end()));
}

// The English contents have no character set of their own: each system reads other bytes
// differently. The Japanese ones are made what the system reads.
TEST(HelpInEnglish, HasContentsInAscii) {
  for (const char* const name : {"zlkqvxv.hhp.in", "zlkqvxv.hhc", "zlkqvxv.hhk"}) {
    for (const char character : ReadPage(name)) {
      ASSERT_LT(static_cast<unsigned char>(character), 0x80) << name;
    }
  }
}

/// Calls `look` for each language, and gives what it found.
template <typename Look>
std::pair<decltype(std::declval<Look>()()), decltype(std::declval<Look>()())> InBoth(Look look) {
  auto english = look();
  SetCurrentLanguage(Language::kJapanese);
  auto japanese = look();
  SetCurrentLanguage(Language::kEnglish);
  return {std::move(english), std::move(japanese)};
}

TEST(HelpInJapanese, HasThePagesAnchorsAndPartsOfTheEnglishHelp) {
  const auto [pages, japanesePages] = InBoth([] { return FilesNamed(".html"); });
  ASSERT_EQ(pages, japanesePages);
  for (const std::string& page : pages) {
    const auto [anchors, japaneseAnchors] = InBoth([&] { return AnchorsOf(page); });
    EXPECT_EQ(anchors, japaneseAnchors) << page;
    const auto [parts, japaneseParts] =
        InBoth([&] { return Matches(ReadPage(page), "<(h1|h2|p|ul|ol|li|tr|td|th|pre)>"); });
    EXPECT_EQ(parts, japaneseParts) << page;
  }
}

TEST(HelpInJapanese, LeadsWhereTheEnglishHelpLeads) {
  const auto [contents, japaneseContents] = InBoth([] { return LinksOf("zlkqvxv.hhc"); });
  EXPECT_EQ(contents, japaneseContents);
  const auto [index, japaneseIndex] = InBoth([] {
    std::vector<std::string> links = LinksOf("zlkqvxv.hhk");
    std::sort(links.begin(), links.end());
    return links;
  });
  EXPECT_EQ(index, japaneseIndex);
}

// In brackets stands what the window shows, and exactly that.
TEST(HelpInJapanese, NamesTheWindowsPartsByTheirTexts) {
  std::set<std::string> labels;
  for (const StringRow& row : AllStrings()) {
    std::string label = Readable(SplitMenuText(row.japanese).label);
    for (const char* const end : {"...", ":"}) {
      if (label.ends_with(end)) label.resize(label.size() - std::string_view(end).size());
    }
    labels.insert(label);
  }
  std::size_t count = 0;
  SetCurrentLanguage(Language::kJapanese);
  for (const std::string& page : FilesNamed(".html")) {
    for (const std::string& label : Matches(VisibleText(ReadPage(page)), "\\[(.*?)\\]")) {
      EXPECT_TRUE(labels.contains(label)) << page << ": " << label;
      ++count;
    }
  }
  SetCurrentLanguage(Language::kEnglish);
  EXPECT_GE(count, 40U);
}

// The toolkit takes a page for Latin-1 that does not say so in this way.
TEST(HelpInJapanese, NamesItsCharacterSet) {
  SetCurrentLanguage(Language::kJapanese);
  for (const std::string& page : FilesNamed(".html")) {
    EXPECT_NE(ReadPage(page).find("<meta http-equiv=\"Content-Type\" "
                                  "content=\"text/html; charset=utf-8\">"),
              std::string::npos)
        << page;
  }
  SetCurrentLanguage(Language::kEnglish);
}

}  // namespace
}  // namespace qvl
