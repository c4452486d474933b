#include "batch/run_log.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/batch/batch_fixture.h"

namespace qvl {
namespace {

using testing::CurrentFolder;
using testing::LanguageScope;
using testing::ReadFile;
using testing::WriteFile;

TEST(CutText, CutsOnlyWhatIsTooLong) {
  EXPECT_EQ(CutText("", 4), "");
  EXPECT_EQ(CutText("abcd", 4), "abcd");
  EXPECT_EQ(CutText("abcde", 4), "abcd");
  EXPECT_EQ(CutText("abcde", 0), "");
}

TEST(CutText, LeavesNoHalfCharacter) {
  const std::string two = "a\xC3\xA9z";           // a, e acute, z
  const std::string three = "a\xE3\x83\xADz";     // a, a katakana letter, z
  const std::string four = "a\xF0\x9F\x96\xA8z";  // a, a printer, z
  EXPECT_EQ(CutText(two, 2), "a");
  EXPECT_EQ(CutText(two, 3), two.substr(0, 3));
  EXPECT_EQ(CutText(three, 2), "a");
  EXPECT_EQ(CutText(three, 3), "a");
  EXPECT_EQ(CutText(three, 4), three.substr(0, 4));
  for (const std::size_t size : {2U, 3U, 4U}) EXPECT_EQ(CutText(four, size), "a") << size;
  EXPECT_EQ(CutText(four, 5), four.substr(0, 5));
}

TEST(CutText, CutsOtherBytesAnywhere) {
  EXPECT_EQ(CutText("\xE9\xE9\xE9", 2), "\xE9\xE9");
  EXPECT_EQ(CutText("ab\x80\x80\x80\x80\x80", 5), "ab\x80\x80\x80");
  EXPECT_EQ(CutText("\x80\x80", 1), "\x80");
}

TEST(RunLog, IndentsMessagesAndCutsThemAt511Bytes) {
  const CurrentFolder folder;
  RunLog log("\n");
  ASSERT_TRUE(log.Open("run.log").ok());
  log.WriteMessage("short");
  log.WriteMessage("");
  log.WriteMessage(std::string(511, 'a'));
  log.WriteMessage(std::string(512, 'b'));
  log.WriteMessage(StringId::kBatchSaved, {std::string(600, 'c')});
  log.Close();
  EXPECT_TRUE(log.complete());
  const std::string saved = "Successfully saved QVX data to file ";
  EXPECT_EQ(ReadFile("run.log"), "   short\n   \n   " + std::string(511, 'a') + "\n   " +
                                     std::string(511, 'b') + "\n   " + saved +
                                     std::string(511 - saved.size(), 'c') + "\n  \n");
}

TEST(RunLog, AppendsWithTheLineEndsAskedFor) {
  const CurrentFolder folder;
  WriteFile("run.log", "older\n");
  RunLog log("\r\n");
  ASSERT_TRUE(log.Open("run.log").ok());
  log.Write("one\ntwo\n");
  log.WriteMessage("three");
  log.Close();
  EXPECT_EQ(ReadFile("run.log"), "older\none\r\ntwo\r\n   three\r\n  \r\n");
}

TEST(RunLog, KeepsOtherWritersOut) {
  const CurrentFolder folder;
  RunLog first("\n");
  RunLog second("\n");
  ASSERT_TRUE(first.Open("run.log").ok());
  EXPECT_FALSE(second.Open("run.log").ok());
  first.Close();
  EXPECT_TRUE(second.Open("run.log").ok());
}

TEST(RunLog, CutsJapaneseBetweenCharacters) {
  const CurrentFolder folder;
  const LanguageScope japanese(Language::kJapanese);
  std::string name;
  for (int i = 0; i < 300; ++i) name += "\xE3\x83\xAD";
  RunLog log("\n");
  ASSERT_TRUE(log.Open("run.log").ok());
  log.WriteMessage(StringId::kBatchSaved, {name});
  log.Close();
  const std::string text(GetString(StringId::kBatchSaved));
  const std::string start = "   " + text.substr(0, text.find('%'));
  const std::string line = ReadFile("run.log");
  EXPECT_EQ(line.substr(0, start.size()), start);
  // 511 bytes hold whole characters of three bytes only up to the last one that fits.
  const std::size_t room = 511 - (start.size() - 3);
  EXPECT_EQ(line, start + name.substr(0, room - room % 3) + "\n  \n");
}

}  // namespace
}  // namespace qvl
