#ifndef QVL_TESTS_VIEWER_MODEL_FAKE_VIEWER_H_
#define QVL_TESTS_VIEWER_MODEL_FAKE_VIEWER_H_

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "tests/fakes/fake_machine.h"
#include "tests/files/file_fixtures.h"
#include "tests/viewer/model/recording_control.h"
#include "viewer/model/entry_list_view.h"
#include "viewer/model/event_viewer_doc.h"
#include "viewer/model/frame_model.h"
#include "viewer/model/viewer_environment.h"

namespace qvl::testing {

/// The settings of a user, in memory.
class MemorySettings : public Settings {
 public:
  std::map<std::string, std::uint32_t> numbers;  ///< by "key|name"
  std::map<std::string, std::string> texts;
  int synchronised = 0;
  std::function<void()> onSynchronise;

  bool HasKey(const std::string& key) const override {
    return Holds(numbers, key) || Holds(texts, key);
  }
  std::optional<std::uint32_t> GetNumber(const std::string& key,
                                         const std::string& name) const override {
    return Get(numbers, key, name);
  }
  std::optional<std::string> GetText(const std::string& key,
                                     const std::string& name) const override {
    return Get(texts, key, name);
  }
  void SetNumber(const std::string& key, const std::string& name, std::uint32_t number) override {
    numbers[key + "|" + name] = number;
  }
  void SetText(const std::string& key, const std::string& name, const std::string& text) override {
    texts[key + "|" + name] = text;
  }
  void Synchronise() override {
    ++synchronised;
    if (onSynchronise) onSynchronise();
  }

 private:
  template <typename Values>
  static bool Holds(const Values& values, const std::string& key) {
    const auto found = values.lower_bound(key);
    return found != values.end() && found->first.compare(0, key.size(), key) == 0;
  }
  template <typename T>
  static std::optional<T> Get(const std::map<std::string, T>& values, const std::string& key,
                              const std::string& name) {
    const auto found = values.find(key + "|" + name);
    return found == values.end() ? std::nullopt : std::optional<T>(found->second);
  }
};

/// The windows of the viewer: answers as its fields say and writes down what happens, in order.
/// Work that waits for a machine runs on a thread, as it does behind a window.
class FakeViewer : public MessageWindow,
                   public ProgressWindow,
                   public BlockingWork,
                   public FileDialogs,
                   public ViewerDialogs,
                   public MainWindow,
                   public MachineBox,
                   public Clock {
 public:
  // What it answers.
  std::vector<MessageAnswer> answers;  ///< to the messages, in turn; then OK
  std::function<void()> whileWaiting;  ///< for the user, in a message or a dialog
  std::function<void()> onCommand;
  std::optional<std::string> openPath;
  std::optional<std::string> savePath;
  std::optional<FilterChoices> filter;
  std::function<bool()> confirmClear = [] { return true; };
  std::optional<std::string> note;
  std::optional<std::string> pickedMachine;
  std::uint64_t cancelAfter = UINT64_MAX;  ///< entries
  Moment now = 1795176300;                 // 2026-11-20 12:05 UTC
  WorkArea workArea = {1366, 728};
  WindowPlacement placement = {10, 20, 400, 300, 1, 0};
  std::string boxText;

  // What happened.
  std::vector<std::string> journal;
  std::vector<UserMessage> messages;
  std::vector<FileDialogRequest> fileRequests;
  std::vector<std::string> names;
  std::vector<std::string> recentFiles;
  std::vector<Command> commands;
  std::string clipboard;
  std::string searchAnswer;
  std::string caption;
  std::uint64_t entriesRead = 0;
  std::optional<FilterChoices> askedFilter;
  bool progressShown = false;
  bool canCancel = false;

  void Note(std::string event) {
    EXPECT_FALSE(working_) << "a window was asked for something by work: " << event;
    journal.push_back(std::move(event));
  }
  /// From the machine, also while it works.
  void NoteCall(const std::string& call) { journal.push_back(call); }

  MessageAnswer Show(const UserMessage& message) override {
    EXPECT_FALSE(progressShown) << message.text;
    EXPECT_EQ(message.caption, "Korvath Quarvel Log Viewer");
    Note("message " + message.text);
    messages.push_back(message);
    Wait();
    if (answers.empty()) return MessageAnswer::kOk;
    const MessageAnswer answer = answers.front();
    answers.erase(answers.begin());
    return answer;
  }

  void Show(const std::string& text, bool cancel) override {
    EXPECT_FALSE(progressShown) << "two progress windows";
    progressShown = true;
    canCancel = cancel;
    entriesRead = 0;
    Note("progress " + text);
  }
  void Close() override {
    EXPECT_TRUE(progressShown);
    progressShown = false;
    Note("progress closed");
  }
  void SetEntriesRead(std::uint64_t count) override { entriesRead = count; }
  bool CancelRequested() const override { return entriesRead >= cancelAfter; }

  void Run(const std::function<void()>& work) override {
    working_ = true;
    std::thread(work).join();
    working_ = false;
  }

  std::optional<std::string> AskOpenPath(const FileDialogRequest& request) override {
    fileRequests.push_back(request);
    Note("ask open");
    Wait();
    return openPath;
  }
  std::optional<std::string> AskSavePath(const FileDialogRequest& request) override {
    fileRequests.push_back(request);
    Note("ask save");
    Wait();
    return savePath;
  }

  std::optional<FilterChoices> AskFilter(const FilterChoices& current) override {
    askedFilter = current;
    Note("ask filter");
    Wait();
    return filter;
  }
  bool ConfirmClear() override {
    Note("ask clear");
    return confirmClear();
  }
  std::optional<std::string> AskMaintenanceNote() override {
    Note("ask note");
    Wait();
    return note;
  }
  std::optional<std::string> AskMachine() override {
    Note("ask machine");
    Wait();
    return pickedMachine;
  }

  std::string GetCaption() const override { return caption; }
  void SetCaption(const std::string& text) override {
    caption = text;
    Note("caption " + text);
  }
  void UpdateControls() override { EXPECT_FALSE(working_); }
  void ShowRecentFiles(const std::vector<std::string>& paths) override { recentFiles = paths; }
  void ShowSearchAnswer(const std::string& text) override { searchAnswer = text; }
  void CopyToClipboard(const std::string& text) override { clipboard = text; }
  void DoCommand(Command command) override {
    commands.push_back(command);
    if (onCommand) onCommand();
  }
  WindowPlacement GetPlacement() const override { return placement; }
  void SetPlacement(const WindowPlacement& wanted) override { placement = wanted; }
  WorkArea GetWorkArea() const override { return workArea; }

  std::string Text() const override { return boxText; }
  void SetText(const std::string& text) override {
    boxText = text;
    Note("box text " + text);
  }
  void SetNames(const std::vector<std::string>& list) override { names = list; }
  void Select(std::size_t index) override {
    boxText = names.at(index);
    Note("box shows " + boxText);
  }
  void SelectNothing() override {
    boxText.clear();
    Note("box shows nothing");
  }

  Moment GetNow() const override { return now; }

 private:
  void Wait() {
    if (whileWaiting) whileWaiting();
  }

  bool working_ = false;
};

/// A viewer over a machine in memory.
class ViewerTest : public ::testing::Test {
 protected:
  using Journal = std::vector<std::string>;
  using Numbers = std::vector<std::uint32_t>;

