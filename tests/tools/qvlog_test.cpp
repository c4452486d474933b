#include "tools/qvlog/qvlog.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "files/additional_exports.h"
#include "files/csv_export.h"
#include "tests/fakes/console.h"
#include "tests/files/file_fixtures.h"
#include "tests/support/golden.h"
#include "tools/qvlog/command_line.h"
#include "tools/qvlog/visible_text.h"
#include "tools/sample/sample_log.h"

namespace qvl {
namespace {

using testing::FakeConsole;
using testing::Record;
using testing::StringSink;
using testing::TemporaryFile;
using Arguments = std::vector<std::string>;

constexpr std::string_view kHeader = "Zelkor QVX Log v1.0";
constexpr std::string_view kHeading =
    "  Number  Update Time          Initial Time         Severity        Count  Class"
    "                       Description\n";

std::string LogBytes(const std::vector<RawLogEntry>& entries) {
  std::string bytes(kHeader);
  for (const RawLogEntry& entry : entries) {
    const std::size_t at = bytes.size();
    bytes.resize(at + 512);
    std::memcpy(bytes.data() + at, &entry, sizeof entry);
  }
  return bytes;
}

RawLogEntry Timed(RawLogEntry raw, std::uint8_t severity, std::uint32_t count, LogTime initial,
                  LogTime update) {
  raw.severity = severity;
  raw.count = count;
  raw.initialTime = initial;
  raw.updateTime = update;
  return raw;
}

RawLogEntry Note(std::uint32_t number, std::string_view text) {
  const LogTime time{20, 26, 1, 2, 3, 4};
  return Timed(Record(number, 33, 2, text), 3, 1, time, time);
}

// Four entries, seen from 2026-11-20 12:00: the second was updated a week ago to the minute and
// the third began a day ago to the minute; the fourth has no times.
std::vector<RawLogEntry> FourEntries() {
  return {
      Timed(Record(1, 33, 1, "operator"), 2, 1, {20, 25, 11, 21, 9, 43}, {20, 25, 11, 21, 9, 43}),
      Timed(Record(2, 33, 2, "Fan 3 replaced"), 6, 2, {20, 26, 11, 13, 11, 59},
            {20, 26, 11, 13, 12, 0}),
      Timed(Record(3, 3, 1, "\x02\x09"), 9, 40, {20, 26, 11, 19, 12, 0}, {20, 26, 11, 20, 8, 5}),
      Timed(Record(4, 12, 77), 15, 3, {}, {}),
  };
}

constexpr std::string_view kLine1 =
    "       1  11/21/2025 9:43 AM   11/21/2025 9:43 AM   Informational       1  Maintenance"
    "                 QVX Cleared (operator)\n";
constexpr std::string_view kLine2 =
    "       2  11/13/2026 12:00 PM  11/13/2026 11:59 AM  Repaired            2  Maintenance"
    "                 Maintenance note: Fan 3 replaced\n";
constexpr std::string_view kLine3 =
    "       3  11/20/2026 8:05 AM   11/19/2026 12:00 PM  Caution            40  Main Memory"
    "                 Corrected Memory Error threshold exceeded (Board 2, Memory Module 9)\n";
constexpr std::string_view kLine4 =
    "       4  Invalid: 0/0/0 12:00 AM  Invalid: 0/0/0 12:00 AM  Critical            3  UPS"
    "                         Unknown Event (Class 12, Code 77)\n";

// Where each entry's heading of its own would be, its number: the order of a listing.
std::string Numbers(const std::string& listing) {
  std::string numbers;
  std::size_t at = 0;
  while (at < listing.size()) {
    const std::size_t end = listing.find('\n', at);
    const std::string number = listing.substr(at, 8);
    if (!numbers.empty()) numbers += ' ';
    numbers += number.substr(number.find_first_not_of(' '));
    at = end + 1;
  }
  return numbers;
}

// What a run leaves on the console.
struct Result {
  int status;
  std::string output;
  std::string error;
};

Result Qvlog(const Arguments& arguments, std::string input = {}) {
  FakeConsole console(std::move(input));
  const int status = console.Run(arguments);
  return {status, console.output.bytes(), console.error.bytes()};
}

// The numbers that `list` shows of the four entries; fails on any message.
std::string Listed(Arguments options) {
  options.insert(options.begin(), {"list", "--no-header"});
  options.emplace_back("-");
  const Result result = Qvlog(options, LogBytes(FourEntries()));
  EXPECT_EQ(result.status, 0) << result.error;
  EXPECT_EQ(result.error, "");
  return Numbers(result.output);
}

// A log file in the folder for temporary files.
class LogOnDisk : public TemporaryFile {
 public:
  explicit LogOnDisk(const std::vector<RawLogEntry>& entries) : TemporaryFile(".qvx") {
    Write(LogBytes(entries));
  }
};

std::string Lines(std::initializer_list<std::string_view> lines) {
  std::string text;
  for (const std::string_view line : lines) text += line;
  return text;
}

bool Contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

// ---- The command line ----

TEST(QvlogCommandLine, AnOptionWithoutItsValueIsAMistake) {
  const Result result = Qvlog({"list", "--text=", "a.qvx"});
  EXPECT_EQ(result.status, 2);
  EXPECT_TRUE(Contains(result.error, "'--text=' has no value")) << result.error;
}

TEST(QvlogCommandLine, AnEqualsSignInsideAValueIsKept) {
  EXPECT_EQ(Qvlog({"list", "--text==", "-"}, LogBytes(FourEntries())).status, 0);
}

TEST(QvlogCommandLine, StandardInputIsReadOnlyOnce) {
  const Result result = Qvlog({"list", "-", "-"}, LogBytes(FourEntries()));
  EXPECT_EQ(result.status, 2);
  EXPECT_TRUE(Contains(result.error, "only once")) << result.error;
}

TEST(QvlogCommandLine, ANameInBracketsIsAName) {
  const Result result = Qvlog({"list", "[missing]"});
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(Contains(result.error, "[missing]")) << result.error;
}

TEST(QvlogCommandLine, WhatIsNoFileKeepsItsBrackets) {
  const auto parsed = [](const std::vector<std::string>& arguments) {
    return ParseCommandLine(arguments).run.value_or(CommandLine{});
  };
  EXPECT_EQ(parsed({"read", "[x]"}).machine, "[x]");
  EXPECT_EQ(parsed({"export", "--machine", "[x]", "a.qvx"}).machine, "[x]");
  EXPECT_EQ(parsed({"export", "-o", "[x]", "a.qvx"}).output, "[x]");
  const CommandLine list = parsed({"list", "--text", "[a,b]", "--no-header", "[a,b]", "[c]"});
  EXPECT_EQ(list.selection.text, "[a,b]");
  EXPECT_EQ(list.files, (std::vector<std::string>{"./[a,b]", "./[c]"}));
  EXPECT_EQ(parsed({"list", "--", "--text", "[a,b]"}).files,
            (std::vector<std::string>{"--text", "./[a,b]"}));
  const Result result = Qvlog({"list", "--class", "[x]", "a.qvx"});
  EXPECT_TRUE(Contains(result.error, "'[x]' is not one of")) << result.error;
}

TEST(QvlogCommandLine, ANameThatBeginsWithASlashIsAName) {
  const Result result = Qvlog({"list", "/missing/folder/a.qvx"});
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(Contains(result.error, "/missing/folder/a.qvx")) << result.error;
}

TEST(QvlogCommandLine, AMessageShowsTheControlCharactersOfAName) {
  const Result result = Qvlog({"list", "no\x1B[2Jsuch.qvx"});
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(Contains(result.error, "no\\x1B[2Jsuch.qvx")) << result.error;
}

TEST(QvlogList, FindsTextThatIsNotUtf8AsItIsShown) {
  const std::string log = LogBytes({Note(1, "caf\xE9")});
  EXPECT_TRUE(Contains(Qvlog({"list", "--text", "caf\xC3\xA9", "-"}, log).output, "caf\xC3\xA9"));
}

// The arguments of a text that separates them with bars.
Arguments Split(std::string_view text) {
  Arguments arguments;
  while (!text.empty()) {
    const std::size_t bar = std::min(text.find('|'), text.size());
    arguments.emplace_back(text.substr(0, bar));
    text.remove_prefix(std::min(bar + 1, text.size()));
  }
  return arguments;
}

TEST(QvlogCommandLine, MistakesAreMessagesAndStatusTwo) {
  for (const char* const text :
       {"", "frobnicate", "--frobnicate", "list", "show", "show|3", "show|three|-", "show|3x|-",
        "show|-1|-", "show|+1|-", "show|0x1|-", "show|4294967296|-", "info", "export",
        "list|--frobnicate|-", "list|--class|Toaster|-", "list|--class|Main|-", "list|--class||-",
        // Classes that the choice list leaves out on purpose.
        "list|--class|Infrastructure Environment|-", "list|--class|KTB|-", "list|--class|Empty|-",
        "list|--severity|Fatal|-", "list|--updated|Since Tomorrow|-", "list|--initial|Yesterday|-",
        "list|--since|20 November|-", "list|--until|2026-02-30|-", "list|--sort|code|-",
        "list|--sort|count:down|-", "list|--class|UPS|--class|CPU|-", "list|--format|csv|-",
        "export|--format|xml|-", "export|--no-header|-", "show|--class|UPS|1|-",
        "info|--sort|number|-", "sample|file.qvx", "sample|--entries|many",
        "sample|--entries|4294967296", "sample|--seed|1.5", "describe|file.txt", "list|--sort"}) {
    const Result result = Qvlog(Split(text), LogBytes(FourEntries()));
    EXPECT_EQ(result.status, 2) << text;
    EXPECT_EQ(result.output, "") << text;
    EXPECT_TRUE(result.error.starts_with("qvlog: ")) << text << ": " << result.error;
  }
}

TEST(QvlogCommandLine, HelpAndVersionAreData) {
  for (const char* const text :
       {"--help", "-h", "list|--help", "show|--help", "info|--help", "export|-h", "describe|--help",
        "sample|--help", "read|--help", "list|-h|x.qvx"}) {
    const Result result = Qvlog(Split(text));
    EXPECT_EQ(result.status, 0) << text;
    EXPECT_EQ(result.error, "") << text;
    EXPECT_TRUE(Contains(result.output, "Usage: qvlog")) << result.output;
  }
  const Result version = Qvlog({"--version"});
  EXPECT_EQ(version.status, 0);
  EXPECT_TRUE(version.output.starts_with("qvlog ")) << version.output;
  EXPECT_TRUE(version.output.ends_with("\n")) << version.output;
  EXPECT_EQ(version.error, "");
}

TEST(QvlogCommandLine, TheVersionIsToldBehindACommandToo) {
  const std::string version = Qvlog({"--version"}).output;
  for (const char* const text : {"list|--version", "read|--version", "--version|list|-"}) {
    const Result result = Qvlog(Split(text));
    EXPECT_EQ(result.status, 0) << text << ": " << result.error;
    EXPECT_EQ(result.output, version) << text;
  }
}

TEST(QvlogCommandLine, HelpNamesEveryCommandAndOption) {
  const std::string all = Qvlog({"--help"}).output;
  for (const char* const name : {"list", "show", "info", "export", "describe", "sample", "read"}) {
    EXPECT_TRUE(Contains(all, std::string("\n  ") + name + " ")) << name;
  }
  const std::string list = Qvlog({"list", "--help"}).output;
  for (const char* const name : {"--class", "--severity", "--updated", "--initial", "--since",
                                 "--until", "--text", "--sort", "--no-header"}) {
    EXPECT_TRUE(Contains(list, name)) << name;
  }
  // Braces are the argument parser's own notation and tell a user nothing.
  EXPECT_FALSE(Contains(list, "{")) << list;
}

TEST(QvlogCommandLine, AMistakenChoiceIsAnsweredWithTheChoices) {
  const std::string classes = Qvlog({"list", "--class", "Toaster", "-"}).error;
  EXPECT_TRUE(Contains(classes, "Toaster")) << classes;
  EXPECT_TRUE(Contains(classes, "Unrecoverable System Error")) << classes;
  const std::string formats = Qvlog({"export", "--format", "xml", "-"}).error;
  for (const char* const format : {"xml", "csv", "strict-csv", "jsonl", "report"}) {
    EXPECT_TRUE(Contains(formats, format)) << formats;
  }
}

TEST(QvlogCommandLine, AFormatHasANameAndNoNumber) {
  for (const char* const format : {"0", "1", "3", "4"}) {
    EXPECT_EQ(Qvlog({"export", "--format", format, "-"}, LogBytes({})).status, 2) << format;
  }
}

TEST(QvlogCommandLine, HelpThatCannotBeWrittenIsAFailure) {
  FakeConsole console;
  console.output.FailAfter(10);
  EXPECT_EQ(console.Run({"--help"}), 1);
  EXPECT_EQ(console.error.bytes(), "qvlog: the tape is full\n");
}

TEST(QvlogCommandLine, ABrokenErrorStreamChangesNothingElse) {
  FakeConsole console(LogBytes(FourEntries()));
  console.error.FailAfter(0);
  const TemporaryFile missing(".qvx");
  EXPECT_EQ(console.Run({"list", missing.path(), "-"}), 1);
  EXPECT_EQ(console.output.bytes(), Lines({kHeading, kLine1, kLine2, kLine3, kLine4}));
}

// ---- list ----

TEST(QvlogList, ShowsOneLineAnEntry) {
  const Result result = Qvlog({"list", "-"}, LogBytes(FourEntries()));
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output, Lines({kHeading, kLine1, kLine2, kLine3, kLine4}));
  EXPECT_EQ(result.error, "");
}

TEST(QvlogList, LeavesTheHeadingOut) {
  const Result result = Qvlog({"list", "--no-header", "-"}, LogBytes(FourEntries()));
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output, Lines({kLine1, kLine2, kLine3, kLine4}));
}

