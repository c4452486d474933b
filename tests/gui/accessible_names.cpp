// Tells the controls of a program's windows that those who hear a window learn no name of, a line
// each, through the desktop's accessibility interface (AT-SPI).
//
//   accessible_names [--all] PROGRAM
//
// --all lists every visible object. Exit status: 0 all have names, 1 some have none, 2 no program.

#include <atspi/atspi.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <string>

namespace {

struct Unref {
  void operator()(gpointer object) const { g_object_unref(object); }
};
using Accessible = std::unique_ptr<AtspiAccessible, Unref>;

std::string TextOf(gchar* text) {
  std::string copy = text != nullptr ? text : "";
  g_free(text);
  return copy;
}

bool IsControl(AtspiRole role) {
  switch (role) {
    case ATSPI_ROLE_CHECK_BOX:
    case ATSPI_ROLE_COMBO_BOX:
    case ATSPI_ROLE_DIALOG:
    case ATSPI_ROLE_ENTRY:
    case ATSPI_ROLE_FRAME:
    case ATSPI_ROLE_LIST:
    case ATSPI_ROLE_LIST_BOX:
    case ATSPI_ROLE_MENU_ITEM:
    case ATSPI_ROLE_PASSWORD_TEXT:
    case ATSPI_ROLE_PUSH_BUTTON:
    case ATSPI_ROLE_RADIO_BUTTON:
    case ATSPI_ROLE_SPIN_BUTTON:
    case ATSPI_ROLE_TABLE:
    case ATSPI_ROLE_TEXT:
    case ATSPI_ROLE_TOGGLE_BUTTON:
    case ATSPI_ROLE_TREE:
    case ATSPI_ROLE_TREE_TABLE:
      return true;
    default:
      return false;
  }
}

bool IsShowing(AtspiAccessible* object) {
  AtspiStateSet* const states = atspi_accessible_get_state_set(object);
  const bool showing =
      states != nullptr && atspi_state_set_contains(states, ATSPI_STATE_SHOWING) != FALSE;
  if (states != nullptr) g_object_unref(states);
  return showing;
}

// A column's heading and a cell say what they hold; so does a menu's bar.
int TellBelow(AtspiAccessible* parent, bool all, int depth) {
  int unnamed = 0;
  const int children = atspi_accessible_get_child_count(parent, nullptr);
  for (int i = 0; i < children && i < 200; ++i) {
    const Accessible child(atspi_accessible_get_child_at_index(parent, i, nullptr));
    if (!child || !IsShowing(child.get())) continue;
    const std::string name = TextOf(atspi_accessible_get_name(child.get(), nullptr));
    const std::string role = TextOf(atspi_accessible_get_role_name(child.get(), nullptr));
    const bool lacksName =
        name.empty() && IsControl(atspi_accessible_get_role(child.get(), nullptr));
    if (lacksName) ++unnamed;
    if (all || lacksName) {
      std::printf("%*s%s \"%s\"%s\n", 2 * depth, "", role.c_str(), name.c_str(),
                  lacksName ? " has no name" : "");
    }
    unnamed += TellBelow(child.get(), all, depth + 1);
  }
  return unnamed;
}

}  // namespace

int main(int argc, char** argv) {
  const bool all = argc == 3 && std::strcmp(argv[1], "--all") == 0;
  if (argc != (all ? 3 : 2)) return 2;
  if (atspi_init() > 1) return 2;
  const Accessible desktop(atspi_get_desktop(0));
  const int programs = atspi_accessible_get_child_count(desktop.get(), nullptr);
  for (int i = 0; i < programs; ++i) {
    const Accessible program(atspi_accessible_get_child_at_index(desktop.get(), i, nullptr));
    if (!program) continue;
    const std::string name = TextOf(atspi_accessible_get_name(program.get(), nullptr));
    if (name != argv[argc - 1]) {
      std::fprintf(stderr, "not %s\n", name.c_str());
      continue;
    }
    return TellBelow(program.get(), all, 0) == 0 ? 0 : 1;
  }
  return 2;
}
