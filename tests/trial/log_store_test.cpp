#include "trial/log_store.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <thread>

#include "tests/trial/trial_fixtures.h"

namespace qvl {
namespace {

using testing::Description;
using testing::Event;
using testing::kNoon;
using testing::LogBytes;
using testing::Record;
using testing::SameBytes;
using testing::TemporaryFile;

constexpr std::uint32_t kHighest = 0xFFFFFFFF;

/// A store on a file of its own, at noon.
class LogStoreTest : public ::testing::Test {
 protected:
  void Load(const std::vector<RawLogEntry>& entries) {
    file_.Write(LogBytes(entries));
    const Status status = store_.Open(file_.path());
    ASSERT_TRUE(status.ok()) << status.message();
  }

  std::vector<RawLogEntry> Stored(const LogStore& store) const {
    std::vector<RawLogEntry> entries;
    RawLogEntry entry{};
    for (std::uint32_t number = 0; store.ReadFrom(number, entry); number = entry.entryNumber + 1) {
      entries.push_back(entry);
      if (entry.entryNumber == kHighest) break;
    }
    return entries;
  }
  std::vector<RawLogEntry> Stored() const { return Stored(store_); }

  // What a service that starts now would find.
  void ExpectFileHolds(const std::vector<RawLogEntry>& entries) const {
    EXPECT_EQ(file_.Read(), LogBytes(entries));
  }