TEST(QvlogList, AnEmptyLogIsAHeadingAndASuccess) {
  const Result result = Qvlog({"list", "-"}, std::string(kHeader));
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output, kHeading);
  EXPECT_EQ(result.error, "");
  EXPECT_EQ(Qvlog({"list", "--no-header", "--sort", "count", "-"}, std::string(kHeader)).output,
            "");
}

TEST(QvlogList, IgnoresAPartialLastRecord) {
  for (const std::size_t extra : {1U, 255U, 256U, 511U}) {
    const Result result =
        Qvlog({"list", "--no-header", "-"}, LogBytes(FourEntries()) + std::string(extra, 'x'));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, Lines({kLine1, kLine2, kLine3, kLine4}));
    EXPECT_EQ(result.error, "");
  }
}

TEST(QvlogList, ReadsSeveralFilesUnderOneHeading) {
  const std::vector<RawLogEntry> entries = FourEntries();
  const LogOnDisk first({entries[0], entries[1]});
  const LogOnDisk second({entries[2]});
  const Result result = Qvlog({"list", first.path(), "-", second.path()}, LogBytes({entries[3]}));
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output, Lines({kHeading, kLine1, kLine2, kLine4, kLine3}));
  EXPECT_EQ(result.error, "");
}

TEST(QvlogList, AMissingFileIsReportedAndTheOthersAreListed) {
  const std::vector<RawLogEntry> entries = FourEntries();
  const LogOnDisk first({entries[0]});
  const TemporaryFile missing(".qvx");
  const LogOnDisk last({entries[2]});
  const Result result = Qvlog({"list", first.path(), missing.path(), last.path()});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.output, Lines({kHeading, kLine1, kLine3}));
  EXPECT_TRUE(result.error.starts_with("qvlog: cannot open '" + missing.path() + "': "))
      << result.error;
  EXPECT_FALSE(missing.Exists());
}

