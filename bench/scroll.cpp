// How many rows the list of the window asks for while it is scrolled through a log.
//
//   qvl_scroll_bench LOG       on the screen of $DISPLAY
#include <wx/app.h>
#include <wx/frame.h>
#include <wx/init.h>
#include <wx/timer.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <utility>

#include "files/log_file.h"
#include "viewer/model/list_model.h"
#include "viewer/ui/event_viewer_view.h"

namespace qvl::bench {
namespace {

constexpr int kSteps = 60;
constexpr int kMillisecondsBetweenSteps = 50;
constexpr int kMostLooks = 20 * kSteps;
constexpr int kLeastRows = 10;
constexpr Moment kNow = 1795176000;  // 2026-11-20 12:00 UTC, where the generated year ends

/// The viewer's list, with a note of what it asks for.
class WatchedList : public CEventViewerView {
 public:
  using CEventViewerView::CEventViewerView;

  void Forget() { rowsAsked_ = 0; }
  /// A row that was asked for twice counts twice.
  std::size_t rowsAsked() const { return rowsAsked_; }
  /// The last one may be cut off by the lower edge.
  std::size_t rowsShown() const { return static_cast<std::size_t>(GetCountPerPage()) + 1; }

 protected:
  wxString OnGetItemText(long row, long column) const override {
    if (column == 0) ++rowsAsked_;
    return CEventViewerView::OnGetItemText(row, column);
  }

 private:
  mutable std::size_t rowsAsked_ = 0;
};

/// A window with the list, which scrolls by itself and counts what each step asked for.
class ScrollFrame : public wxFrame {
 public:
  explicit ScrollFrame(const ListModel& model)
      : wxFrame(nullptr, wxID_ANY, "bench", wxDefaultPosition, wxSize(740, 540)), model_(model) {
    list_ = new WatchedList(this);
    list_->SetModel(&model);
    timer_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { OnTimer(); });
    timer_.Start(kMillisecondsBetweenSteps);
  }

  bool isDone() const { return step_ > kSteps; }
  double mostRows() const { return mostRows_; }

 private:
  // A step counts once the list was painted after it.
  void OnTimer() {
    if (++looks_ > kMostLooks || isDone()) {
      timer_.Stop();
      Close(true);
    } else if (list_->GetItemCount() == 0) {
      Fill();
    } else if (list_->rowsAsked() > 0) {
      if (step_ > 0) Count();
      ++step_;
      list_->Forget();
      Scroll();
    }
  }

  // As in the viewer, whose window stands before a log is opened.
  void Fill() {
    if (list_->GetCountPerPage() < kLeastRows) return;
    std::array<int, kNumberOfColumns> widths{};
    for (std::size_t i = 0; i < widths.size(); ++i) widths[i] = ListColumns()[i].defaultWidth;
    ListAdapter adapter(*list_, {.rowsChanged = [] {}, .selectionChanged = [] {}});
    CreateColumns(adapter, widths);
    FillControl(adapter, model_);
  }

  void Count() {
    const auto shown = static_cast<double>(list_->rowsShown());
    mostRows_ = std::max(mostRows_, static_cast<double>(list_->rowsAsked()) / shown);
  }

  // As the scroll bar and the wheel do: to anywhere, and from there by a line and by a page.
  void Scroll() {
    const std::array<wxEventType, 4> kinds = {wxEVT_SCROLLWIN_THUMBTRACK, wxEVT_SCROLLWIN_LINEDOWN,
                                              wxEVT_SCROLLWIN_PAGEDOWN, wxEVT_SCROLLWIN_LINEUP};
    const int anywhere = step_ * 4099 % (list_->GetItemCount() - 1000);
    wxScrollWinEvent event(kinds[static_cast<std::size_t>(step_) % kinds.size()], anywhere,
                           wxVERTICAL);
    event.SetEventObject(list_);
    list_->HandleWindowEvent(event);
  }

  const ListModel& model_;
  WatchedList* list_ = nullptr;  // the toolkit's, as controls are
  wxTimer timer_;
  int looks_ = 0;
  int step_ = 0;
  double mostRows_ = 0;  // rows that a step asked for, for each that is shown
};

void Print(const char* what, double ratio) {
  std::printf("%-46s %12.2f %12.2f  %s\n", what, ratio, 1.0, ratio <= 1 ? "met" : "MISSED");
}

class ScrollApp : public wxApp {
 public:
  explicit ScrollApp(std::string log) : log_(std::move(log)) {}

  bool OnInit() override {
    if (!LoadLogFile(log_, entries_).ok()) {
      std::fputs("the log cannot be loaded\n", stderr);
      return false;
    }
    model_.Refill(kNow);
    auto* const frame = new ScrollFrame(model_);
    frame->Bind(wxEVT_CLOSE_WINDOW, [this, frame](wxCloseEvent& event) {
      done_ = frame->isDone();
      if (done_) {
        std::printf("\n%-46s %12s %12s\n", "scrolling, 1,000,000 entries", "figure", "at most");
        Print("rows asked for in a step : rows shown", frame->mostRows());
      }
      event.Skip();
    });
    frame->Show();
    return true;
  }

  int OnRun() override {
    const int result = wxApp::OnRun();
    if (!done_) std::fputs("the list was not painted\n", stderr);
    return done_ ? result : 1;
  }

 private:
  std::string log_;
  EntryList entries_;
  ListModel model_{entries_};
  bool done_ = false;
};

}  // namespace
}  // namespace qvl::bench

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: qvl_scroll_bench LOG\n", stderr);
    return 2;
  }
  wxApp::SetInstance(new qvl::bench::ScrollApp(argv[1]));
  int noArguments = 1;
  return wxEntry(noArguments, argv);
}
