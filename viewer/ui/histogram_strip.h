#ifndef QVL_VIEWER_UI_HISTOGRAM_STRIP_H_
#define QVL_VIEWER_UI_HISTOGRAM_STRIP_H_

#include <wx/bmpbndl.h>
#include <wx/panel.h>

#include <functional>
#include <optional>

#include "viewer/model/severity_histogram.h"

namespace qvl {

/// The severities over time, a lane each with its picture in front, so that nobody needs to tell
/// colours apart. Dragging over a stretch asks for its entries alone.
class HistogramStrip : public wxPanel {
 public:
  struct Handlers {
    std::function<SeverityHistogram(std::size_t largestBuckets)> count;
    std::function<void(const TimeRange&)> choose;
  };
  HistogramStrip(wxWindow* parent, Handlers handlers);

  /// The entries or the filter changed.
  void Invalidate();

 private:
  void Paint();
  void PaintLane(wxDC& dc, std::size_t lane, int barWidth);
  void PaintDrag(wxDC& dc, int barWidth);
  void OnMove(wxMouseEvent& event);
  void OnRelease(wxMouseEvent& event);
  void CountAgain();
  int LaneHeight() const;
  int BarsLeft() const;
  int BarWidth() const;
  std::size_t BucketAt(int x) const;

  Handlers handlers_;
  wxVector<wxBitmapBundle> pictures_;
  SeverityHistogram histogram_;
  int countedWidth_ = -1;
  std::optional<std::size_t> dragFrom_;
  std::size_t dragTo_ = 0;
  std::optional<std::size_t> toolTipBucket_;
};

}  // namespace qvl

#endif  // QVL_VIEWER_UI_HISTOGRAM_STRIP_H_
