#include <windows.h>

#include "viewer/ui/window_placement.h"

namespace qvl {
namespace {

WINDOWPLACEMENT NativePlacement(HWND window) {
  WINDOWPLACEMENT native = {};
  native.length = sizeof native;
  ::GetWindowPlacement(window, &native);
  return native;
}

}  // namespace

WindowPlacement PlacementOf(const wxTopLevelWindow& window, const wxRect& /*lastNormal*/) {
  const WINDOWPLACEMENT native = NativePlacement(window.GetHandle());
  return {.left = native.rcNormalPosition.left,
          .top = native.rcNormalPosition.top,
          .right = native.rcNormalPosition.right,
          .bottom = native.rcNormalPosition.bottom,
          .state = native.showCmd == SW_HIDE ? SW_SHOWNORMAL : native.showCmd,
          .flags = native.flags};
}

// The rectangle first, hidden: the toolkit wants to show the window itself.
void ApplyPlacement(wxTopLevelWindow& window, const WindowPlacement& placement) {
  WINDOWPLACEMENT native = NativePlacement(window.GetHandle());
  native.rcNormalPosition = {placement.left, placement.top, placement.right, placement.bottom};
  native.flags = placement.flags;
  native.showCmd = SW_HIDE;
  ::SetWindowPlacement(window.GetHandle(), &native);
  if (placement.state == WindowPlacement::kMaximised) window.Maximize();
  if (placement.state == WindowPlacement::kMinimised) window.Iconize();
}

}  // namespace qvl
