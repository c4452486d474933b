// How fast the interactive viewer shows a log of 1,000,000 entries and orders it anew, looked at
// on the pixels of a screen without a monitor.
//
//   qvl_window_bench FRAME_BUFFER QVLOG VIEWER LOG
//
// FRAME_BUFFER is the file that `Xvfb -fbdir` keeps the pixels of $DISPLAY in. LOG is a name
// without a folder: an argument that begins with a slash starts batch mode.
#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "bench/measuring.h"
#include "bench/screen_watch.h"
#include "entries/entry_list.h"
#include "files/log_file.h"
#include "texts/strings.h"
#include "viewer/model/list_model.h"

namespace qvl::bench {
namespace {

constexpr int kStarts = 5;
constexpr int kClicksEach = 8;
constexpr double kMostStart = 3;
constexpr double kMostClick = 2;
constexpr Moment kNow = 1795176000;  // 2026-11-20 12:00 UTC, where the generated year ends

// The parts of the window, from its upper left corner.
constexpr int kHeaderLine = 79;
constexpr int kThirdRow = 138;  // the first is drawn anew whenever the focus changes
constexpr int kBelowRows = 40;
constexpr int kFirstColumn = 20;
constexpr int kIntoHeading = 6;  // the last one shows little more
constexpr int kLinesOfText = 60;

[[noreturn]] void GiveUp(const char* what) {
  std::fprintf(stderr, "%s\n", what);
  std::exit(1);
}

// A program that is ended with this object.
class Program {
 public:
  explicit Program(const std::vector<std::string>& words, int output = -1) {
    const std::optional<pid_t> process = StartProgram(words, output);
    if (!process) GiveUp("a program cannot be started");
    process_ = *process;
  }
  ~Program() {
    ::kill(process_, SIGTERM);
    ::waitpid(process_, nullptr, 0);
  }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

 private:
  pid_t process_ = 0;
};

// From the start of `qvlog list --sort updated` to the end of its first line.
double SecondsToFirstLine(const std::string& qvlog, const std::string& log) {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) GiveUp("there is no pipe to be had");
  const Clock::time_point begun = Clock::now();
  const Program program({qvlog, "list", "--sort", "updated", log}, ends[1]);
  ::close(ends[1]);
  char byte = 0;
  while (byte != '\n') {
    if (::read(ends[0], &byte, 1) != 1) GiveUp("qvlog lists nothing");
  }
  const double seconds = SecondsSince(begun);
  ::close(ends[0]);
  return seconds;
}

struct ShownWindow {
  Area place;
  Area rows;
};

Area RowsOf(const Area& window) {
  return {.x = window.x + kFirstColumn,
          .y = window.y + kThirdRow,
          .width = window.width - 2 * kFirstColumn,
          .height = window.height - kThirdRow - kBelowRows};
}

// Waits for the window and the texts of its rows; the moment of the last change.
Clock::time_point WaitForRows(ScreenWatch& screen, ShownWindow& window) {
  const Clock::time_point giveUpAt = Clock::now() + std::chrono::seconds(60);
  for (std::uint64_t before = 0;;) {
    if (Clock::now() > giveUpAt) GiveUp("the window shows no rows");
    const std::optional<Area> place = screen.FindWindow(GetString(StringId::kApplicationTitle));
    if (place) {
      window = {*place, RowsOf(*place)};
      if (screen.DarkLines(window.rows) >= kLinesOfText) {
        return screen.RestAfterChange(window.rows, before);
      }
      before = screen.Digest(window.rows);
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
}

void PrintHeading(const char* what) {
  std::printf("\n%-46s %12s %12s %8s %8s\n", what, "figure", "limit", "ratio", "at most");
}

// Each figure was measured beside its limit, so that a busy moment meets both.
void PrintRow(const char* what, const std::vector<double>& figures,
              const std::vector<double>& limits, double atMost) {
  std::vector<double> ratios;
  for (std::size_t i = 0; i < figures.size(); ++i) ratios.push_back(figures[i] / limits[i]);
  const double ratio = Median(ratios);
  std::printf("%-46s %9.3f ms %9.3f ms %8.2f %8.2f  %s\n", what, Median(figures) * 1e3,
              Median(limits) * 1e3, ratio, atMost, Verdict(ratio <= atMost));
  std::fflush(stdout);
}

void MeasureStarts(ScreenWatch& screen, const std::string& qvlog, const std::string& viewer,
                   const std::string& log) {
  std::vector<double> starts;
  std::vector<double> lines;
  for (int i = 0; i < kStarts; ++i) {
    lines.push_back(SecondsToFirstLine(qvlog, log));
    const Clock::time_point begun = Clock::now();
    const Program program({viewer, log});
    ShownWindow window;
    starts.push_back(Seconds(WaitForRows(screen, window) - begun));
  }
  PrintHeading("the window, 1,000,000 entries");
  PrintRow("start until listed : qvlog's first line", starts, lines, kMostStart);
}

double SecondsOfClick(ScreenWatch& screen, const ShownWindow& window, int x) {
  screen.MovePointer(x, window.place.y + kHeaderLine);
  // The header follows the pointer first, and two clicks in a row would be a double one.
  std::this_thread::sleep_for(std::chrono::milliseconds(500));
  const std::uint64_t before = screen.Digest(window.rows);
  const Clock::time_point begun = Clock::now();
  screen.Click(1);
  return Seconds(screen.RestAfterChange(window.rows, before) - begun);
}

double SecondsOfSort(ListModel& model, Column column) {
  const Clock::time_point begun = Clock::now();
  model.ClickHeader(column);
  return SecondsSince(begun);
}

void MeasureClicks(ScreenWatch& screen, const std::string& viewer, const std::string& log) {
  EntryList entries;
  if (!LoadLogFile(log, entries).ok()) GiveUp("the log cannot be loaded");
  ListModel model(entries);
  model.Refill(kNow);
  const Program program({viewer, log});
  ShownWindow window;
  WaitForRows(screen, window);
  int left = window.place.x;
  for (const ListColumn& column : ListColumns()) {
    std::vector<double> clicks;
    std::vector<double> sorts;
    for (int i = 0; i < kClicksEach; ++i) {
      clicks.push_back(SecondsOfClick(screen, window, left + kIntoHeading));
      sorts.push_back(SecondsOfSort(model, column.column));
    }
    left += column.defaultWidth;
    const std::string what =
        "click on " + std::string(GetString(column.heading)) + " : the model's sort";
    PrintRow(what.c_str(), clicks, sorts, kMostClick);
  }
}

int Main(const std::vector<std::string>& arguments) {
  if (arguments.size() != 4 || arguments[3].starts_with('/')) {
    std::fputs("usage: qvl_window_bench FRAME_BUFFER QVLOG VIEWER LOG\n", stderr);
    return 2;
  }
  ScreenWatch screen(arguments[0]);
  MeasureStarts(screen, arguments[1], arguments[2], arguments[3]);
  MeasureClicks(screen, arguments[2], arguments[3]);
  return 0;
}

}  // namespace
}  // namespace qvl::bench

int main(int argc, char** argv) {
  return qvl::bench::Main({argv + 1, argv + argc});
}
