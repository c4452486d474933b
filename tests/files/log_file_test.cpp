#include "files/log_file.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <filesystem>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "entries/event_log_entry.h"
#include "platform/exclusive_file.h"
#include "tests/files/file_fixtures.h"

namespace qvl {
namespace {

using testing::LanguageScope;
using testing::MemorySource;
using testing::RandomRecord;
using testing::Record;
using testing::TemporaryFile;
using testing::Written;

const std::string kHeader = "Zelkor QVX Log v1.0";

std::string RecordBytes(const RawLogEntry& raw) {
  std::string bytes(512, '\0');
  std::memcpy(bytes.data(), &raw, sizeof raw);
  return bytes;
}

bool SameRecord(const RawLogEntry& a, const RawLogEntry& b) {
  return std::memcmp(&a, &b, sizeof a) == 0;
}

std::vector<RawLogEntry> RandomRecords(std::size_t count, std::uint32_t seed) {
  std::mt19937 random(seed);
  std::vector<RawLogEntry> records(count);
  for (RawLogEntry& raw : records) raw = RandomRecord(random);
  return records;
}

void Fill(EntryList& list, const std::vector<RawLogEntry>& records) {
  for (const RawLogEntry& raw : records) list.Append(raw);
}

std::string LogBytes(const std::vector<RawLogEntry>& records) {
  std::string bytes = kHeader;
  for (const RawLogEntry& raw : records) bytes += RecordBytes(raw);
  return bytes;
}

void ExpectHolds(const EntryList& list, const std::vector<RawLogEntry>& records) {
  ASSERT_EQ(list.size(), records.size());
  for (std::size_t i = 0; i < records.size(); ++i) {
    ASSERT_TRUE(SameRecord(list[i].raw(), records[i])) << "entry " << i;
  }
}

// A list that a load must empty.
void FillWithOldEntries(EntryList& list) {
  list.Append(Record(900, 12, 1));
  list.Append(Record(901, 12, 2));
}

TEST(SaveLogFile, WritesAnEmptyLogAsNineteenBytes) {
  const TemporaryFile file(".qvx");
  ASSERT_TRUE(SaveLogFile(file.path(), EntryList()).ok());
  EXPECT_EQ(file.Read(), "Zelkor QVX Log v1.0");
  EXPECT_EQ(file.Read().size(), 19U);

  EntryList list;
  FillWithOldEntries(list);
  const LogFileResult result = LoadLogFile(file.path(), list);
  EXPECT_EQ(result.error, LogFileError::kNone);
  EXPECT_TRUE(list.empty());
}

TEST(SaveLogFile, WritesEveryByteOfTheRecordAndAsManyZeros) {
  RawLogEntry raw;
  auto* const bytes = reinterpret_cast<std::uint8_t*>(&raw);
  std::string expected = kHeader;
  for (int i = 0; i < 256; ++i) {
    bytes[i] = static_cast<std::uint8_t>(i);
    expected += static_cast<char>(i);
  }
  expected.append(256, '\0');
  EntryList list;
  list.Append(raw);
  const TemporaryFile file(".qvx");
  ASSERT_TRUE(SaveLogFile(file.path(), list).ok());
  EXPECT_EQ(file.Read(), expected);
}

TEST(SaveLogFile, WritesTheSameHeaderInEveryLanguage) {
  const LanguageScope language(Language::kJapanese);
  const TemporaryFile file(".qvx");
  ASSERT_TRUE(SaveLogFile(file.path(), EntryList()).ok());
  EXPECT_EQ(file.Read(), kHeader);
  EntryList list;
  EXPECT_TRUE(LoadLogFile(file.path(), list).ok());
}

TEST(SaveLogFile, WritesTheOrderOfTheListWhateverTheNumbers) {
  EntryList list;
  for (const std::uint32_t number : {7U, 3U, 3U, 9U, 0U}) list.Append(Record(number, 2, 1));
  const TemporaryFile file(".qvx");
  ASSERT_TRUE(SaveLogFile(file.path(), list).ok());
  EntryList loaded;
  ASSERT_TRUE(LoadLogFile(file.path(), loaded).ok());
  std::vector<std::uint32_t> numbers;
  for (std::size_t i = 0; i < loaded.size(); ++i) numbers.push_back(loaded[i].GetEntryNumber());
  EXPECT_EQ(numbers, (std::vector<std::uint32_t>{7, 3, 3, 9, 0}));
}

TEST(SaveLogFile, LeavesTheOldTailOfALongerFile) {
  const std::vector<RawLogEntry> old = RandomRecords(5, 1);
  const std::vector<RawLogEntry> fresh = RandomRecords(3, 2);
  const TemporaryFile file(".qvx");
  EntryList list;
  Fill(list, old);
  ASSERT_TRUE(SaveLogFile(file.path(), list).ok());
  list.Clear();
  Fill(list, fresh);
  ASSERT_TRUE(SaveLogFile(file.path(), list).ok());

  const std::vector<RawLogEntry> both = {fresh[0], fresh[1], fresh[2], old[3], old[4]};
  EXPECT_EQ(file.Read().size(), 19U + 5U * 512U);
  EXPECT_EQ(file.Read(), LogBytes(both));
  EntryList loaded;
  ASSERT_TRUE(LoadLogFile(file.path(), loaded).ok());
  ExpectHolds(loaded, both);
}

TEST(SaveLogFile, GrowsAShorterFile) {
  const TemporaryFile file(".qvx");
  file.Write("something else");
  const std::vector<RawLogEntry> records = RandomRecords(2, 3);
  EntryList list;
  Fill(list, records);
  ASSERT_TRUE(SaveLogFile(file.path(), list).ok());
  EXPECT_EQ(file.Read(), LogBytes(records));
}

TEST(SaveLogFile, FailsWhereTheFolderIsMissing) {
  const TemporaryFile folder(".missing");
  const Status status = SaveLogFile(folder.path() + "/log.qvx", EntryList());
  EXPECT_FALSE(status.ok());
  EXPECT_FALSE(status.message().empty());
  EXPECT_FALSE(folder.Exists());
}

TEST(SaveLogFile, FailsWhileTheFileIsReadAndLeavesItAlone) {
  const TemporaryFile file(".qvx");
  const std::string before = LogBytes(RandomRecords(1, 4));
  file.Write(before);
  ExclusiveFile reader;
  ASSERT_TRUE(reader.Open(file.path(), ExclusiveFile::Mode::kRead).ok());
  EXPECT_FALSE(SaveLogFile(file.path(), EntryList()).ok());
  ASSERT_TRUE(reader.Close().ok());
  EXPECT_EQ(file.Read(), before);
}

TEST(LoadLogFile, FailsWhileTheFileIsWritten) {
  const TemporaryFile file(".qvx");
  file.Write(kHeader);
  ExclusiveFile writer;
  ASSERT_TRUE(writer.Open(file.path(), ExclusiveFile::Mode::kOverwrite).ok());
  EntryList list;
  FillWithOldEntries(list);
  EXPECT_EQ(LoadLogFile(file.path(), list).error, LogFileError::kCannotOpen);
  EXPECT_TRUE(list.empty());
}

// Two entry lists' blocks are crossed, and many of the reader's and the writer's buffers.
TEST(LoadLogFile, GivesBackFiveThousandEntriesByteForByte) {
  const std::vector<RawLogEntry> records = RandomRecords(5000, 5);
  EntryList list;
  Fill(list, records);
  const TemporaryFile file(".qvx");
  ASSERT_TRUE(SaveLogFile(file.path(), list).ok());
  EXPECT_TRUE(file.Read() == LogBytes(records));

  EntryList loaded;
  ASSERT_TRUE(LoadLogFile(file.path(), loaded).ok());
  ExpectHolds(loaded, records);

  const TemporaryFile copy(".qvx");
  ASSERT_TRUE(SaveLogFile(copy.path(), loaded).ok());
  EXPECT_TRUE(copy.Read() == file.Read());
}

TEST(LoadLogFile, CannotOpenAMissingPath) {
  const TemporaryFile file(".qvx");
  EntryList list;
  FillWithOldEntries(list);
  const LogFileResult result = LoadLogFile(file.path(), list);
  EXPECT_EQ(result.error, LogFileError::kCannotOpen);
  EXPECT_FALSE(result.message.empty());
  EXPECT_FALSE(result.ok());
  EXPECT_TRUE(list.empty());
  EXPECT_FALSE(file.Exists());
}

TEST(LoadLogFile, CannotOpenAFolder) {
  EntryList list;
  FillWithOldEntries(list);
  const std::u8string folder = std::filesystem::temp_directory_path().u8string();
  const LogFileResult result = LoadLogFile({folder.begin(), folder.end()}, list);
  EXPECT_EQ(result.error, LogFileError::kCannotOpen);
  EXPECT_TRUE(list.empty());
}

TEST(LoadLogFile, EmptiesTheListBeforeAFileThatIsNoLog) {
  const TemporaryFile file(".qvx");
  file.Write("zelkor QVX Log v1.0" + std::string(512, 'x'));
  EntryList list;
  FillWithOldEntries(list);
  EXPECT_EQ(LoadLogFile(file.path(), list).error, LogFileError::kNotALog);
  EXPECT_TRUE(list.empty());
}

TEST(LoadLogFile, ReplacesTheEntriesOfTheList) {
  const std::vector<RawLogEntry> records = RandomRecords(3, 6);
  const TemporaryFile file(".qvx");
  file.Write(LogBytes(records));
  EntryList list;
  FillWithOldEntries(list);
  ASSERT_TRUE(LoadLogFile(file.path(), list).ok());
  ExpectHolds(list, records);
}

TEST(LoadLog, RejectsAHeaderThatDiffersInTheCaseOfOneLetter) {
  for (std::size_t i = 0; i < kHeader.size(); ++i) {
    const char c = kHeader[i];
    const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    if (!letter) continue;
    std::string header = kHeader;
    header[i] = static_cast<char>(c ^ 0x20);
    MemorySource source(header + std::string(1024, '\0'));
    EntryList list;
    FillWithOldEntries(list);
    EXPECT_EQ(LoadLog(source, list).error, LogFileError::kNotALog) << header;
    EXPECT_TRUE(list.empty()) << header;
  }
}

TEST(LoadLog, RejectsAHeaderThatDiffersInAnyByte) {
  for (std::size_t i = 0; i < kHeader.size(); ++i) {
    std::string header = kHeader;
    header[i] = '\0';
    MemorySource source(header + std::string(512, '\0'));
    EntryList list;
    EXPECT_EQ(LoadLog(source, list).error, LogFileError::kNotALog) << "byte " << i;
    EXPECT_TRUE(list.empty());
  }
}

TEST(LoadLog, RejectsFilesOfZeroToEighteenBytes) {
  for (std::size_t size = 0; size < kHeader.size(); ++size) {
    MemorySource source(kHeader.substr(0, size));
    EntryList list;
    FillWithOldEntries(list);
    const LogFileResult result = LoadLog(source, list);
    EXPECT_EQ(result.error, LogFileError::kNotALog) << size << " bytes";
    EXPECT_FALSE(result.message.empty());
    EXPECT_TRUE(list.empty());
  }
}

TEST(LoadLog, IgnoresAPartialLastRecord) {
  for (const std::size_t count : {0U, 2U, 256U, 4096U}) {
    const std::vector<RawLogEntry> records = RandomRecords(count, 7);
    const std::string whole = LogBytes(records);
    for (const std::size_t more : {1U, 255U, 256U, 257U, 511U}) {
      MemorySource source(whole + std::string(more, 'x'));
      EntryList list;
      EXPECT_EQ(LoadLog(source, list).error, LogFileError::kNone);
      ASSERT_EQ(list.size(), count) << more << " bytes more";
      EXPECT_TRUE(count == 0 || SameRecord(list[count - 1].raw(), records.back()));
    }
  }
}

TEST(LoadLog, IgnoresTheSecondHalfOfARecordWhichIsSavedAsZeros) {
  const std::vector<RawLogEntry> records = RandomRecords(2, 8);
  std::string bytes = LogBytes(records);
  for (std::size_t i = 0; i < 256; ++i) {
    bytes[19 + 256 + i] = '\xFF';
    bytes[19 + 512 + 256 + i] = 'x';
  }
  MemorySource source(bytes);
  EntryList list;
  ASSERT_TRUE(LoadLog(source, list).ok());
  ExpectHolds(list, records);

  const TemporaryFile file(".qvx");
  ASSERT_TRUE(SaveLogFile(file.path(), list).ok());
  EXPECT_EQ(file.Read(), LogBytes(records));
}

TEST(LoadLog, TakesAnyBlockBehindTheHeaderForAnEntry) {
  MemorySource source(kHeader + std::string(512, '\xFF') + std::string(512, '\0'));
  EntryList list;
  ASSERT_TRUE(LoadLog(source, list).ok());
  ASSERT_EQ(list.size(), 2U);
  EXPECT_EQ(list[0].raw().eventClass, 65535U);
  EXPECT_EQ(list[0].GetEntryNumber(), 0xFFFFFFFFU);
  EXPECT_EQ(list[1].raw().eventClass, 0U);
}

TEST(LoadLog, GivesBackEveryNumberOfEntriesAroundTheBlocks) {
  const std::vector<RawLogEntry> records = RandomRecords(8193, 9);
  for (const std::size_t count :
       {1U, 255U, 256U, 257U, 512U, 4095U, 4096U, 4097U, 4352U, 8192U, 8193U}) {
    const std::vector<RawLogEntry> some(records.begin(),
                                        records.begin() + static_cast<std::ptrdiff_t>(count));
    MemorySource source(LogBytes(some));
    EntryList list;
    ASSERT_TRUE(LoadLog(source, list).ok());
    ExpectHolds(list, some);
  }
}

TEST(LoadLog, KeepsWhatCameBeforeAFailureInTheMiddle) {
  const std::vector<RawLogEntry> records = RandomRecords(5000, 10);
  const std::string bytes = LogBytes(records);
  for (const std::size_t kept : {0U, 1U, 2U, 255U, 256U, 300U, 4095U, 4096U, 4500U}) {
    for (const std::size_t part : {0U, 100U, 511U}) {
      MemorySource source(bytes, 19 + kept * 512 + part);
      EntryList list;
      FillWithOldEntries(list);
      const LogFileResult result = LoadLog(source, list);
      EXPECT_EQ(result.error, LogFileError::kReadFailed);
      EXPECT_EQ(result.message, "the disk was pulled out");
      ExpectHolds(list, {records.begin(), records.begin() + static_cast<std::ptrdiff_t>(kept)});
    }
  }
}

TEST(LoadLog, FailsToReadInsideTheHeader) {
  for (const std::size_t failAt : {0U, 5U, 18U}) {
    MemorySource source(LogBytes(RandomRecords(2, 11)), failAt);
    EntryList list;
    FillWithOldEntries(list);
    EXPECT_EQ(LoadLog(source, list).error, LogFileError::kReadFailed) << failAt;
    EXPECT_TRUE(list.empty());
  }
}

TEST(LogReader, FillsWhatIsAskedForUntilTheEnd) {
  const std::vector<RawLogEntry> records = RandomRecords(7, 12);
  MemorySource source(LogBytes(records));
  const auto reader = std::make_unique<LogReader>(source);
  ASSERT_TRUE(reader->ReadHeader().ok());
  std::array<CEventLogEntry, 3> entries;
  std::vector<std::size_t> counts;
  std::size_t at = 0;
  for (int round = 0; round < 4; ++round) {
    std::size_t got = 99;
    ASSERT_TRUE(reader->ReadRecords(entries, got).ok());
    counts.push_back(got);
    for (std::size_t i = 0; i < got; ++i) {
      EXPECT_TRUE(SameRecord(entries[i].raw(), records[at++]));
    }
  }
  EXPECT_EQ(counts, (std::vector<std::size_t>{3, 3, 1, 0}));
}

TEST(LogReader, CountsTheRecordsInFrontOfAFailure) {
  MemorySource source(LogBytes(RandomRecords(7, 13)), 19 + 5 * 512 + 1);
  const auto reader = std::make_unique<LogReader>(source);
  ASSERT_TRUE(reader->ReadHeader().ok());
  std::array<CEventLogEntry, 3> entries;
  std::size_t got = 0;
  ASSERT_TRUE(reader->ReadRecords(entries, got).ok());
  EXPECT_EQ(got, 3U);
  EXPECT_EQ(reader->ReadRecords(entries, got).error, LogFileError::kReadFailed);
  EXPECT_EQ(got, 2U);
}

TEST(AppendLogRecord, ComposesTheSameBytesAsAFile) {
  const std::vector<RawLogEntry> records = RandomRecords(2000, 14);
  const std::string bytes = Written([&](BufferedWriter& out) {
    AppendLogHeader(out);
    for (const RawLogEntry& raw : records) AppendLogRecord(raw, out);
  });
  EXPECT_TRUE(bytes == LogBytes(records));
}

}  // namespace
}  // namespace qvl
