#ifndef QVL_VIEWER_MODEL_MAIN_WINDOW_H_
#define QVL_VIEWER_MODEL_MAIN_WINDOW_H_

#include <cstdint>
#include <string>
#include <vector>

#include "viewer/model/commands.h"

namespace qvl {

/// Where a window stands when it is neither minimised nor maximised, in pixels of the screen, and
/// how it is shown. `state` and `flags` are the numbers of Windows' window placement on every
/// system: https://learn.microsoft.com/windows/win32/api/winuser/ns-winuser-windowplacement
struct WindowPlacement {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
  std::uint32_t state = 1;
  std::uint32_t flags = 0;

  static constexpr std::uint32_t kNormal = 1;
  static constexpr std::uint32_t kMinimised = 2;
  static constexpr std::uint32_t kMaximised = 3;

  friend bool operator==(const WindowPlacement&, const WindowPlacement&) = default;
};

/// The part of the screen that no task bar covers, in pixels.
struct WorkArea {
  int width = 0;
  int height = 0;
};

/// The main window as its model sees it. Texts are UTF-8.
class MainWindow {
 public:
  virtual ~MainWindow() = default;

  virtual std::string GetCaption() const = 0;
  virtual void SetCaption(const std::string& caption) = 0;

  /// What the menus, buttons and the status bar show may have changed: ask for it again.
  virtual void UpdateControls() = 0;

  /// The list of recent files has changed; newest first.
  virtual void ShowRecentFiles(const std::vector<std::string>& paths) = 0;

  /// What the search for a typed text says; empty while it goes on and when the text was found.
  virtual void ShowSearchAnswer(const std::string& answer) = 0;

  virtual void CopyToClipboard(const std::string& text) = 0;

  /// Does what only the toolkit can: preview, print, exit, the find bar, the details pane, the
  /// histogram, help, the about box, and moving the keyboard focus.
  virtual void DoCommand(Command command) = 0;

  virtual WindowPlacement GetPlacement() const = 0;
  virtual void SetPlacement(const WindowPlacement& placement) = 0;
  virtual WorkArea GetWorkArea() const = 0;
};

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_MAIN_WINDOW_H_
