#ifndef QVL_VIEWER_UI_WORKING_WINDOW_H_
#define QVL_VIEWER_UI_WORKING_WINDOW_H_

#include <wx/dialog.h>
#include <wx/stattext.h>
#include <wx/timer.h>

#include <atomic>
#include <cstdint>

#include "viewer/model/progress_window.h"

namespace qvl {

/// What crosses between the window and the thread that reads.
struct ReadingProgress {
  std::atomic<std::uint64_t> entriesRead{0};
  std::atomic<bool> cancelRequested{false};
};

/// The window over the main one that says what is going on. Modeless; it takes the pointer's
/// picture with it when it goes.
class CWorking : public wxDialog {
 public:
  CWorking(wxWindow* owner, const wxString& message, bool canCancel, ReadingProgress& progress);
  ~CWorking() override;

 private:
  void ShowCount();
  void RequestCancel();

  ReadingProgress& progress_;
  wxStaticText* count_ = nullptr;
  wxTimer timer_;
};

/// The model's hold on it.
class WorkingWindow : public ProgressWindow {
 public:
  explicit WorkingWindow(wxWindow* owner) : owner_(owner) {}

  void Show(const std::string& text, bool canCancel) override;
  void Close() override;
  void SetEntriesRead(std::uint64_t count) override { progress_.entriesRead = count; }
  bool CancelRequested() const override { return progress_.cancelRequested; }

  void RequestCancel() { progress_.cancelRequested = true; }

  /// Null while none is shown.
  wxWindow* window() const { return window_; }

 private:
  wxWindow* owner_;
  ReadingProgress progress_;
  CWorking* window_ = nullptr;
};

}  // namespace qvl

#endif  // QVL_VIEWER_UI_WORKING_WINDOW_H_
