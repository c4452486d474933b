#ifndef QVL_VIEWER_MODEL_PROGRESS_WINDOW_H_
#define QVL_VIEWER_MODEL_PROGRESS_WINDOW_H_

#include <cstdint>
#include <string>

namespace qvl {

/// The window that says what a remote operation is doing. While it is shown the pointer says
/// "wait", and the user's input reaches this window alone.
class ProgressWindow {
 public:
  virtual ~ProgressWindow() = default;

  /// text       UTF-8.
  /// canCancel  whether the window offers to cancel, and counts entries.
  virtual void Show(const std::string& text, bool canCancel) = 0;
  /// Takes the window away and restores the pointer.
  virtual void Close() = 0;

  /// Both are called after every entry from the thread that `BlockingWork` runs the reading on:
  /// they must cost next to nothing, an atomic variable each.
  virtual void SetEntriesRead(std::uint64_t count) = 0;
  virtual bool CancelRequested() const = 0;
};

/// Shows the progress window while it lives, so that it is closed on every path.
class ShownProgress {
 public:
  ShownProgress(ProgressWindow& window, const std::string& text, bool canCancel = false)
      : window_(window) {
    window_.Show(text, canCancel);
  }
  ~ShownProgress() { Close(); }
  ShownProgress(const ShownProgress&) = delete;
  ShownProgress& operator=(const ShownProgress&) = delete;

  /// Before a message is shown.
  void Close() {
    if (shown_) window_.Close();
    shown_ = false;
  }

 private:
  ProgressWindow& window_;
  bool shown_ = true;
};

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_PROGRESS_WINDOW_H_
