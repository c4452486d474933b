#include "viewer/ui/frame_menu.h"

#include <wx/control.h>
#include <wx/event.h>

#include <memory>

#include "viewer/ui/wx_text.h"

namespace qvl {
namespace {

constexpr int kFirstCommandId = wxID_HIGHEST + 1;
constexpr auto kLastCommand = Command::kPreviousControl;
constexpr int kMostRecentFiles = 9;  // wxID_FILE1 to wxID_FILE9

bool IsCheckable(Command command) {
  return command == Command::kDetails || command == Command::kHistogram;
}

wxMenu* NewMenu(std::span<const MenuItem> items) {
  auto* const menu = new wxMenu;
  for (const MenuItem& item : items) {
    if (item.separatorBefore) menu->AppendSeparator();
    menu->Append(IdOf(item.command), TextOf(item.text), wxString(),
                 IsCheckable(item.command) ? wxITEM_CHECK : wxITEM_NORMAL);
  }
  return menu;
}

// The toolkit reads keys behind the label of a menu.
std::unique_ptr<wxAcceleratorEntry> ParseKeys(std::string_view keys) {
  return std::unique_ptr<wxAcceleratorEntry>(wxAcceleratorEntry::Create("x\t" + ToWx(keys)));
}

int ModifiersOf(const wxAcceleratorEntry& entry) {
  int modifiers = wxMOD_NONE;
  if ((entry.GetFlags() & wxACCEL_CTRL) != 0) modifiers |= wxMOD_CONTROL;
  if ((entry.GetFlags() & wxACCEL_SHIFT) != 0) modifiers |= wxMOD_SHIFT;
  return modifiers;
}

}  // namespace

int IdOf(Command command) {
  return kFirstCommandId + static_cast<int>(command);
}

Command CommandOf(int id) {
  return static_cast<Command>(id - kFirstCommandId);
}

int FirstCommandId() {
  return kFirstCommandId;
}

int LastCommandId() {
  return IdOf(kLastCommand);
}

FrameMenu::FrameMenu() : bar_(new wxMenuBar) {
  for (const Menu& menu : MenuBar()) bar_->Append(NewMenu(menu.items), TextOf(menu.title));
}

void FrameMenu::Update(const std::function<bool(Command)>& isEnabled) {
  for (const Menu& menu : MenuBar()) {
    for (const MenuItem& item : menu.items)
      bar_->Enable(IdOf(item.command), isEnabled(item.command));
  }
}

void FrameMenu::Check(Command command, bool checked) {
  bar_->Check(IdOf(command), checked);
}

void FrameMenu::ShowRecentFiles(const std::vector<std::string>& paths) {
  wxMenu* const menu = bar_->GetMenu(0);
  for (int i = 0; i < kMostRecentFiles; ++i) {
    if (menu->FindItem(wxID_FILE1 + i) != nullptr) menu->Destroy(wxID_FILE1 + i);
  }
  if (recentFilesLine_ != nullptr) menu->Destroy(recentFilesLine_);
  recentFilesLine_ = nullptr;
  // "Exit" is the last item, with a separator before it.
  std::size_t place = menu->GetMenuItemCount() - 2;
  if (!paths.empty()) recentFilesLine_ = menu->InsertSeparator(place++);
  int number = 0;
  for (const std::string& path : paths) {
    const wxString label = wxControl::EscapeMnemonics(PathToWx(path));
    menu->Insert(place++, wxID_FILE1 + number, wxString::Format("&%d %s", number + 1, label));
    ++number;
  }
}

wxMenu* NewContextMenu() {
  return NewMenu(ContextMenu());
}

wxAcceleratorTable AltKeys() {
  std::vector<wxAcceleratorEntry> entries;
  for (const Accelerator& accelerator : ExtraAccelerators()) {
    const std::unique_ptr<wxAcceleratorEntry> entry = ParseKeys(accelerator.keys);
    if (!entry || (entry->GetFlags() & wxACCEL_ALT) == 0) continue;
    entries.emplace_back(entry->GetFlags(), entry->GetKeyCode(), IdOf(accelerator.command));
  }
  return wxAcceleratorTable(static_cast<int>(entries.size()), entries.data());
}

FrameKeys::FrameKeys() {
  for (const Accelerator& accelerator : ExtraAccelerators()) {
    Add(accelerator.keys, accelerator.command);
  }
  Add(SplitMenuText(GetString(StringId::kMenuNote)).keys, Command::kAddNote);
}

void FrameKeys::Add(std::string_view keys, Command command) {
  const std::unique_ptr<wxAcceleratorEntry> entry = ParseKeys(keys);
  if (!entry || (entry->GetFlags() & wxACCEL_ALT) != 0) return;
  keys_.push_back({entry->GetKeyCode(), ModifiersOf(*entry), command});
}

bool FrameKeys::Find(const wxKeyEvent& event, Command& command) const {
  for (const Key& key : keys_) {
    if (key.code != event.GetKeyCode() || key.modifiers != event.GetModifiers()) continue;
    command = key.command;
    return true;
  }
  return false;
}

}  // namespace qvl