TEST(QvlogList, NothingReadableIsNotEvenAHeading) {
  const TemporaryFile missing(".qvx");
  const Result result = Qvlog({"list", missing.path()});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.output, "");
}

TEST(QvlogList, WhatIsNoLogIsReported) {
  const std::string lowerCase = "Zelkor qvx Log v1.0";
  for (const std::string& bytes : {std::string(), std::string("Zelkor QVX Log v1."), lowerCase,
                                   lowerCase + std::string(512, '\0'), std::string(4096, '\xFF')}) {
    const Result result = Qvlog({"list", "-"}, bytes);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.error, "qvlog: standard input: not a Quarvel Log file\n");
  }
  TemporaryFile text(".qvx");
  text.Write("Dear diary");
  EXPECT_EQ(Qvlog({"list", text.path()}).error,
            "qvlog: " + text.path() + ": not a Quarvel Log file\n");
}

TEST(QvlogList, AFolderIsReported) {
  const std::string folder = std::filesystem::temp_directory_path().string();
  const Result result = Qvlog({"list", folder});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.output, "");
  EXPECT_TRUE(Contains(result.error, folder)) << result.error;
}

TEST(QvlogList, ASourceThatFailsKeepsWhatCameBefore) {
  for (const bool sorted : {false, true}) {
    FakeConsole console(LogBytes(FourEntries()));
    console.input.FailAfter(kHeader.size() + 2 * 512 + 100);
    Arguments arguments = {"list", "--no-header", "-"};
    if (sorted) arguments.insert(arguments.end(), {"--sort", "number:desc"});
    EXPECT_EQ(console.Run(arguments), 1);
    EXPECT_EQ(console.output.bytes(), sorted ? Lines({kLine2, kLine1}) : Lines({kLine1, kLine2}));
    EXPECT_EQ(console.error.bytes(), "qvlog: standard input: the cable was pulled\n");
  }
}

TEST(QvlogList, ASourceThatFailsInTheHeaderListsNothing) {
  FakeConsole console(LogBytes(FourEntries()));
  console.input.FailAfter(7);
  EXPECT_EQ(console.Run({"list", "-"}), 1);
  EXPECT_EQ(console.output.bytes(), "");
  EXPECT_EQ(console.error.bytes(), "qvlog: standard input: the cable was pulled\n");
}

TEST(QvlogList, ASinkThatFailsIsReportedOnceAndEndsTheReading) {
  for (const bool sorted : {false, true}) {
    FakeConsole console(LogBytes(std::vector<RawLogEntry>(20000, FourEntries()[2])));
    console.output.FailAfter(100);
    Arguments arguments = {"list", "-"};
    if (sorted) arguments.insert(arguments.end(), {"--sort", "count"});
    EXPECT_EQ(console.Run(arguments), 1);
    EXPECT_EQ(console.output.bytes().size(), 100U);
    EXPECT_EQ(console.error.bytes(), "qvlog: the tape is full\n");
    EXPECT_EQ(console.output.writes(), 1U);
  }
}

// A terminal obeys what it is sent, and firmware sends anything.
TEST(QvlogList, WritesDescriptionsVisibly) {
  const Result result = Qvlog({"list", "--no-header", "-"},
                              LogBytes({Note(1, "a\nb\tc\x1B[2J"), Note(2, "caf\xE9 \x93hot\x94"),
                                        Note(3,
                                             "\xC2\x9B"
                                             "2J\x7F")}));
  EXPECT_EQ(result.status, 0);
  EXPECT_TRUE(Contains(result.output, "Maintenance note: a\\nb\\tc\\x1B[2J\n")) << result.output;
  EXPECT_TRUE(Contains(result.output, "caf\xC3\xA9 \xE2\x80\x9Chot\xE2\x80\x9D\n"))
      << result.output;
  EXPECT_TRUE(Contains(result.output, "Maintenance note: \\x9B2J\\x7F\n")) << result.output;
  EXPECT_EQ(Numbers(result.output), "1 2 3");
}

TEST(QvlogList, RandomRecordsAreOnlyEntries) {
  std::mt19937 random(5);
  std::vector<RawLogEntry> entries;
  for (int i = 0; i < 500; ++i) entries.push_back(testing::RandomRecord(random));
  for (std::size_t i = 0; i < entries.size(); i += 2) {
    entries[i].eventClass = static_cast<std::uint16_t>(i % 40);
  }
  for (const char* const column : {"", "number", "description", "class", "severity", "count"}) {
    Arguments arguments = {"list", "--no-header", "-"};
    if (*column != '\0') arguments.insert(arguments.end(), {"--sort", column});
    const Result result = Qvlog(arguments, LogBytes(entries));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(std::count(result.output.begin(), result.output.end(), '\n'), 500);
  }
}

// Notes what the program has written whenever it wants more to read.
class WatchfulSource : public ByteSource {
 public:
  WatchfulSource(std::string bytes, const StringSink& sink)
      : source_(std::move(bytes)), sink_(sink) {}

  Status Read(std::span<std::uint8_t> into, std::size_t& got) override {
    writtenAtLastRead_ = sink_.bytes().size();
    return source_.Read(into, got);
  }
  std::size_t writtenAtLastRead() const { return writtenAtLastRead_; }

 private:
  testing::StringSource source_;
  const StringSink& sink_;
  std::size_t writtenAtLastRead_ = 0;
};

std::size_t WrittenAtLastRead(const Arguments& arguments) {
  StringSink output;
  StringSink error;
  WatchfulSource input(LogBytes(std::vector<RawLogEntry>(20000, FourEntries()[2])), output);
  Console console{input, output, error, 0};
  EXPECT_EQ(RunQvlog(arguments, console), 0);
  return input.writtenAtLastRead();
}

TEST(QvlogList, OnlyASortWaitsForTheWholeLog) {
  EXPECT_GT(WrittenAtLastRead({"list", "-"}), 1000000U);
  EXPECT_GT(WrittenAtLastRead({"export", "--format", "jsonl", "-"}), 1000000U);
  EXPECT_EQ(WrittenAtLastRead({"list", "--sort", "count", "-"}), 0U);
}

// ---- Filters and sorts ----

TEST(QvlogFilter, ByClass) {
  EXPECT_EQ(Listed({"--class", "Maintenance"}), "1 2");
  EXPECT_EQ(Listed({"--class", "UPS"}), "4");
  EXPECT_EQ(Listed({"--class", "CPU"}), "");
  EXPECT_EQ(Listed({"--class", "(All)"}), "1 2 3 4");
  EXPECT_EQ(Listed({"--class", "main memory"}), "3");
}

TEST(QvlogFilter, TakesEveryChoiceThatTheViewerOffers) {
  for (const char* const name : {"Internal Test",
                                 "Machine Environment",
                                 "Main Memory",
                                 "Cache Memory",
                                 "CPU",
                                 "Host Bus",
                                 "EISA Bus",
                                 "PCI Bus",
                                 "Expansion Slot",
                                 "POST Messages",
                                 "Power Subsystem",
                                 "UPS",
                                 "Automatic Server Recovery",
                                 "Operating System",
                                 "Diagnostics",
                                 "Network Adapter",
                                 "SCSI Subsystem",
                                 "Drive Array Subsystem",
                                 "System Revision",
                                 "Unrecoverable System Error",
                                 "Maintenance"}) {
    EXPECT_EQ(Qvlog({"list", "--class", name, "-"}, LogBytes({})).status, 0) << name;
  }
}

