#ifndef QVL_VIEWER_MODEL_COMMANDS_H_
#define QVL_VIEWER_MODEL_COMMANDS_H_

#include <cstdint>
#include <span>
#include <string_view>

#include "texts/strings.h"

namespace qvl {

/// Everything that a menu, a key or a button asks the main window for.
enum class Command : std::uint8_t {
  kBrowse,
  kOpenLogFile,
  kSaveLogAs,
  kExportLog,
  kPrintPreview,
  kPrint,
  kClearAll,
  kMarkRepaired,
  kAddNote,
  kExit,
  kAllEntries,
  kFilter,
  kRefresh,
  kCopy,
  kSelectAll,
  kFind,
  kFindNext,
  kFindPrevious,
  kDetails,
  kHistogram,
  kHelpTopics,
  kAbout,
  kGoToMachineBox,
  kNextControl,
  kPreviousControl,
};

struct MenuItem {
  Command command;
  StringId text;
  bool separatorBefore = false;
};

struct Menu {
  StringId title;
  std::span<const MenuItem> items;
};

/// The menus of the main window, from left to right.
std::span<const Menu> MenuBar();

/// What a right click on the selection offers.
std::span<const MenuItem> ContextMenu();

/// A key in the notation of the menus: "Ctrl+Shift+A", "Alt+Enter", "F5".
struct Accelerator {
  std::string_view keys;
  Command command;
};

/// The keys that no menu shows. F1 opens the help, Alt+M goes to the machine box; Tab and Shift+Tab
/// walk between the box, its buttons and the list.
std::span<const Accelerator> ExtraAccelerators();

/// A menu's text, taken apart at its tab.
struct MenuText {
  std::string_view label;  ///< with its mnemonic behind an ampersand
  std::string_view keys;   ///< empty when the item has none
};
MenuText SplitMenuText(std::string_view text);

/// The letter behind the ampersand, lower case; 0 when there is none.
char MnemonicOf(std::string_view label);

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_COMMANDS_H_
