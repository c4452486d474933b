#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "files/log_file.h"
#include "tests/viewer/model/fake_viewer.h"

namespace qvl {
namespace {

using testing::TemporaryFile;
using testing::ViewerTest;

constexpr const char* kInvalidName =
    "You have specified an invalid file name. Please try a different file.";
constexpr const char* kNotALog =
    "You have attempted to open a file that is not recognized by the viewer. Please try a "
    "different file.";
constexpr std::size_t kHeader = 19;
constexpr std::size_t kRecord = 512;

class DocumentFilesTest : public ViewerTest {
 protected:
  void Hold(std::size_t count, std::uint32_t first = 1) {
    machine_.records.clear();
    for (std::size_t i = 0; i < count; ++i) {
      machine_.records.push_back(Entry(first + static_cast<std::uint32_t>(i), 9));
    }
    Open();
  }

  // A log file of entries numbered from `first`.
  void WriteLog(const TemporaryFile& file, std::uint32_t first, std::size_t count) {
    EntryList entries;
    for (std::size_t i = 0; i < count; ++i) {
      entries.Append(Entry(first + static_cast<std::uint32_t>(i), 9));
    }
    ASSERT_TRUE(SaveLogFile(file.path(), entries).ok());
  }

  TemporaryFile file_{".qvx"};
  TemporaryFile bare_{""};
  TemporaryFile withExtension_{bare_.path().substr(bare_.path().find("qvl_test_")), ".qvx"};
};

TEST_F(DocumentFilesTest, SavingAsksForALogFileAndKeepsTheCaption) {
  Hold(3);
  viewer_.savePath = file_.path();
  frame_.Execute(Command::kSaveLogAs);
  ASSERT_EQ(viewer_.fileRequests.size(), 1U);
  EXPECT_EQ(viewer_.fileRequests[0].title, "Save");
  EXPECT_EQ(viewer_.fileRequests[0].filter, "Quarvel Log files (*.qvx)|*.qvx||");
  EXPECT_EQ(viewer_.fileRequests[0].defaultExtension, ".qvx");
  EXPECT_EQ(file_.Read().size(), kHeader + 3 * kRecord);
  EXPECT_EQ(viewer_.caption, "Korvath Quarvel Log Viewer - SRV1");
  EXPECT_EQ(viewer_.recentFiles, std::vector<std::string>{file_.path()});
  EXPECT_TRUE(viewer_.messages.empty());
}

TEST_F(DocumentFilesTest, ACancelledSaveWritesNothing) {
  Hold(1);
  frame_.Execute(Command::kSaveLogAs);
  EXPECT_EQ(viewer_.journal, Journal{"ask save"});
  EXPECT_FALSE(file_.Exists());
}

TEST_F(DocumentFilesTest, SavingWritesEveryEntryInTheOrderRead) {
  Hold(3);
  FilterChoices choices;
  choices.severity = "Critical";
  doc_.list().SetFilter(choices);
  doc_.UpdateViews();
  EXPECT_EQ(control_.RowCount(), 0U);
  ASSERT_TRUE(doc_.OnSaveDocument(file_.path()).ok());
  ASSERT_TRUE(doc_.Load(file_.path()));
  EXPECT_EQ(EntryNumbers(), (Numbers{1, 2, 3}));
}

TEST_F(DocumentFilesTest, AnEmptyLogIsTheHeaderAlone) {
  ASSERT_TRUE(doc_.OnSaveDocument(file_.path()).ok());
  EXPECT_EQ(file_.Read(), "Zelkor QVX Log v1.0");
  EXPECT_TRUE(doc_.Load(file_.path()));
  EXPECT_TRUE(doc_.entries().empty());
  EXPECT_TRUE(control_.enabled());
}

// The plain save: what it has always done.
TEST_F(DocumentFilesTest, AShorterLogLeavesTheTailOfALongerOne) {
  WriteLog(file_, 100, 5);
  Hold(3);
  ASSERT_TRUE(doc_.OnSaveDocument(file_.path()).ok());
  EXPECT_EQ(file_.Read().size(), kHeader + 5 * kRecord);
  ASSERT_TRUE(doc_.Load(file_.path()));
  EXPECT_EQ(EntryNumbers(), (Numbers{1, 2, 3, 103, 104}));
}

class TailWarningTest : public DocumentFilesTest {
 protected:
  TailWarningTest() { viewer_.savePath = file_.path(); }