TEST(QvlogFilter, BySeverity) {
  EXPECT_EQ(Listed({"--severity", "Critical"}), "4");
  EXPECT_EQ(Listed({"--severity", "CAUTION"}), "3");
  EXPECT_EQ(Listed({"--severity", "Repaired"}), "2");
  EXPECT_EQ(Listed({"--severity", "Informational"}), "1");
  // Both informational codes share the name.
  EXPECT_EQ(Numbers(Qvlog({"list", "--no-header", "--severity", "Informational", "-"},
                          LogBytes({Note(8, "x"), FourEntries()[0], FourEntries()[3]}))
                        .output),
            "8 1");
}

TEST(QvlogFilter, ByUpdateTimeBackFromNow) {
  EXPECT_EQ(Listed({"--updated", "Since Yesterday"}), "3");
  EXPECT_EQ(Listed({"--updated", "Since Last Week"}), "2 3");
  EXPECT_EQ(Listed({"--updated", "Since Last Month"}), "2 3");
  EXPECT_EQ(Listed({"--updated", "Since Last 6 Months"}), "2 3");
  // The first entry is 364 days and some hours old.
  EXPECT_EQ(Listed({"--updated", "since last year"}), "1 2 3");
  EXPECT_EQ(Listed({"--updated", "(All)"}), "1 2 3 4");
}

TEST(QvlogFilter, ByInitialTimeBackFromNow) {
  EXPECT_EQ(Listed({"--initial", "Since Yesterday"}), "3");
  EXPECT_EQ(Listed({"--initial", "Since Last Week"}), "3");
  EXPECT_EQ(Listed({"--initial", "Since Last Month"}), "2 3");
}

TEST(QvlogFilter, TheMomentOfTheRunDecides) {
  FakeConsole console(LogBytes(FourEntries()));
  console.now += 60;
  EXPECT_EQ(console.Run({"list", "--no-header", "--updated", "Since Last Week", "-"}), 0);
  EXPECT_EQ(Numbers(console.output.bytes()), "3");
}

TEST(QvlogFilter, SinceAndUntilIncludeTheirMinute) {
  EXPECT_EQ(Listed({"--since", "2026-11-20T08:05"}), "3");
  EXPECT_EQ(Listed({"--since", "2026-11-20 08:06"}), "");
  EXPECT_EQ(Listed({"--until", "2026-11-13T12:00"}), "1 2");
  EXPECT_EQ(Listed({"--until", "2026-11-13T11:59"}), "1");
  EXPECT_EQ(Listed({"--since", "2026-11-13", "--until", "2026-11-13"}), "2");
  EXPECT_EQ(Listed({"--since", "2026-11-20", "--until", "2026-11-13"}), "");
}

TEST(QvlogFilter, AMissingTimeLiesInNoSpan) {
  EXPECT_EQ(Listed({"--since", "1601-01-01"}), "1 2 3");
  EXPECT_EQ(Listed({"--until", "9999-12-31"}), "1 2 3");
}

TEST(QvlogFilter, ByTextOfTheDescription) {
  EXPECT_EQ(Listed({"--text", "replaced"}), "2");
  EXPECT_EQ(Listed({"--text", "EXCEEDED (board"}), "3");
  EXPECT_EQ(Listed({"--text", "m"}), "2 3");
  EXPECT_EQ(Listed({"--text", "toaster"}), "");
  EXPECT_EQ(Listed({"--text", ""}), "1 2 3 4");
  // The class's name is no part of the description, and the text is no pattern.
  EXPECT_EQ(Listed({"--text", "Main Memory"}), "");
  EXPECT_EQ(Listed({"--text", "Fan.*"}), "");
}

TEST(QvlogFilter, AllCriteriaMustHold) {
  EXPECT_EQ(Listed({"--class", "Maintenance", "--severity", "Repaired"}), "2");
  EXPECT_EQ(Listed({"--class", "Maintenance", "--severity", "Critical"}), "");
  EXPECT_EQ(Listed({"--class", "Maintenance", "--until", "2026-01-01", "--text", "cleared"}), "1");
}

TEST(QvlogSort, ByEveryColumn) {
  EXPECT_EQ(Listed({"--sort", "number"}), "1 2 3 4");
  EXPECT_EQ(Listed({"--sort", "number:desc"}), "4 3 2 1");
  EXPECT_EQ(Listed({"--sort", "description"}), "3 2 1 4");
  EXPECT_EQ(Listed({"--sort", "description:desc"}), "4 1 2 3");
  EXPECT_EQ(Listed({"--sort", "class"}), "3 1 2 4");
  EXPECT_EQ(Listed({"--sort", "class:desc"}), "4 2 1 3");
  EXPECT_EQ(Listed({"--sort", "severity"}), "1 2 3 4");
  EXPECT_EQ(Listed({"--sort", "severity:desc"}), "4 3 2 1");
  EXPECT_EQ(Listed({"--sort", "count:asc"}), "1 2 4 3");
  EXPECT_EQ(Listed({"--sort", "count:desc"}), "3 4 2 1");
  EXPECT_EQ(Listed({"--sort", "updated"}), "4 1 2 3");
  EXPECT_EQ(Listed({"--sort", "updated:desc"}), "3 2 1 4");
  EXPECT_EQ(Listed({"--sort", "initial"}), "4 1 2 3");
  EXPECT_EQ(Listed({"--sort", "initial:desc"}), "3 2 1 4");
}

TEST(QvlogSort, OrdersWhatTheFilterLeaves) {
  EXPECT_EQ(Listed({"--sort", "count:desc", "--updated", "Since Last Year"}), "3 2 1");
}

TEST(QvlogSort, MixesTheFiles) {
  const LogOnDisk first({Note(5, "b"), Note(7, "d")});
  const LogOnDisk second({Note(6, "c"), Note(4, "a"), Note(6, "c again")});
  const Result result =
      Qvlog({"list", "--no-header", "--sort", "number", first.path(), second.path()});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(Numbers(result.output), "4 5 6 6 7");
  EXPECT_LT(result.output.find("note: c\n"), result.output.find("note: c again\n"));
}

// ---- show ----

TEST(QvlogShow, ShowsEveryFieldAndEveryByte) {
  RawLogEntry raw = FourEntries()[2];
  raw.reserved0 = {0x0A, 0xFF};
  raw.reserved6 = 0x7B;
  raw.data[20] = '~';
  raw.data[227] = 'z';
  std::string expected =
      "Number        : 3\n"
      "Description   : Corrected Memory Error threshold exceeded (Board 2, Memory Module 9)\n"
      "Class         : 3 (Main Memory)\n"
      "Code          : 1\n"
      "Severity      : 9 (Caution)\n"
      "Count         : 40\n"
      "Update Time   : 11/20/2026 8:05 AM\n"
      "Initial Time  : 11/19/2026 12:00 PM\n"
      "Reserved 0-1  : 0A FF\n"
      "Reserved 6    : 7B\n"
      "Data\n"
      "    0  02 09 00 00 00 00 00 00 00 00 00 00 00 00 00 00  |................|\n"
      "   16  00 00 00 00 7E 00 00 00 00 00 00 00 00 00 00 00  |....~...........|\n";
  for (int offset = 32; offset < 224; offset += 16) {
    expected += (offset < 100 ? "   " : "  ") + std::to_string(offset) +
                "  00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00  |................|\n";
  }
  expected += "  224  00 00 00 7A                                      |...z|\n";
  const Result result = Qvlog({"show", "3", "-"}, LogBytes({FourEntries()[0], raw}));
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output, expected);
  EXPECT_EQ(result.error, "");
}