  ViewerTest() {
    machine_.onStep = [this](Step) { viewer_.NoteCall(machine_.calls.back()); };
    view_.Create();
  }

  void TearDown() override { EXPECT_FALSE(viewer_.progressShown); }

  static RawLogEntry Entry(std::uint32_t number, std::uint8_t severity,
                           std::uint16_t eventClass = 12) {
    RawLogEntry raw = Record(number, eventClass, 1);
    raw.severity = severity;
    raw.count = 1;
    raw.updateTime = {20, 26, 11, 1, 0, static_cast<std::uint8_t>(number % 60)};
    raw.initialTime = {20, 26, 10, 1, 0, 0};
    return raw;
  }

  /// Opens a machine, and forgets what happened on the way.
  void Open(const std::string& name = "SRV1") {
    ASSERT_TRUE(frame_.SwitchToMachine(name));
    Forget();
  }
  void Forget() {
    viewer_.journal.clear();
    viewer_.messages.clear();
    machine_.calls.clear();
  }

  /// The texts of the messages, in order.
  Journal Messages() const {
    Journal texts;
    for (const UserMessage& message : viewer_.messages) texts.push_back(message.text);
    return texts;
  }
  /// The entry numbers of the document, in the order read.
  Numbers EntryNumbers() const {
    Numbers numbers;
    for (std::size_t i = 0; i < doc_.entries().size(); ++i) {
      numbers.push_back(doc_.entries()[i].GetEntryNumber());
    }
    return numbers;
  }
  /// The entry numbers of the rows, from the top.
  Numbers RowNumbers() const {
    Numbers numbers;
    EXPECT_EQ(control_.RowCount(), doc_.list().rowCount());
    for (std::size_t row = 0; row < doc_.list().rowCount(); ++row) {
      numbers.push_back(doc_.list().EntryAt(row).GetEntryNumber());
    }
    return numbers;
  }

  FakeViewer viewer_;  // before the client, whose last call it still writes down
  FakeMachine machine_;
  RemoteMonitorClient client_{machine_};
  RecordingControl control_;
  MemorySettings settings_;
  std::optional<std::string> userName_ = "ada";
  ViewerEnvironment environment_{.client = client_,
                                 .work = viewer_,
                                 .progress = viewer_,
                                 .messages = viewer_,
                                 .files = viewer_,
                                 .dialogs = viewer_,
                                 .window = viewer_,
                                 .machineBox = viewer_,
                                 .list = control_,
                                 .clock = viewer_,
                                 .settings = settings_,
                                 .computerName = [] { return std::string("workstation7"); },
                                 .userName =
                                     [this](std::size_t capacity, std::string& name) {
                                       if (!userName_ || userName_->size() >= capacity)
                                         return false;
                                       name = *userName_;
                                       return true;
                                     },
                                 .lineEnd = "\n"};
  CEventViewerDoc doc_{environment_};
  EntryListView view_{environment_, doc_};
  FrameModel frame_{environment_, doc_, view_};
};

}  // namespace qvl::testing

#endif  // QVL_TESTS_VIEWER_MODEL_FAKE_VIEWER_H_
