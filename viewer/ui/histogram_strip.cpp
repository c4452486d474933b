#include "viewer/ui/histogram_strip.h"

#include <wx/dcbuffer.h>
#include <wx/settings.h>

#include <algorithm>
#include <utility>

#include "viewer/ui/accessible_name.h"
#include "viewer/ui/list_pictures.h"
#include "viewer/ui/wx_text.h"

namespace qvl {
namespace {

constexpr int kLaneHeight = 18;
constexpr int kNarrowestBar = 3;
constexpr int kWidestBar = 24;

static_assert(SeverityHistogram::kSeverities == kSeverityPictures);

}  // namespace

HistogramStrip::HistogramStrip(wxWindow* parent, Handlers handlers)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
              wxFULL_REPAINT_ON_RESIZE | wxBORDER_THEME),
      handlers_(std::move(handlers)),
      pictures_(ListPictures()) {
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  SetMinClientSize(wxSize(-1, LaneHeight() * static_cast<int>(SeverityHistogram::kSeverities)));
  SetAccessibleName(*this, TextOf(StringId::kHistogramName));
  SetToolTip(TextOf(StringId::kHistogramHint));
  Bind(wxEVT_PAINT, [this](wxPaintEvent&) { Paint(); });
  Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent& event) {
    if (histogram_.buckets().empty()) return;
    dragFrom_ = dragTo_ = BucketAt(event.GetX());
    CaptureMouse();
    Refresh();
  });
  Bind(wxEVT_MOTION, &HistogramStrip::OnMove, this);
  Bind(wxEVT_LEFT_UP, &HistogramStrip::OnRelease, this);
  Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) {
    dragFrom_.reset();
    Refresh();
  });
}

int HistogramStrip::LaneHeight() const {
  return FromDIP(kLaneHeight);
}

int HistogramStrip::BarsLeft() const {
  return LaneHeight() + FromDIP(4);
}

int HistogramStrip::BarWidth() const {
  const auto bars = static_cast<int>(std::max<std::size_t>(1, histogram_.buckets().size()));
  return std::clamp((GetClientSize().x - BarsLeft()) / bars, FromDIP(kNarrowestBar),
                    FromDIP(kWidestBar));
}

std::size_t HistogramStrip::BucketAt(int x) const {
  const int bucket = std::max(0, x - BarsLeft()) / BarWidth();
  return std::min(static_cast<std::size_t>(bucket), histogram_.buckets().size() - 1);
}

void HistogramStrip::Invalidate() {
  countedWidth_ = -1;
  Refresh();
}

// Only for a strip that is seen: counting walks the whole log.
void HistogramStrip::CountAgain() {
  const int width = GetClientSize().x;
  if (width == countedWidth_) return;
  countedWidth_ = width;
  const int room = std::max(2, (width - BarsLeft()) / FromDIP(kNarrowestBar));
  histogram_ = handlers_.count(static_cast<std::size_t>(room));
  dragFrom_.reset();
  toolTipBucket_.reset();
}

void HistogramStrip::Paint() {
  CountAgain();
  wxAutoBufferedPaintDC dc(this);
  dc.SetBackground(wxBrush(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW)));
  dc.Clear();
  const int barWidth = BarWidth();
  if (dragFrom_) PaintDrag(dc, barWidth);
  for (std::size_t lane = 0; lane < SeverityHistogram::kSeverities; ++lane) {
    PaintLane(dc, lane, barWidth);
  }
}

void HistogramStrip::PaintDrag(wxDC& dc, int barWidth) {
  const auto [first, last] = std::minmax(*dragFrom_, dragTo_);
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(wxBrush(wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT)));
  dc.DrawRectangle(BarsLeft() + static_cast<int>(first) * barWidth, 0,
                   static_cast<int>(last - first + 1) * barWidth, GetClientSize().y);
}

void HistogramStrip::PaintLane(wxDC& dc, std::size_t lane, int barWidth) {
  const int height = LaneHeight();
  const int bottom = (static_cast<int>(lane) + 1) * height - 1;
  dc.DrawBitmap(pictures_[lane].GetBitmapFor(this), FromDIP(2), bottom - height + FromDIP(2), true);
  dc.SetPen(wxPen(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNSHADOW)));
  dc.DrawLine(BarsLeft(), bottom, GetClientSize().x, bottom);
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(wxBrush(SeverityColours()[lane].inside));
  std::uint32_t most = 1;
  for (const SeverityHistogram::Counts& counts : histogram_.buckets()) {
    most = std::max(most, counts[lane]);
  }
  int x = BarsLeft();
  for (const SeverityHistogram::Counts& counts : histogram_.buckets()) {
    if (counts[lane] > 0) {
      const double share = static_cast<double>(counts[lane]) / most;
      const int bar = std::max(FromDIP(2), static_cast<int>(share * (height - FromDIP(3))));
      dc.DrawRectangle(x, bottom - bar, std::max(1, barWidth - 1), bar);
    }
    x += barWidth;
  }
}

void HistogramStrip::OnMove(wxMouseEvent& event) {
  if (histogram_.buckets().empty()) return;
  const std::size_t bucket = BucketAt(event.GetX());
  if (dragFrom_ && dragTo_ != bucket) {
    dragTo_ = bucket;
    Refresh();
  }
  if (toolTipBucket_ != bucket) {
    toolTipBucket_ = bucket;
    SetToolTip(ToWx(histogram_.Describe(bucket)) + "\n" + TextOf(StringId::kHistogramHint));
  }
}

void HistogramStrip::OnRelease(wxMouseEvent& event) {
  if (HasCapture()) ReleaseMouse();
  if (!dragFrom_ || histogram_.buckets().empty()) return;
  const TimeRange range = histogram_.RangeOfDrag(*dragFrom_, BucketAt(event.GetX()));
  dragFrom_.reset();
  Refresh();
  handlers_.choose(range);
}

}  // namespace qvl