TEST(QvlogShow, NamesAreLeftOutWhereThereAreNone) {
  RawLogEntry raw = Record(4294967295U, 16, 65535);
  raw.severity = 7;
  raw.count = 4294967295U;
  const Result result = Qvlog({"show", "4294967295", "-"}, LogBytes({raw}));
  EXPECT_EQ(result.status, 0);
  EXPECT_TRUE(
      result.output.starts_with("Number        : 4294967295\n"
                                "Description   : Unknown Event (Class 16, Code 65535)\n"
                                "Class         : 16\n"
                                "Code          : 65535\n"
                                "Severity      : 7\n"
                                "Count         : -1\n"
                                "Update Time   : Invalid: 0/0/0 12:00 AM\n"))
      << result.output;
}

TEST(QvlogShow, WritesTheDescriptionVisibly) {
  const Result result = Qvlog({"show", "1", "-"}, LogBytes({Note(1, "a\nb\x1B")}));
  EXPECT_TRUE(Contains(result.output, "Description   : Maintenance note: a\\nb\\x1B\n"))
      << result.output;
}

TEST(QvlogShow, ANumberThatRepeatsShowsEachEntry) {
  const LogOnDisk first({Note(7, "new"), Note(8, "other"), Note(7, "old")});
  const LogOnDisk second({Note(7, "elsewhere")});
  const Result result = Qvlog({"show", "7", first.path(), second.path()});
  EXPECT_EQ(result.status, 0);
  const std::size_t fresh = result.output.find("note: new\n");
  const std::size_t old = result.output.find(
      "\n\nNumber        : 7\nDescription   : Maintenance "
      "note: old\n");
  const std::size_t elsewhere =
      result.output.find("\n\nNumber        : 7\nDescription   : Maintenance note: elsewhere\n");
  EXPECT_LT(fresh, old);
  EXPECT_LT(old, elsewhere);
  EXPECT_NE(elsewhere, std::string::npos);
  EXPECT_FALSE(Contains(result.output, "other"));
}

TEST(QvlogShow, ANumberThatNoEntryHasIsAFailure) {
  const Result result = Qvlog({"show", "5", "-"}, LogBytes(FourEntries()));
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.output, "");
  EXPECT_EQ(result.error, "qvlog: no entry has the number 5\n");
}

TEST(QvlogShow, AFileThatCannotBeReadDoesNotHideTheEntryOfAnother) {
  const TemporaryFile missing(".qvx");
  const Result result = Qvlog({"show", "1", missing.path(), "-"}, LogBytes(FourEntries()));
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(result.output.starts_with("Number        : 1\n")) << result.output;
  EXPECT_TRUE(Contains(result.error, missing.path())) << result.error;
  // Nobody knows what the missing file holds, so its message stands alone.
  const Result none = Qvlog({"show", "9", missing.path(), "-"}, LogBytes(FourEntries()));
  EXPECT_EQ(none.status, 1);
  EXPECT_FALSE(Contains(none.error, "no entry")) << none.error;
}

TEST(QvlogShow, ReadsItsNumberAsDecimal) {
  const std::string log = LogBytes({Note(8, "eight"), Note(10, "ten")});
  const Result result = Qvlog({"show", "010", "-"}, log);
  EXPECT_EQ(result.status, 0);
  EXPECT_TRUE(Contains(result.output, "note: ten\n")) << result.output;
}

TEST(QvlogShow, ASinkThatFailsIsReported) {
  FakeConsole console(LogBytes(FourEntries()));
  console.output.FailAfter(3);
  EXPECT_EQ(console.Run({"show", "1", "-"}), 1);
  EXPECT_EQ(console.error.bytes(), "qvlog: the tape is full\n");
}

// ---- info ----

TEST(QvlogInfo, CountsAndNamesTheSpanOfTime) {
  const Result result = Qvlog({"info", "-"}, LogBytes(FourEntries()));
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output,
            "standard input\n"
            "  Entries                              4\n"
            "  First time: 11/21/2025 9:43 AM\n"
            "  Last time:  11/20/2026 8:05 AM\n"
            "\n"
            "  By severity\n"
            "    Critical                           1\n"
            "    Caution                            1\n"
            "    Repaired                           1\n"
            "    Informational                      1\n"
            "\n"
            "  By class\n"
            "    Main Memory                        1\n"
            "    UPS                                1\n"
            "    Maintenance                        2\n"
            "\n"
            "  Entry numbers 1 to 4, rising\n");
  EXPECT_EQ(result.error, "");
}

TEST(QvlogInfo, JoinsTheTwoInformationalCodesAndKeepsNamelessOnes) {
  std::vector<RawLogEntry> entries = {Note(1, ""), Note(2, ""), Note(3, ""), Record(4, 16, 1),
                                      Record(5, 65535, 1)};
  entries[0].severity = 2;
  entries[3].severity = 7;
  const std::string info = Qvlog({"info", "-"}, LogBytes(entries)).output;
  EXPECT_TRUE(Contains(info, "\n    Informational                      3\n")) << info;
  const std::string nameless = "    (no name)                          2\n";
  EXPECT_TRUE(Contains(info, nameless + "\n  By class\n")) << info;
  EXPECT_TRUE(Contains(info, nameless + "\n  Entry numbers")) << info;
}

TEST(QvlogInfo, AnEmptyLogHasNoEntriesAndNothingElse) {
  const Result result = Qvlog({"info", "-"}, std::string(kHeader));
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output, "standard input\n  Entries                              0\n");
}

TEST(QvlogInfo, EntriesWithoutTimesHaveNoSpan) {
  const std::string info = Qvlog({"info", "-"}, LogBytes({FourEntries()[3]})).output;
  EXPECT_FALSE(Contains(info, "time")) << info;
  EXPECT_TRUE(Contains(info, "\n  Entry numbers 4 to 4, rising\n")) << info;
}

TEST(QvlogInfo, NumbersMayHaveGaps) {
  const std::string info =
      Qvlog({"info", "-"}, LogBytes({Note(10, ""), Note(12, ""), Note(4000000000U, "")})).output;
  EXPECT_TRUE(info.ends_with("\n  Entry numbers 10 to 4000000000, rising\n")) << info;
}

// A short log that was saved over a longer one ends in the longer one's tail.
TEST(QvlogInfo, NoticesNumbersThatFallBack) {
  const std::string info =
      Qvlog({"info", "-"}, LogBytes({Note(8, ""), Note(9, ""), Note(3, ""), Note(4, "")})).output;
  EXPECT_TRUE(info.ends_with(
      "\n  Entry numbers 3 to 9\n"
      "    Repeated                           0\n"
      "    Fallen back                        2\n"
      "    First: entry 3 follows entry 9 at position 3\n"
      "    The file may end in the tail of an older, longer log that it was saved over.\n"))
      << info;
}

TEST(QvlogInfo, NoticesNumbersThatRepeat) {
  const std::string info =
      Qvlog({"info", "-"}, LogBytes({Note(5, ""), Note(5, ""), Note(5, ""), Note(6, "")})).output;
  EXPECT_TRUE(Contains(info,
                       "\n  Entry numbers 5 to 6\n"
                       "    Repeated                           2\n"
                       "    Fallen back                        0\n"
                       "    First: entry 5 follows entry 5 at position 2\n"))
      << info;
}

