#include "viewer/model/commands.h"

#include "entries/ascii_case.h"

namespace qvl {
namespace {

using enum StringId;

constexpr MenuItem kLogMenu[] = {
    {Command::kBrowse,       kMenuBrowse,       false},
    {Command::kOpenLogFile,  kMenuOpen,         false},
    {Command::kSaveLogAs,    kMenuSave,         false},
    {Command::kExportLog,    kMenuExport,       false},
    {Command::kPrintPreview, kMenuPreview,      true },
    {Command::kPrint,        kMenuPrint,        false},
    {Command::kClearAll,     kMenuClear,        true },
    {Command::kMarkRepaired, kMenuMarkRepaired, false},
    {Command::kAddNote,      kMenuNote,         false},
    {Command::kExit,         kMenuExit,         true },
};

constexpr MenuItem kViewMenu[] = {
    {Command::kAllEntries,   kMenuAllEntries,   false},
    {Command::kFilter,       kMenuFilter,       false},
    {Command::kRefresh,      kMenuRefresh,      false},
    {Command::kCopy,         kMenuCopy,         true },
    {Command::kSelectAll,    kMenuSelectAll,    false},
    {Command::kFind,         kMenuFind,         true },
    {Command::kFindNext,     kMenuFindNext,     false},
    {Command::kFindPrevious, kMenuFindPrevious, false},
    {Command::kDetails,      kMenuDetails,      true },
    {Command::kHistogram,    kMenuHistogram,    false},
};

constexpr MenuItem kHelpMenu[] = {
    {Command::kHelpTopics, kMenuHelpTopics, false},
    {Command::kAbout,      kMenuAbout,      true },
};

constexpr Menu kMenuBar[] = {
    {kMenuLog,  kLogMenu },
    {kMenuView, kViewMenu},
    {kMenuHelp, kHelpMenu},
};

constexpr MenuItem kContextMenu[] = {
    {Command::kMarkRepaired, kContextMarkRepaired, false},
};

constexpr Accelerator kExtraAccelerators[] = {
    {"F1",        Command::kHelpTopics     },
    {"Alt+R",     Command::kRefresh        },
    {"Alt+M",     Command::kGoToMachineBox },
    {"Tab",       Command::kNextControl    },
    {"Shift+Tab", Command::kPreviousControl},
};

}  // namespace

std::span<const Menu> MenuBar() {
  return kMenuBar;
}

std::span<const MenuItem> ContextMenu() {
  return kContextMenu;
}

std::span<const Accelerator> ExtraAccelerators() {
  return kExtraAccelerators;
}

MenuText SplitMenuText(std::string_view text) {
  const std::size_t tab = text.find('\t');
  if (tab == std::string_view::npos) return {.label = text, .keys = {}};
  return {.label = text.substr(0, tab), .keys = text.substr(tab + 1)};
}

char MnemonicOf(std::string_view label) {
  const std::size_t ampersand = label.find('&');
  const bool marked = ampersand != std::string_view::npos && ampersand + 1 < label.size();
  return marked ? ToAsciiLower(label[ampersand + 1]) : '\0';
}

}  // namespace qvl
