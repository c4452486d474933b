#include "platform/exclusive_file.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <system_error>

namespace qvl {
namespace {

using Mode = ExclusiveFile::Mode;

std::string Utf8(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

// A folder of its own for every test, removed with all that is in it.
class ExclusiveFileTest : public ::testing::Test {
 protected:
  ExclusiveFileTest() {
    std::random_device random;
    do {
      folder_ = std::filesystem::temp_directory_path() /
                ("qvl_exclusive_file_" + std::to_string(random()));
    } while (!std::filesystem::create_directory(folder_));
  }
  ~ExclusiveFileTest() override {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  std::filesystem::path Path(const std::filesystem::path& name) const { return folder_ / name; }
  std::string Name(const std::filesystem::path& name) const { return Utf8(Path(name)); }

  void Put(const std::filesystem::path& name, std::string_view bytes) const {
    std::ofstream(Path(name), std::ios::binary)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  }
  std::string Get(const std::filesystem::path& name) const {
    std::ifstream stream(Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  }

  void WriteFile(const std::filesystem::path& name, Mode mode, std::string_view bytes) const {
    ExclusiveFile file;
    const Status opened = file.Open(Name(name), mode);
    ASSERT_TRUE(opened.ok()) << opened.message();
    const Status written = file.Write(bytes);
    ASSERT_TRUE(written.ok()) << written.message();
    const Status closed = file.Close();
    ASSERT_TRUE(closed.ok()) << closed.message();
  }

  std::filesystem::path folder_;
};

TEST_F(ExclusiveFileTest, OverwritingKeepsTheTail) {
  Put("a.bin", "0123456789");
  WriteFile("a.bin", Mode::kOverwrite, "abc");
  EXPECT_EQ(Get("a.bin"), "abc3456789");
}

TEST_F(ExclusiveFileTest, OverwritingGrowsAShorterFile) {
  Put("a.bin", "01");
  WriteFile("a.bin", Mode::kOverwrite, "abcdef");
  EXPECT_EQ(Get("a.bin"), "abcdef");
}

TEST_F(ExclusiveFileTest, OverwritingWithNothingLeavesTheFileAsItIs) {
  Put("a.bin", "0123456789");
  WriteFile("a.bin", Mode::kOverwrite, "");
  EXPECT_EQ(Get("a.bin"), "0123456789");
}

TEST_F(ExclusiveFileTest, ReplacingTruncates) {
  Put("a.bin", "0123456789");
  WriteFile("a.bin", Mode::kReplace, "abc");
  EXPECT_EQ(Get("a.bin"), "abc");
}

TEST_F(ExclusiveFileTest, AppendingWritesAtTheEnd) {
  Put("a.bin", "0123");
  WriteFile("a.bin", Mode::kAppend, "abc");
  WriteFile("a.bin", Mode::kAppend, "de");
  EXPECT_EQ(Get("a.bin"), "0123abcde");
}

TEST_F(ExclusiveFileTest, EveryWritingModeCreatesAMissingFile) {
  WriteFile("overwrite.bin", Mode::kOverwrite, "a");
  WriteFile("replace.bin", Mode::kReplace, "b");
  WriteFile("append.bin", Mode::kAppend, "c");
  EXPECT_EQ(Get("overwrite.bin"), "a");
  EXPECT_EQ(Get("replace.bin"), "b");
  EXPECT_EQ(Get("append.bin"), "c");
}

TEST_F(ExclusiveFileTest, WritesGoOneBehindTheOther) {
  ExclusiveFile file;
  ASSERT_TRUE(file.Open(Name("a.bin"), Mode::kOverwrite).ok());
  EXPECT_TRUE(file.Write("one,").ok());
  EXPECT_TRUE(file.Write("").ok());
  EXPECT_TRUE(file.Write("two").ok());
  EXPECT_TRUE(file.Flush().ok());
  EXPECT_TRUE(file.Close().ok());
  EXPECT_EQ(Get("a.bin"), "one,two");
}

TEST_F(ExclusiveFileTest, WritesAndReadsEveryByteAsItIs) {
  std::string all;
  for (int value = 0; value < 256; ++value) all += static_cast<char>(value);
  all += "\r\n\n\r\x1A tail";
  WriteFile("a.bin", Mode::kReplace, all);
  EXPECT_EQ(Get("a.bin"), all);

  ExclusiveFile file;
  ASSERT_TRUE(file.Open(Name("a.bin"), Mode::kRead).ok());
  std::string read(all.size() + 1, '#');
  std::size_t got = 0;
  const std::span<char> room(read);
  ASSERT_TRUE(file.Read({reinterpret_cast<std::uint8_t*>(room.data()), room.size()}, got).ok());
  EXPECT_EQ(read.substr(0, got), all);
}

TEST_F(ExclusiveFileTest, ReadsInPartsUntilNothingIsLeft) {
  Put("a.bin", "abcdefg");
  ExclusiveFile file;
  ASSERT_TRUE(file.Open(Name("a.bin"), Mode::kRead).ok());
  std::array<std::uint8_t, 4> part{};
  std::size_t got = 99;
  ASSERT_TRUE(file.Read(part, got).ok());
  EXPECT_EQ(got, 4U);
  EXPECT_EQ(part, (std::array<std::uint8_t, 4>{'a', 'b', 'c', 'd'}));
  ASSERT_TRUE(file.Read(part, got).ok());
  EXPECT_EQ(got, 3U);
  EXPECT_EQ(part, (std::array<std::uint8_t, 4>{'e', 'f', 'g', 'd'}));
  ASSERT_TRUE(file.Read(part, got).ok());
  EXPECT_EQ(got, 0U);
}

TEST_F(ExclusiveFileTest, KnowsTheLengthOfAFile) {
  Put("empty.bin", "");
  Put("a.bin", std::string(1000, 'x'));
  std::uint64_t size = 99;
  ExclusiveFile empty;
  ASSERT_TRUE(empty.Open(Name("empty.bin"), Mode::kRead).ok());
  EXPECT_TRUE(empty.Size(size).ok());
  EXPECT_EQ(size, 0U);
  ExclusiveFile file;
  ASSERT_TRUE(file.Open(Name("a.bin"), Mode::kRead).ok());
  EXPECT_TRUE(file.Size(size).ok());
  EXPECT_EQ(size, 1000U);
}

TEST_F(ExclusiveFileTest, ReadersShare) {
  Put("a.bin", "abc");
  ExclusiveFile first;
  ExclusiveFile second;
  EXPECT_TRUE(first.Open(Name("a.bin"), Mode::kRead).ok());
  EXPECT_TRUE(second.Open(Name("a.bin"), Mode::kRead).ok());
  std::array<std::uint8_t, 3> bytes{};
  std::size_t got = 0;
  EXPECT_TRUE(second.Read(bytes, got).ok());
  EXPECT_EQ(got, 3U);
  EXPECT_TRUE(first.Read(bytes, got).ok());
  EXPECT_EQ(got, 3U);
}

TEST_F(ExclusiveFileTest, AWriterKeepsEveryoneElseOut) {
  for (const Mode writer : {Mode::kOverwrite, Mode::kReplace, Mode::kAppend}) {
    ExclusiveFile first;
    ASSERT_TRUE(first.Open(Name("a.bin"), writer).ok());
    for (const Mode other : {Mode::kRead, Mode::kOverwrite, Mode::kReplace, Mode::kAppend}) {
      ExclusiveFile second;
      const Status status = second.Open(Name("a.bin"), other);
      EXPECT_FALSE(status.ok()) << static_cast<int>(writer) << ", " << static_cast<int>(other);
      EXPECT_EQ(status.message(),
                "cannot open '" + Name("a.bin") + "': another program is using the file");
    }
    EXPECT_TRUE(first.Close().ok());
  }
}

TEST_F(ExclusiveFileTest, AReaderKeepsWritersOutAndItsFileWhole) {
  Put("a.bin", "0123456789");
  ExclusiveFile reader;
  ASSERT_TRUE(reader.Open(Name("a.bin"), Mode::kRead).ok());
  for (const Mode mode : {Mode::kOverwrite, Mode::kReplace, Mode::kAppend}) {
    ExclusiveFile writer;
    const Status status = writer.Open(Name("a.bin"), mode);
    EXPECT_EQ(status.message(),
              "cannot open '" + Name("a.bin") + "': another program is using the file")
        << static_cast<int>(mode);
  }
  std::array<std::uint8_t, 16> bytes{};
  std::size_t got = 0;
  EXPECT_TRUE(reader.Read(bytes, got).ok());
  EXPECT_EQ(got, 10U);
  EXPECT_TRUE(reader.Close().ok());
  EXPECT_EQ(Get("a.bin"), "0123456789");
}

TEST_F(ExclusiveFileTest, ClosingLetsTheNextOneIn) {
  ExclusiveFile first;
  ExclusiveFile second;
  ASSERT_TRUE(first.Open(Name("a.bin"), Mode::kOverwrite).ok());
  ASSERT_FALSE(second.Open(Name("a.bin"), Mode::kOverwrite).ok());
  ASSERT_TRUE(first.Close().ok());
  EXPECT_TRUE(second.Open(Name("a.bin"), Mode::kOverwrite).ok());
  EXPECT_TRUE(second.Close().ok());
  EXPECT_TRUE(first.Open(Name("a.bin"), Mode::kRead).ok());
}

TEST_F(ExclusiveFileTest, TheDestructorLetsTheNextOneIn) {
  {
    ExclusiveFile forgotten;
    ASSERT_TRUE(forgotten.Open(Name("a.bin"), Mode::kOverwrite).ok());
  }
  ExclusiveFile next;
  EXPECT_TRUE(next.Open(Name("a.bin"), Mode::kOverwrite).ok());
}

TEST_F(ExclusiveFileTest, ClosesTwiceAndUnopened) {
  ExclusiveFile file;
  EXPECT_TRUE(file.Close().ok());
  ASSERT_TRUE(file.Open(Name("a.bin"), Mode::kReplace).ok());
  EXPECT_TRUE(file.Close().ok());
  EXPECT_TRUE(file.Close().ok());
}

TEST_F(ExclusiveFileTest, NamesAMissingFile) {
  ExclusiveFile file;
  const Status status = file.Open(Name("missing.bin"), Mode::kRead);
  EXPECT_FALSE(status.ok());
  const std::string expected = "cannot open '" + Name("missing.bin") + "': ";
  EXPECT_TRUE(status.message().starts_with(expected)) << status.message();
  EXPECT_GT(status.message().size(), expected.size());
  EXPECT_FALSE(std::filesystem::exists(Path("missing.bin")));
}

TEST_F(ExclusiveFileTest, NamesAFileInAMissingFolder) {
  for (const Mode mode : {Mode::kRead, Mode::kOverwrite, Mode::kReplace, Mode::kAppend}) {
    ExclusiveFile file;
    const std::string name = Name(std::filesystem::path("missing") / "a.bin");
    const Status status = file.Open(name, mode);
    EXPECT_FALSE(status.ok());
    EXPECT_TRUE(status.message().starts_with("cannot open '" + name + "': ")) << status.message();
  }
}

TEST_F(ExclusiveFileTest, OpensNoFolder) {
  for (const Mode mode : {Mode::kRead, Mode::kOverwrite, Mode::kReplace, Mode::kAppend}) {
    ExclusiveFile file;
    const Status status = file.Open(Utf8(folder_), mode);
    EXPECT_FALSE(status.ok()) << static_cast<int>(mode);
    EXPECT_TRUE(status.message().starts_with("cannot open '" + Utf8(folder_) + "': "))
        << status.message();
  }
}

TEST_F(ExclusiveFileTest, ReportsWritingAFileOpenedForReading) {
  Put("a.bin", "abc");
  ExclusiveFile file;
  ASSERT_TRUE(file.Open(Name("a.bin"), Mode::kRead).ok());
  const Status status = file.Write("x");
  EXPECT_TRUE(status.message().starts_with("cannot write '" + Name("a.bin") + "': "))
      << status.message();
  EXPECT_TRUE(file.Close().ok());
  EXPECT_EQ(Get("a.bin"), "abc");
}

TEST_F(ExclusiveFileTest, ReportsReadingAFileOpenedForWriting) {
  ExclusiveFile file;
  ASSERT_TRUE(file.Open(Name("a.bin"), Mode::kReplace).ok());
  std::array<std::uint8_t, 4> bytes{};
  std::size_t got = 99;
  const Status status = file.Read(bytes, got);
  EXPECT_TRUE(status.message().starts_with("cannot read '" + Name("a.bin") + "': "))
      << status.message();
  EXPECT_EQ(got, 0U);
}

TEST_F(ExclusiveFileTest, TakesFileNamesInUtf8) {
  const std::filesystem::path name(u8"Protokoll \u00FC\u00DF \u30ED\u30B0 \U0001F5C3.qvx");
  // Wine gives files names in the character set of LC_ALL; in the C locale it can name no such
  // file.
  if (!std::ofstream(Path(name)).good()) GTEST_SKIP() << "the system cannot name such a file";
  std::filesystem::remove(Path(name));
  WriteFile(name, Mode::kReplace, "abc");
  EXPECT_TRUE(std::filesystem::exists(Path(name)));
  EXPECT_EQ(Get(name), "abc");
  std::size_t files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
    EXPECT_EQ(entry.path().filename().u8string(), name.u8string());
    ++files;
  }
  EXPECT_EQ(files, 1U);

  ExclusiveFile file;
  EXPECT_TRUE(file.Open(Name(name), Mode::kRead).ok());
}

TEST_F(ExclusiveFileTest, NamesAFileInUtf8InItsMessages) {
  const std::filesystem::path name(u8"fehlt \u00FC\u30ED.qvx");
  ExclusiveFile file;
  const Status status = file.Open(Name(name), Mode::kRead);
  EXPECT_TRUE(status.message().starts_with("cannot open '" + Name(name) + "': "))
      << status.message();
}

}  // namespace
}  // namespace qvl