TEST(QvlogInfo, EachFileIsCountedForItself) {
  const LogOnDisk first({Note(5, ""), Note(6, "")});
  const TemporaryFile missing(".qvx");
  const LogOnDisk second({Note(5, "")});
  const Result result = Qvlog({"info", first.path(), missing.path(), second.path()});
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(
      result.output.starts_with(first.path() + "\n  Entries                              2\n"))
      << result.output;
  EXPECT_TRUE(Contains(result.output, "\n  Entry numbers 5 to 6, rising\n\n" + second.path() +
                                          "\n  Entries                              1\n"))
      << result.output;
  EXPECT_FALSE(Contains(result.output, missing.path())) << result.output;
  EXPECT_TRUE(Contains(result.error, missing.path())) << result.error;
}

TEST(QvlogInfo, ASourceThatFailsIsCountedAsFarAsItCame) {
  FakeConsole console(LogBytes(FourEntries()));
  console.input.FailAfter(kHeader.size() + 3 * 512 - 1);
  EXPECT_EQ(console.Run({"info", "-"}), 1);
  EXPECT_TRUE(Contains(console.output.bytes(), "Entries                              2\n"));
  EXPECT_EQ(console.error.bytes(), "qvlog: standard input: the cable was pulled\n");
}

TEST(QvlogInfo, ASinkThatFailsIsReported) {
  FakeConsole console(LogBytes(FourEntries()));
  console.output.FailAfter(3);
  EXPECT_EQ(console.Run({"info", "-"}), 1);
  EXPECT_EQ(console.error.bytes(), "qvlog: the tape is full\n");
}

// ---- export ----

std::vector<RawLogEntry> SampleEntries(std::uint64_t count) {
  SampleLog log(11, count);
  std::vector<RawLogEntry> entries;
  RawLogEntry entry;
  while (log.Next(entry)) entries.push_back(entry);
  return entries;
}

TEST(QvlogExport, CsvIsTheViewersExportToTheByte) {
  std::vector<RawLogEntry> entries = SampleEntries(700);
  entries.push_back(Note(701, "a \"quoted\", divided\nnote"));
  EntryList list;
  for (const RawLogEntry& entry : entries) list.Append(entry);
  const TemporaryFile expected(".csv");
  ASSERT_TRUE(ExportCsvFile(expected.path(), "SERVER 1", list).ok());
  const std::string log = LogBytes(entries);
  const Result named = Qvlog({"export", "--format", "csv", "--machine", "SERVER 1", "-"}, log);
  EXPECT_EQ(named.status, 0);
  EXPECT_EQ(named.error, "");
  EXPECT_EQ(named.output, expected.Read());
  EXPECT_EQ(Qvlog({"export", "--machine", "SERVER 1", "-"}, log).output, named.output);
  const TemporaryFile file(".csv");
  EXPECT_EQ(Qvlog({"export", "--machine", "SERVER 1", "-o", file.path(), "-"}, log).output, "");
  EXPECT_EQ(file.Read(), named.output);
}

TEST(QvlogExport, CsvWithoutAMachine) {
  const Result result = Qvlog({"export", "-"}, LogBytes({FourEntries()[3], FourEntries()[0]}));
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output,
            "Korvath Quarvel Log Viewer:  \r\n"
            "Description,Class,Code,Severity,Count,Update Time,Initial Time\r\n"
            "\"Unknown Event (Class 12, Code 77)\",UPS,77,Critical,3,Invalid: 0/0/0 12:00 AM,"
            "Invalid: 0/0/0 12:00 AM\r\n"
            "\"QVX Cleared (operator)\",Maintenance,1,Informational,1,11/21/2025 9:43 AM,"
            "11/21/2025 9:43 AM\r\n");
}

TEST(QvlogExport, StrictCsvQuotesWhatMustBeQuoted) {
  const Result result = Qvlog({"export", "--format", "strict-csv", "-"},
                              LogBytes({Note(1, "a \"b\",\nc"), FourEntries()[3]}));
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output,
            "Number,Description,Class,Code,Severity,Count,Update Time,Initial Time\r\n"
            "1,\"Maintenance note: a \"\"b\"\",\nc\",Maintenance,2,Informational,1,"
            "2026-01-02T03:04,2026-01-02T03:04\r\n"
            "4,\"Unknown Event (Class 12, Code 77)\",UPS,77,Critical,3,,\r\n");
  EXPECT_EQ(result.error, "");
}

TEST(QvlogExport, JsonLinesHoldEveryField) {
  RawLogEntry nameless = Record(9, 16, 2, "\x01\xAB");
  nameless.severity = 7;
  const Result result =
      Qvlog({"export", "--format", "jsonl", "-"}, LogBytes({nameless, Note(10, "\"\\\n\x1B\xE9")}));
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.error, "");
  EXPECT_TRUE(result.output.starts_with(
      "{\"number\":9,\"description\":\"Unknown Event (Class 16, Code 2)\",\"class\":16,"
      "\"className\":null,\"code\":2,\"severity\":7,\"severityName\":null,\"count\":0,"
      "\"updateTime\":null,\"initialTime\":null,\"data\":\"01ab" +
      std::string(452, '0') + "\""))
      << result.output;
  EXPECT_TRUE(Contains(result.output,
                       "}\n{\"number\":10,\"description\":\"Maintenance note: "
                       "\\\"\\\\\\n\\u001b\xC3\xA9\",\"class\":33,\"className\":\"Maintenance\","
                       "\"code\":2,\"severity\":3,\"severityName\":\"Informational\",\"count\":1,"
                       "\"updateTime\":\"2026-01-02T03:04\",\"initialTime\":\"2026-01-02T03:04\","
                       "\"data\":\"225c0a1be900"))
      << result.output;
  EXPECT_TRUE(result.output.ends_with("}\n")) << result.output;
}

constexpr std::string_view kReportBlocks =
    "Corrected Memory Error threshold exceeded (Board 2, Memory Module 9)\n"
    "    Class          : Main Memory\n"
    "    Severity       : Caution\n"
    "    Count          : 40\n"
    "    Update Time    : 11/20/2026 8:05 AM\n"
    "    Initial Time   : 11/19/2026 12:00 PM\n"
    "Unknown Event (Class 12, Code 77)\n"
    "    Class          : UPS\n"
    "    Severity       : Critical\n"
    "    Count          : 3\n"
    "    Update Time    : Invalid: 0/0/0 12:00 AM\n"
    "    Initial Time   : Invalid: 0/0/0 12:00 AM\n";

TEST(QvlogExport, AReportHasSixLinesAnEntry) {
  const std::string log = LogBytes({FourEntries()[2], FourEntries()[3]});
  const Result result = Qvlog({"export", "--format", "report", "-"}, log);
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output, kReportBlocks);
}

TEST(QvlogExport, AReportOfAMachineHasAHead) {
  const std::string log = LogBytes({FourEntries()[2], FourEntries()[3]});
  const Result result = Qvlog({"export", "--format", "report", "--machine", "SERVER1", "-"}, log);
  EXPECT_EQ(result.output, Lines({"Korvath Quarvel Log Viewer - SERVER1\n"
                                  "Friday, November 20, 2026 at 12:00 PM\n",
                                  kReportBlocks}));
}

TEST(QvlogExport, AnEmptyLogHasOnlyTheHeads) {
  const std::string log(kHeader);
  EXPECT_EQ(Qvlog({"export", "--machine", "M", "-"}, log).output,
            "Korvath Quarvel Log Viewer:  M\r\n"
            "Description,Class,Code,Severity,Count,Update Time,Initial Time\r\n");
  EXPECT_EQ(Qvlog({"export", "--format", "strict-csv", "-"}, log).output,
            "Number,Description,Class,Code,Severity,Count,Update Time,Initial Time\r\n");
  for (const char* const format : {"jsonl", "report"}) {
    const Result result = Qvlog({"export", "--format", format, "-"}, log);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.error, "");
  }
}

