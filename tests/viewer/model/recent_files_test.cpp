#include "viewer/model/recent_files.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "files/log_file.h"
#include "tests/viewer/model/fake_viewer.h"
#include "viewer/model/file_names.h"

namespace qvl {
namespace {

using testing::MemorySettings;
using testing::TemporaryFile;
using testing::ViewerTest;

using Paths = std::vector<std::string>;

constexpr const char* kKey = "Software\\Zelkor\\Quarvel Log Viewer\\Recent File List|";

// As a whole path of the system that runs this.
std::string Whole(const std::string& name) {
  return AbsolutePath(name);
}

TEST(RecentFiles, KeepTheLastFourNewestFirst) {
  MemorySettings settings;
  RecentFiles files(settings);
  for (const char* const name : {"1.qvx", "2.qvx", "3.qvx", "4.qvx", "5.qvx"}) files.Add(name);
  EXPECT_EQ(files.paths(), (Paths{Whole("5.qvx"), Whole("4.qvx"), Whole("3.qvx"), Whole("2.qvx")}));
  EXPECT_EQ(settings.texts[std::string(kKey) + "File1"], Whole("5.qvx"));
  EXPECT_EQ(settings.texts[std::string(kKey) + "File4"], Whole("2.qvx"));
  EXPECT_EQ(RecentFiles(settings).paths(), files.paths());
}

TEST(RecentFiles, PutAKnownFileAtTheTop) {
  MemorySettings settings;
  RecentFiles files(settings);
  for (const char* const name : {"1.qvx", "2.qvx", "./1.qvx"}) files.Add(name);
  EXPECT_EQ(files.paths(), (Paths{Whole("1.qvx"), Whole("2.qvx")}));
}

TEST(RecentFiles, ForgetAFile) {
  MemorySettings settings;
  RecentFiles files(settings);
  for (const char* const name : {"1.qvx", "2.qvx"}) files.Add(name);
  files.Remove(Whole("2.qvx"));
  EXPECT_EQ(files.paths(), Paths{Whole("1.qvx")});
  EXPECT_EQ(settings.texts[std::string(kKey) + "File2"], "");
  EXPECT_EQ(RecentFiles(settings).paths(), Paths{Whole("1.qvx")});
}

TEST(RecentFiles, LeaveOutWhatIsMissingOrEmpty) {
  MemorySettings settings;
  settings.texts[std::string(kKey) + "File2"] = "b";
  settings.texts[std::string(kKey) + "File3"] = "";
  settings.texts[std::string(kKey) + "File4"] = "d";
  EXPECT_EQ(RecentFiles(settings).paths(), (Paths{"b", "d"}));
}

// Two windows of the program.
TEST(RecentFiles, KeepWhatAnotherWindowHasAdded) {
  MemorySettings settings;
  RecentFiles first(settings);
  RecentFiles second(settings);
  first.Add("1.qvx");
  second.Add("2.qvx");
  first.Add("3.qvx");
  EXPECT_EQ(first.paths(), (Paths{Whole("3.qvx"), Whole("2.qvx"), Whole("1.qvx")}));
}

TEST(RecentFiles, AreWrittenAtOnce) {
  MemorySettings settings;
  RecentFiles files(settings);
  std::vector<std::string> written;
  settings.onSynchronise = [&] { written.push_back(settings.texts[std::string(kKey) + "File1"]); };
  files.Add("1.qvx");
  EXPECT_EQ(written, (Paths{"", Whole("1.qvx")}));
}

TEST_F(ViewerTest, ARecentFileIsOpenedAndOneThatIsGoneLeavesTheList) {
  const TemporaryFile kept(".qvx");
  const TemporaryFile gone(".qvx");
  EntryList entries;
  entries.Append(Entry(7, 9));
  ASSERT_TRUE(SaveLogFile(kept.path(), entries).ok());
  ASSERT_TRUE(SaveLogFile(gone.path(), entries).ok());
  ASSERT_TRUE(frame_.OpenLogFile(kept.path()));
  ASSERT_TRUE(frame_.OpenLogFile(gone.path()));
  EXPECT_EQ(viewer_.recentFiles, (Paths{Whole(gone.path()), Whole(kept.path())}));
  gone.Remove();
  frame_.OpenRecentFile(0);
  EXPECT_EQ(viewer_.messages.size(), 1U);
  EXPECT_EQ(viewer_.recentFiles, Paths{Whole(kept.path())});
  EXPECT_TRUE(doc_.entries().empty());
  frame_.OpenRecentFile(1);
  EXPECT_TRUE(doc_.entries().empty());
  frame_.OpenRecentFile(0);
  EXPECT_EQ(EntryNumbers(), Numbers{7});
}

}  // namespace
}  // namespace qvl