  void Save(MessageAnswer answer) {
    WriteLog(file_, 100, 5);
    Hold(3);
    viewer_.answers = {answer};
    frame_.Execute(Command::kSaveLogAs);
  }
  Numbers Saved() {
    EXPECT_TRUE(doc_.Load(file_.path()));
    return EntryNumbers();
  }
};

TEST_F(TailWarningTest, NamesTheFileAndHowManyEntriesWouldStay) {
  Save(MessageAnswer::kCancel);
  ASSERT_EQ(viewer_.messages.size(), 1U);
  const UserMessage& message = viewer_.messages[0];
  const std::string name = file_.path().substr(file_.path().find_last_of("/\\") + 1);
  EXPECT_NE(message.text.find("The file " + name + " is longer than this log."), std::string::npos);
  EXPECT_NE(message.text.find("as 2 further entries of this log"), std::string::npos);
  EXPECT_EQ(message.icon, MessageIcon::kQuestion);
  EXPECT_EQ(message.yesLabel, "&Replace File");
  EXPECT_EQ(message.noLabel, "&Save Over It");
}

TEST_F(TailWarningTest, ACleanCopyHoldsTheSavedLogAlone) {
  Save(MessageAnswer::kYes);
  EXPECT_EQ(file_.Read().size(), kHeader + 3 * kRecord);
  EXPECT_EQ(Saved(), (Numbers{1, 2, 3}));
  EXPECT_EQ(viewer_.recentFiles, std::vector<std::string>{file_.path()});
}

TEST_F(TailWarningTest, ThePlainSaveKeepsTheTail) {
  Save(MessageAnswer::kNo);
  EXPECT_EQ(Saved(), (Numbers{1, 2, 3, 103, 104}));
}

TEST_F(TailWarningTest, CancellingLeavesTheFileAlone) {
  Save(MessageAnswer::kCancel);
  EXPECT_EQ(viewer_.recentFiles, std::vector<std::string>());
  EXPECT_EQ(Saved(), (Numbers{100, 101, 102, 103, 104}));
}

TEST_F(TailWarningTest, IsNotShownWhereNoEntryWouldStay) {
  for (const std::size_t there : {0U, 2U, 3U}) {
    file_.Write("");
    WriteLog(file_, 100, there);
    // A partial record behind the last one is no entry.
    file_.Write(file_.Read() + std::string(kRecord - 1, 'x'));
    Hold(3);
    frame_.Execute(Command::kSaveLogAs);
    EXPECT_TRUE(viewer_.messages.empty()) << there;
  }
}

TEST_F(DocumentFilesTest, ASaveThatFailsIsTold) {
  Hold(1);
  viewer_.savePath = file_.path() + "/in a file.qvx";
  file_.Write("no folder");
  frame_.Execute(Command::kSaveLogAs);
  ASSERT_EQ(viewer_.messages.size(), 1U);
  EXPECT_EQ(viewer_.messages[0].text.find("The log could not be saved.\n\n"), 0U);
  EXPECT_TRUE(viewer_.recentFiles.empty());
  EXPECT_EQ(viewer_.caption, "Korvath Quarvel Log Viewer - SRV1");
}

// Loading.

TEST_F(DocumentFilesTest, OpeningAsksAndShowsTheNewestFirst) {
  WriteLog(file_, 1, 3);
  viewer_.openPath = file_.path();
  frame_.Execute(Command::kOpenLogFile);
  ASSERT_EQ(viewer_.fileRequests.size(), 1U);
  EXPECT_EQ(viewer_.fileRequests[0].title, "Open");
  EXPECT_EQ(viewer_.fileRequests[0].filter, "Quarvel Log files (*.qvx)|*.qvx||");
  EXPECT_EQ(RowNumbers(), (Numbers{3, 2, 1}));
  EXPECT_EQ(frame_.openLogFile(), file_.path());
  EXPECT_EQ(viewer_.recentFiles, std::vector<std::string>{file_.path()});
  EXPECT_TRUE(control_.enabled());
}

TEST_F(DocumentFilesTest, ACancelledOpenLeavesTheMachineOpen) {
  Hold(2);
  frame_.Execute(Command::kOpenLogFile);
  EXPECT_EQ(viewer_.journal, Journal{"ask open"});
  EXPECT_EQ(frame_.machine(), "SRV1");
  EXPECT_EQ(EntryNumbers(), (Numbers{1, 2}));
}

TEST_F(DocumentFilesTest, AFileThatCannotBeOpenedIsToldAndLeavesNothing) {
  Hold(2);
  EXPECT_FALSE(frame_.OpenLogFile(file_.path()));
  EXPECT_EQ(Messages(), Journal{kInvalidName});
  EXPECT_EQ(viewer_.messages[0].icon, MessageIcon::kExclamation);
  EXPECT_TRUE(doc_.entries().empty());
  EXPECT_EQ(control_.RowCount(), 0U);
  EXPECT_EQ(frame_.openLogFile(), "");
  EXPECT_TRUE(viewer_.recentFiles.empty());
  EXPECT_FALSE(control_.enabled());
}

TEST_F(DocumentFilesTest, AFolderIsNoLog) {
  EXPECT_FALSE(frame_.OpenLogFile(std::filesystem::temp_directory_path().string()));
  EXPECT_EQ(Messages(), Journal{kInvalidName});
}

TEST_F(DocumentFilesTest, OtherFilesAreNotRecognised) {
  for (const char* const bytes : {"", "Zelkor QVX Log v1.", "zelkor QVX Log v1.0 and more",
                                  "something else that is longer"}) {
    Forget();
    file_.Write(bytes);
    EXPECT_FALSE(doc_.Load(file_.path()));
    EXPECT_EQ(Messages(), Journal{kNotALog}) << bytes;
    EXPECT_TRUE(doc_.entries().empty());
  }
}

TEST_F(DocumentFilesTest, APartialLastRecordIsIgnored) {
  WriteLog(file_, 1, 2);
  for (const std::size_t extra : {1U, 256U, 511U}) {
    file_.Write(file_.Read().substr(0, kHeader + 2 * kRecord) + std::string(extra, '\x01'));
    EXPECT_TRUE(doc_.Load(file_.path()));
    EXPECT_EQ(EntryNumbers(), (Numbers{1, 2}));
  }
  EXPECT_TRUE(viewer_.messages.empty());
}

TEST_F(DocumentFilesTest, EveryLoadResetsFilterAndSort) {
  Hold(2);
  for (const bool exists : {true, false}) {
    FilterChoices choices;
    choices.updateTime = "Since Last Week";
    doc_.list().SetFilter(choices);
    doc_.list().SetTimeRange(TimeRange{});
    doc_.list().SetSort({Column::kEntryNumber, true});
    if (exists) WriteLog(file_, 1, 1);
    if (!exists) file_.Write("no log");
    EXPECT_EQ(doc_.Load(file_.path()), exists);
    EXPECT_EQ(control_.arrow(), "4 down");
    EXPECT_FALSE(doc_.list().IsFiltered());
    EXPECT_EQ(doc_.list().sort(), SortState());
  }
}

TEST_F(DocumentFilesTest, AFileAfterAMachineClosesItAndClearsTheBusyState) {
  Hold(2);
  WriteLog(file_, 7, 1);
  EXPECT_TRUE(frame_.OpenLogFile(file_.path()));
  EXPECT_EQ(machine_.calls, Journal{"free binding"});
  EXPECT_EQ(machine_.liveBindings(), 0U);
  EXPECT_EQ(frame_.machine(), "");
  EXPECT_FALSE(frame_.isAdministrator());
  EXPECT_FALSE(frame_.isBusy());
  EXPECT_EQ(viewer_.caption, "Korvath Quarvel Log Viewer");
  EXPECT_EQ(EntryNumbers(), Numbers{7});
  EXPECT_TRUE(control_.enabled());
  EXPECT_FALSE(frame_.IsEnabled(Command::kClearAll));
  EXPECT_FALSE(frame_.IsEnabled(Command::kRefresh));
  EXPECT_TRUE(frame_.IsEnabled(Command::kSaveLogAs));
}

TEST_F(DocumentFilesTest, AFileAfterAFailedConnectionClearsTheBusyState) {
  machine_.Fail(testing::Step::kAdministrator, kServerUnavailable);
  EXPECT_FALSE(frame_.SwitchToMachine("GONE"));
  EXPECT_FALSE(frame_.IsEnabled(Command::kExportLog));
  WriteLog(file_, 7, 1);
  EXPECT_TRUE(frame_.OpenLogFile(file_.path()));
  EXPECT_TRUE(frame_.IsEnabled(Command::kExportLog));
}

TEST_F(DocumentFilesTest, AMachineAfterAFileForgetsThePath) {
  WriteLog(file_, 7, 1);
  EXPECT_TRUE(frame_.OpenLogFile(file_.path()));
  EXPECT_EQ(frame_.LogName(), file_.path().substr(file_.path().find_last_of("/\\") + 1));
  EXPECT_TRUE(frame_.SwitchToMachine("SRV2"));
  EXPECT_EQ(frame_.openLogFile(), "");
  EXPECT_EQ(frame_.LogName(), "SRV2");
}

TEST_F(DocumentFilesTest, NamesWithoutAnExtensionGetOne) {
  Hold(2);
  viewer_.savePath = bare_.path();
  frame_.Execute(Command::kSaveLogAs);
  EXPECT_EQ(withExtension_.Read().size(), kHeader + 2 * kRecord);
  viewer_.openPath = bare_.path();
  frame_.Execute(Command::kOpenLogFile);
  EXPECT_EQ(frame_.openLogFile(), withExtension_.path());
  WriteLog(bare_, 9, 1);
  frame_.Execute(Command::kOpenLogFile);
  EXPECT_EQ(frame_.openLogFile(), bare_.path());
  EXPECT_TRUE(viewer_.messages.empty());
}

// As the dialogs have always done; only what would stay behind is asked about.
TEST_F(DocumentFilesTest, AnExistingFileIsWrittenOverWithoutAWord) {
  Hold(2);
  WriteLog(file_, 100, 2);
  viewer_.savePath = file_.path();
  frame_.Execute(Command::kSaveLogAs);
  frame_.Execute(Command::kExportLog);
  EXPECT_TRUE(viewer_.messages.empty());
}

// Exporting.

TEST_F(DocumentFilesTest, ExportingNamesTheMachineAndSaysNothing) {
  Hold(2);
  FilterChoices choices;
  choices.eventClass = "CPU";
  doc_.list().SetFilter(choices);
  doc_.UpdateViews();
  viewer_.savePath = file_.path();
  frame_.Execute(Command::kExportLog);
  EXPECT_EQ(viewer_.fileRequests[0].title, "Export");
  EXPECT_EQ(viewer_.fileRequests[0].filter,
            "Comma Delimited (*.csv) |*.csv|All Files (*.*) |*.*||");
  EXPECT_EQ(viewer_.fileRequests[0].defaultExtension, ".csv");
  const std::string text = file_.Read();
  EXPECT_EQ(text.substr(0, text.find('\r')), "Korvath Quarvel Log Viewer:  SRV1");
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 4);
  EXPECT_EQ(viewer_.journal, Journal{"ask save"});
}

TEST_F(DocumentFilesTest, ExportingAFileNamesNoMachine) {
  WriteLog(file_, 7, 1);
  EXPECT_TRUE(frame_.OpenLogFile(file_.path()));
  const TemporaryFile exported(".csv");
  viewer_.savePath = exported.path();
  frame_.Execute(Command::kExportLog);
  EXPECT_EQ(exported.Read().substr(0, 31), "Korvath Quarvel Log Viewer:  \r\n");
}

TEST_F(DocumentFilesTest, AnExportThatFailsOrIsCancelledSaysNothing) {
  Hold(1);
  frame_.Execute(Command::kExportLog);
  viewer_.savePath = file_.path() + "/in a file.qvx";
  file_.Write("no folder");
  frame_.Execute(Command::kExportLog);
  EXPECT_EQ(viewer_.journal, (Journal{"ask save", "ask save"}));
}

TEST_F(DocumentFilesTest, AnExportOverALongerFileLeavesItsTail) {
  Hold(0);
  file_.Write(std::string(500, 'x'));
  viewer_.savePath = file_.path();
  frame_.Execute(Command::kExportLog);
  EXPECT_EQ(file_.Read().size(), 500U);
  EXPECT_EQ(file_.Read().back(), 'x');
}

}  // namespace
}  // namespace qvl