TEST(QvlogExport, FiltersAndSorts) {
  const Result result = Qvlog({"export", "--format", "report", "--sort", "count:desc", "--class",
                               "Maintenance", "--since", "2025-11-21", "--text", "e", "-"},
                              LogBytes(FourEntries()));
  EXPECT_EQ(result.status, 0);
  const std::size_t note = result.output.find("Maintenance note: Fan 3 replaced\n");
  const std::size_t cleared = result.output.find("QVX Cleared (operator)\n");
  EXPECT_EQ(note, 0U);
  EXPECT_NE(cleared, std::string::npos);
  EXPECT_FALSE(Contains(result.output, "Memory Module"));
}

TEST(QvlogExport, SeveralFilesShareOneHead) {
  const LogOnDisk first({FourEntries()[0]});
  const LogOnDisk second({FourEntries()[3]});
  const Result result = Qvlog({"export", "--format", "strict-csv", first.path(), second.path()});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(std::count(result.output.begin(), result.output.end(), '\n'), 3);
}

TEST(QvlogExport, AMissingInputLeavesTheOutputAlone) {
  const TemporaryFile missing(".qvx");
  TemporaryFile text(".qvx");
  text.Write("no log");
  for (const char* const format : {"csv", "strict-csv", "jsonl", "report"}) {
    for (const std::string& input : {missing.path(), text.path()}) {
      TemporaryFile output(".out");
      const Arguments arguments = {"export", "--format", format, "-o", output.path(), input};
      EXPECT_EQ(Qvlog(arguments).status, 1);
      EXPECT_FALSE(output.Exists()) << format;
      output.Write("precious");
      const Result result = Qvlog(arguments);
      EXPECT_EQ(result.status, 1);
      EXPECT_EQ(result.output, "");
      EXPECT_TRUE(Contains(result.error, input)) << result.error;
      EXPECT_EQ(output.Read(), "precious") << format;
    }
  }
}

TEST(QvlogExport, AMissingInputDoesNotKeepTheOthersFromBeingExported) {
  const TemporaryFile missing(".qvx");
  const TemporaryFile output(".txt");
  const Result result =
      Qvlog({"export", "--format", "report", "-o", output.path(), missing.path(), "-"},
            LogBytes({FourEntries()[2], FourEntries()[3]}));
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(output.Read(), kReportBlocks);
  EXPECT_TRUE(Contains(result.error, missing.path())) << result.error;
}

TEST(QvlogExport, CsvKeepsTheTailOfALongerFileAndSaysSo) {
  const std::string log = LogBytes({FourEntries()[0]});
  const std::string csv = Qvlog({"export", "-"}, log).output;
  const TemporaryFile output(".csv");
  output.Write(std::string(csv.size(), 'x') + "tail\n");
  const Result result = Qvlog({"export", "-o", output.path(), "-"}, log);
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output, "");
  EXPECT_EQ(result.error,
            "qvlog: warning: '" + output.path() + "' was longer; its last 5 bytes remain\n");
  EXPECT_EQ(output.Read(), csv + "tail\n");
}

TEST(QvlogExport, NoTailIsNoWarning) {
  const std::string log = LogBytes({FourEntries()[0]});
  const std::string csv = Qvlog({"export", "-"}, log).output;
  const TemporaryFile output(".csv");
  for (const std::size_t before : {csv.size() - 1, csv.size()}) {
    output.Write(std::string(before, 'x'));
    const Result result = Qvlog({"export", "-o", output.path(), "-"}, log);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.error, "");
    EXPECT_EQ(output.Read(), csv);
  }
}

TEST(QvlogExport, TheOtherFormatsReplaceTheFile) {
  const std::string log = LogBytes({FourEntries()[0]});
  for (const char* const format : {"strict-csv", "jsonl", "report"}) {
    const TemporaryFile output(".out");
    output.Write(std::string(100000, 'x'));
    const Result result =
        Qvlog({"export", "--format", format, "--output", output.path(), "-"}, log);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.error, "");
    EXPECT_EQ(output.Read(), Qvlog({"export", "--format", format, "-"}, log).output);
  }
}

TEST(QvlogExport, AnOutputThatCannotBeOpenedIsReported) {
  const std::string folder = std::filesystem::temp_directory_path().string();
  const Result result = Qvlog({"export", "-o", folder, "-"}, LogBytes(FourEntries()));
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.output, "");
  EXPECT_TRUE(Contains(result.error, "cannot open '" + folder + "': ")) << result.error;
}

TEST(QvlogExport, NeverWritesOverALogThatItReads) {
  for (const char* const format : {"csv", "jsonl"}) {
    const LogOnDisk log(FourEntries());
    const Result result = Qvlog({"export", "--format", format, "-o", log.path(), log.path()});
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(Contains(result.error, log.path())) << result.error;
    EXPECT_TRUE(log.Read() == LogBytes(FourEntries())) << format;
  }
}

TEST(QvlogExport, NeverWritesOverALogThatItIsStillToRead) {
  for (const char* const format : {"csv", "jsonl"}) {
    const LogOnDisk first({FourEntries()[0]});
    const LogOnDisk second(FourEntries());
    const Result result =
        Qvlog({"export", "--format", format, "-o", second.path(), first.path(), second.path()});
    EXPECT_NE(result.status, 0);
    EXPECT_TRUE(Contains(result.error, second.path())) << result.error;
    EXPECT_TRUE(second.Read() == LogBytes(FourEntries())) << format << " was written over it";
  }
}

TEST(QvlogExport, ASinkThatFailsIsReported) {
  for (const char* const format : {"csv", "strict-csv", "jsonl", "report"}) {
    FakeConsole console(LogBytes(FourEntries()));
    console.output.FailAfter(20);
    EXPECT_EQ(console.Run({"export", "--format", format, "-"}), 1);
    EXPECT_EQ(console.output.bytes().size(), 20U);
    EXPECT_EQ(console.error.bytes(), "qvlog: the tape is full\n");
  }
}

TEST(QvlogExport, ASourceThatFailsKeepsWhatCameBefore) {
  FakeConsole console(LogBytes({FourEntries()[2], FourEntries()[3], FourEntries()[0]}));
  console.input.FailAfter(kHeader.size() + 3 * 512 - 1);
  EXPECT_EQ(console.Run({"export", "--format", "report", "-"}), 1);
  EXPECT_EQ(console.output.bytes(), kReportBlocks);
  EXPECT_EQ(console.error.bytes(), "qvlog: standard input: the cable was pulled\n");
}

// ---- describe ----

std::string HexLine(const RawLogEntry& entry) {
  std::array<unsigned char, sizeof entry> bytes;
  std::memcpy(bytes.data(), &entry, sizeof entry);
  std::string digits;
  for (const unsigned char byte : bytes) {
    digits += "0123456789ABCDEF"[byte / 16];
    digits += "0123456789abcdef"[byte % 16];
  }
  return digits;
}

TEST(QvlogDescribe, ReadsEveryGoldenDescription) {
  for (const std::string& file : testing::GoldenDescriptionFiles()) {
    std::string input;
    std::string expected;
    const std::vector<testing::GoldenDescription> goldens = testing::ReadGoldenDescriptions(file);
    ASSERT_FALSE(goldens.empty()) << file;
    for (const testing::GoldenDescription& golden : goldens) {
      RawLogEntry raw = Record(0, golden.eventClass, golden.code);
      raw.data = golden.data;
      input += HexLine(raw) + "\n";
      expected += EscapedBytes(golden.text) + "\n";
    }
    const Result result = Qvlog({"describe"}, input);
    EXPECT_EQ(result.status, 0) << file;
    EXPECT_EQ(result.output, expected) << file;
    EXPECT_EQ(result.error, "") << file;
  }
}

