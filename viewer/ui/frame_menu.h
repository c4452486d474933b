#ifndef QVL_VIEWER_UI_FRAME_MENU_H_
#define QVL_VIEWER_UI_FRAME_MENU_H_

#include <wx/accel.h>
#include <wx/menu.h>

#include <functional>
#include <string>
#include <vector>

#include "viewer/model/commands.h"

namespace qvl {

/// The toolkit's number of a command, and back.
int IdOf(Command command);
Command CommandOf(int id);
int FirstCommandId();
int LastCommandId();

/// The main window's menu bar.
class FrameMenu {
 public:
  /// Made for a frame, which owns it.
  FrameMenu();

  wxMenuBar* bar() const { return bar_; }

  void Update(const std::function<bool(Command)>& isEnabled);
  void Check(Command command, bool checked);

  /// The recent files, in front of "Exit": wxID_FILE1 and on.
  void ShowRecentFiles(const std::vector<std::string>& paths);

 private:
  wxMenuBar* bar_;
  wxMenuItem* recentFilesLine_ = nullptr;
};

wxMenu* NewContextMenu();

/// The keys with Alt that no menu shows. They are left to the system's way with accelerators: a key
/// taken before that would leave Alt to open the menu when it is let go.
wxAcceleratorTable AltKeys();

/// Keys that the frame looks at before the control that has the focus does: Tab, which is no
/// accelerator everywhere, and the key of the note, which some lists take for Enter.
class FrameKeys {
 public:
  FrameKeys();

  /// The command of a key, if it is one of them.
  bool Find(const wxKeyEvent& event, Command& command) const;

 private:
  struct Key {
    int code;
    int modifiers;
    Command command;
  };
  void Add(std::string_view keys, Command command);

  std::vector<Key> keys_;
};

}  // namespace qvl

#endif  // QVL_VIEWER_UI_FRAME_MENU_H_