  LogTime now_ = kNoon;
  TemporaryFile file_{".qvx"};
  LogStore store_{[this] { return now_; }};
};

TEST_F(LogStoreTest, DeliversTheFirstEntryWhoseNumberIsNotBelow) {
  Load({Event(3), Event(8)});
  RawLogEntry entry{};
  EXPECT_TRUE(store_.ReadFrom(0, entry));
  EXPECT_TRUE(SameBytes(entry, Event(3)));
  EXPECT_TRUE(store_.ReadFrom(3, entry));
  EXPECT_EQ(entry.entryNumber + 0, 3U);
  EXPECT_TRUE(store_.ReadFrom(4, entry));
  EXPECT_EQ(entry.entryNumber + 0, 8U);
  EXPECT_FALSE(store_.ReadFrom(9, entry));
}

TEST_F(LogStoreTest, SortsByNumberAndTheLastOfANumberStands) {
  Load({Event(8), Event(3, "old"), Event(5), Event(3, "new")});
  const std::vector<RawLogEntry> stored = Stored();
  ASSERT_EQ(stored.size(), 3U);
  EXPECT_TRUE(SameBytes(stored[0], Event(3, "new")));
  EXPECT_EQ(stored[1].entryNumber + 0, 5U);
  EXPECT_EQ(stored[2].entryNumber + 0, 8U);
}

TEST_F(LogStoreTest, RefusesWhatIsNoLogAndWhatIsNotThere) {
  file_.Write("no log at all, but long enough to be one");
  EXPECT_FALSE(store_.Open(file_.path()).ok());
  EXPECT_FALSE(store_.Open(file_.path() + ".missing").ok());
  EXPECT_EQ(store_.size(), 0U);
}

TEST_F(LogStoreTest, ClearLeavesOneEntryThatNamesTheUserAndNumbersGoOn) {
  Load({Event(1), Event(41)});
  ASSERT_TRUE(store_.Clear("ada").ok());
  const std::vector<RawLogEntry> stored = Stored();
  ASSERT_EQ(stored.size(), 1U);
  EXPECT_EQ(stored[0].entryNumber + 0, 42U);
  EXPECT_EQ(stored[0].severity, kInformational);
  EXPECT_EQ(stored[0].initialTime, kNoon);
  EXPECT_EQ(stored[0].updateTime, kNoon);
  EXPECT_EQ(stored[0].count + 0, 1U);
  EXPECT_EQ(Description(stored[0]), "QVX Cleared (ada)");
  ExpectFileHolds(stored);
}

TEST_F(LogStoreTest, ClearBeginsAgainOnlyWhenEveryNumberWasGiven) {
  Load({Event(kHighest)});
  EXPECT_FALSE(store_.WriteNote("no number left").ok());
  EXPECT_FALSE(store_.Log(Event(0, "other")).ok());
  EXPECT_TRUE(SameBytes(Stored().at(0), Event(kHighest)));
  ASSERT_TRUE(store_.Clear("ada").ok());
  ASSERT_TRUE(store_.WriteNote("again").ok());
  EXPECT_EQ(Stored().at(0).entryNumber + 0, 1U);
  EXPECT_EQ(Stored().at(1).entryNumber + 0, 2U);
}

TEST_F(LogStoreTest, NoteStandsBehindTheHighestNumber) {
  Load({Event(7)});
  ASSERT_TRUE(store_.WriteNote("fan changed").ok());
  const std::vector<RawLogEntry> stored = Stored();
  ASSERT_EQ(stored.size(), 2U);
  EXPECT_TRUE(SameBytes(stored[0], Event(7)));
  EXPECT_EQ(stored[1].entryNumber + 0, 8U);
  EXPECT_EQ(Description(stored[1]), "Maintenance note: fan changed");
  ExpectFileHolds(stored);
}

TEST_F(LogStoreTest, TextsAreCutBehind227BytesAndStayEnded) {
  Load({});
  ASSERT_TRUE(store_.WriteNote(std::string(227, 'n')).ok());
  ASSERT_TRUE(store_.WriteNote(std::string(300, 'n')).ok());
  for (const RawLogEntry& entry : Stored()) {
    EXPECT_EQ(Description(entry), "Maintenance note: " + std::string(227, 'n'));
    EXPECT_EQ(entry.data[227], 0);
  }
}

TEST_F(LogStoreTest, RepairChangesTheSeverityAndNothingElse) {
  Load({Event(1), Event(2)});
  bool marked = false;
  ASSERT_TRUE(store_.MarkRepaired(2, marked).ok());
  EXPECT_TRUE(marked);
  RawLogEntry repaired = Event(2);
  repaired.severity = kRepaired;
  ExpectFileHolds({Event(1), repaired});
}

TEST_F(LogStoreTest, RepairIsRefusedBelowTheLowestSeverityAndForMissingNumbers) {
  for (std::uint8_t severity = 0; severity < 20; ++severity) {
    RawLogEntry entry = Event(5);
    entry.severity = severity;
    Load({entry});
    bool marked = false;
    ASSERT_TRUE(store_.MarkRepaired(5, marked).ok());
    EXPECT_EQ(marked, severity >= 7) << int{severity};
    ASSERT_TRUE(store_.MarkRepaired(4, marked).ok());
    EXPECT_FALSE(marked);
  }
}

TEST_F(LogStoreTest, RepeatedEventRaisesCountAndUpdateTime) {
  Load({Event(1, "fan"), Event(2, "disk")});
  ASSERT_TRUE(store_.Log(Event(0, "fan")).ok());
  const std::vector<RawLogEntry> stored = Stored();
  ASSERT_EQ(stored.size(), 2U);
  RawLogEntry expected = Event(1, "fan");
  expected.count = 2;
  expected.updateTime = kNoon;
  EXPECT_TRUE(SameBytes(stored[0], expected));
  EXPECT_TRUE(SameBytes(stored[1], Event(2, "disk")));
  ExpectFileHolds(stored);
}

TEST_F(LogStoreTest, AnEventThatComesAfterItsRepairIsANewOne) {
  Load({Event(1)});
  bool marked = false;
  ASSERT_TRUE(store_.MarkRepaired(1, marked).ok());
  ASSERT_TRUE(store_.Log(Event(0)).ok());
  ASSERT_TRUE(store_.Log(Event(0)).ok());
  const std::vector<RawLogEntry> stored = Stored();
  ASSERT_EQ(stored.size(), 2U);
  EXPECT_EQ(stored[0].count + 0, 1U);
  EXPECT_EQ(stored[1].entryNumber + 0, 2U);
  EXPECT_EQ(stored[1].count + 0, 2U);
  EXPECT_EQ(stored[1].initialTime, kNoon);
}

TEST_F(LogStoreTest, CountStaysAtItsHighest) {
  RawLogEntry entry = Event(1);
  entry.count = kHighest;
  Load({entry});
  ASSERT_TRUE(store_.Log(entry).ok());
  EXPECT_EQ(Stored().at(0).count + 0, kHighest);
}

TEST_F(LogStoreTest, NewestEventIsNeitherRepairedNorTheServicesOwn) {
  RawLogEntry repaired = Event(3);
  repaired.severity = kRepaired;
  Load({Event(1), Event(2, "disk"), repaired});
  ASSERT_TRUE(store_.WriteNote("a note").ok());
  RawLogEntry event{};
  ASSERT_TRUE(store_.NewestEvent(event));
  EXPECT_TRUE(SameBytes(event, Event(2, "disk")));
  ASSERT_TRUE(store_.Clear("ada").ok());
  EXPECT_FALSE(store_.NewestEvent(event));
}

TEST_F(LogStoreTest, ChangesAreThereForTheNextService) {
  Load({Event(1)});
  ASSERT_TRUE(store_.WriteNote("kept").ok());
  LogStore next([] { return kNoon; });
  ASSERT_TRUE(next.Open(file_.path()).ok());
  EXPECT_EQ(Description(Stored(next).at(1)), "Maintenance note: kept");
}

TEST_F(LogStoreTest, AFileThatCannotBeWrittenChangesNothing) {
  Load({Event(1)});
  // A folder stands where the new file would be written.
  const std::filesystem::path blocking(file_.path() + ".new");
  std::filesystem::create_directory(blocking);
  bool marked = false;
  EXPECT_FALSE(store_.Clear("ada").ok());
  EXPECT_FALSE(store_.WriteNote("note").ok());
  EXPECT_FALSE(store_.MarkRepaired(1, marked).ok());
  EXPECT_FALSE(marked);
  EXPECT_FALSE(store_.Log(Event(0)).ok());
  std::filesystem::remove(blocking);
  EXPECT_EQ(store_.size(), 1U);
  EXPECT_TRUE(SameBytes(Stored().at(0), Event(1)));
  ExpectFileHolds({Event(1)});
  ASSERT_TRUE(store_.WriteNote("note").ok());
  EXPECT_EQ(Stored().at(1).entryNumber + 0, 2U);
}

TEST_F(LogStoreTest, AChangeReplacesTheFileAndNeverWritesIntoIt) {
  Load({Event(1), Event(2)});
  const std::string before = file_.Read();
  // Another name for the old file: a crash in the middle of the change would leave just that.
  const TemporaryFile old(".qvx");
  std::filesystem::create_hard_link(file_.path(), old.path());
  ASSERT_TRUE(store_.Clear("ada").ok());
  EXPECT_EQ(old.Read(), before);
  EXPECT_NE(file_.Read(), before);
  EXPECT_FALSE(std::filesystem::exists(file_.path() + ".new"));
}

TEST_F(LogStoreTest, ManyThreadsLoseNothing) {
  Load({});
  constexpr int kThreads = 4;
  constexpr int kNotes = 20;
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([this] {
      for (int k = 0; k < kNotes; ++k) EXPECT_TRUE(store_.WriteNote("note").ok());
    });
  }
  for (std::thread& thread : threads) thread.join();
  const std::vector<RawLogEntry> stored = Stored();
  ASSERT_EQ(stored.size(), static_cast<std::size_t>(kThreads * kNotes));
  EXPECT_EQ(stored.back().entryNumber + 0, static_cast<std::uint32_t>(kThreads * kNotes));
  ExpectFileHolds(stored);
}

TEST(WallLogTimeTest, IsATimeThatTheCalendarHas) {
  const LogTime now = WallLogTime();
  EXPECT_TRUE(now.HasValidDate());
  EXPECT_TRUE(now.HasValidTimeOfDay());
  EXPECT_GE(now.FullYear(), 2024);
}

}  // namespace
}  // namespace qvl