TEST(QvlogDescribe, KeepsBytesAndEscapesLineFeedsAndBackslashes) {
  const Result result = Qvlog({"describe"}, HexLine(Note(1, "a\nb\\n\xE9\t\x1B\r")) + "\n");
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output, "Maintenance note: a\\nb\\\\n\xE9\t\x1B\r\n");
}

TEST(QvlogDescribe, NothingIsNothing) {
  const Result result = Qvlog({"describe"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output, "");
  EXPECT_EQ(result.error, "");
}

TEST(QvlogDescribe, TheLastLineNeedsNoLineFeed) {
  const std::string line = HexLine(Note(1, "x"));
  const Result result = Qvlog({"describe"}, line + "\n" + line);
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output, "Maintenance note: x\nMaintenance note: x\n");
}

TEST(QvlogDescribe, LinesMayEndWithCarriageReturnAndLineFeed) {
  const std::string line = HexLine(Note(1, "x"));
  const Result result = Qvlog({"describe"}, line + "\r\n" + line + "\r\n" + line + "\r");
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output, "Maintenance note: x\nMaintenance note: x\nMaintenance note: x\n");
  // Only one carriage return belongs to the line's end.
  EXPECT_EQ(Qvlog({"describe"}, line + "\r\r\n").status, 1);
}

TEST(QvlogDescribe, ABadLineIsReportedAndTheOthersAreDescribed) {
  const std::string line = HexLine(Note(1, "x"));
  const std::string bad = "g" + line.substr(1);
  const std::string input =
      line + "\n" + bad + "\n" + line.substr(2) + "\n" + line + "0\n" + line + "00\n" + line + "\n";
  const Result result = Qvlog({"describe"}, input);
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.output, "Maintenance note: x\nMaintenance note: x\n");
  EXPECT_EQ(result.error,
            "qvlog: line 2: not 512 hexadecimal digits\n"
            "qvlog: line 3: not 512 hexadecimal digits\n"
            "qvlog: line 4: not 512 hexadecimal digits\n"
            "qvlog: line 5: not 512 hexadecimal digits\n");
}

TEST(QvlogDescribe, AnEmptyLineIsABadLine) {
  const std::string line = HexLine(Note(1, "x"));
  const Result result = Qvlog({"describe"}, "\n" + line + "\n\r\n");
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.output, "Maintenance note: x\n");
  EXPECT_EQ(result.error,
            "qvlog: line 1: not 512 hexadecimal digits\n"
            "qvlog: line 3: not 512 hexadecimal digits\n");
}

// Longer than every buffer on the way, and with a record's digits at its end.
TEST(QvlogDescribe, AnOverlongLineIsOneBadLine) {
  const std::string line = HexLine(Note(1, "x"));
  for (const std::size_t extra : {512U, 1024U, 65536U - 512U, 65536U, 200000U}) {
    const std::string input = std::string(extra, '0') + line + "\n" + line + "\n";
    const Result result = Qvlog({"describe"}, input);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.output, "Maintenance note: x\n") << extra;
    EXPECT_EQ(result.error, "qvlog: line 1: not 512 hexadecimal digits\n") << extra;
  }
}

TEST(QvlogDescribe, LinesMayArriveInPieces) {
  const std::string input = HexLine(Note(1, "one")) + "\r\n" + HexLine(Note(2, "two")) + "\n";
  for (const std::size_t piece : {1U, 2U, 511U, 512U, 513U, 514U, 600U}) {
    FakeConsole console(input);
    console.input.SetPieceSize(piece);
    EXPECT_EQ(console.Run({"describe"}), 0);
    EXPECT_EQ(console.output.bytes(), "Maintenance note: one\nMaintenance note: two\n") << piece;
    EXPECT_EQ(console.error.bytes(), "");
  }
}

// A program at the other end of two pipes waits for the answer before it asks again.
TEST(QvlogDescribe, AnswersBeforeItWaitsForMore) {
  class Asking : public ByteSource {
   public:
    explicit Asking(const StringSink& answers) : answers_(answers) {}
    Status Read(std::span<std::uint8_t> into, std::size_t& got) override {
      if (asked_ > 0) {
        EXPECT_EQ(answers_.bytes().size(), asked_ * std::string("QVX Cleared ()\n").size());
      }
      const std::string line = asked_ < 3 ? HexLine(Record(1, 33, 1)) + "\n" : "";
      std::copy(line.begin(), line.end(), into.begin());
      got = line.size();
      ++asked_;
      return Status::Ok();
    }

   private:
    const StringSink& answers_;
    std::size_t asked_ = 0;
  };
  StringSink output;
  StringSink error;
  Asking input(output);
  Console console{input, output, error, 0};
  EXPECT_EQ(RunQvlog({"describe"}, console), 0);
  EXPECT_EQ(output.bytes(), "QVX Cleared ()\nQVX Cleared ()\nQVX Cleared ()\n");
}

TEST(QvlogDescribe, ASourceThatFailsKeepsWhatCameBefore) {
  const std::string line = HexLine(Note(1, "x")) + "\n";
  FakeConsole console(line + line);
  console.input.FailAfter(line.size());
  EXPECT_EQ(console.Run({"describe"}), 1);
  EXPECT_EQ(console.output.bytes(), "Maintenance note: x\n");
  EXPECT_EQ(console.error.bytes(), "qvlog: the cable was pulled\n");
}

TEST(QvlogDescribe, ASinkThatFailsIsReported) {
  FakeConsole console(HexLine(Note(1, "x")) + "\n");
  console.output.FailAfter(4);
  EXPECT_EQ(console.Run({"describe"}), 1);
  EXPECT_EQ(console.error.bytes(), "qvlog: the tape is full\n");
}

// ---- sample ----

TEST(QvlogSample, WritesTheLogOfItsSeed) {
  const Result result = Qvlog({"sample", "--entries", "700", "--seed", "11"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.error, "");
  EXPECT_TRUE(result.output == LogBytes(SampleEntries(700)));
}

TEST(QvlogSample, DefaultsToTwoHundredEntriesOfSeedOne) {
  const std::string standard = Qvlog({"sample"}).output;
  EXPECT_EQ(standard.size(), 19U + 200U * 512U);
  EXPECT_TRUE(standard == Qvlog({"sample", "--entries", "200", "--seed", "1"}).output);
}

TEST(QvlogSample, NoEntriesAreAnEmptyLog) {
  EXPECT_EQ(Qvlog({"sample", "--entries", "0"}).output, kHeader);
}

TEST(QvlogSample, ReplacesItsFile) {
  const TemporaryFile file(".qvx");
  file.Write(std::string(100000, 'x'));
  const Result result = Qvlog({"sample", "--entries", "3", "-o", file.path()});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output, "");
  EXPECT_EQ(result.error, "");
  EXPECT_TRUE(file.Read() == Qvlog({"sample", "--entries", "3", "-o", "-"}).output);
}

// The sink ends what a parser that turns -1 into the largest number would begin.
TEST(QvlogSample, MakesTheDemoLog) {
  EXPECT_TRUE(Qvlog({"sample"}).output == testing::ReadTestFile("../samples/demo.qvx"));
}

TEST(QvlogSample, ANegativeNumberIsAMistake) {
  for (const char* const option : {"--entries", "--seed"}) {
    FakeConsole console;
    console.output.FailAfter(0);
    EXPECT_EQ(console.Run({"sample", option, "-1"}), 2) << option;
  }
}

TEST(QvlogSample, ASinkThatFailsIsReported) {
  FakeConsole console;
  console.output.FailAfter(1000);
  EXPECT_EQ(console.Run({"sample"}), 1);
  EXPECT_EQ(console.error.bytes(), "qvlog: the tape is full\n");
}

}  // namespace
}  // namespace qvl
