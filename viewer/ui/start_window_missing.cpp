#include "viewer/ui/start_message.h"
#include "viewer/ui/start_window.h"

namespace qvl {

int StartWindow(const std::vector<std::string>& /*arguments*/) {
  ShowStartMessage(
      "zlkqvxv: this program was built without its window; a first argument that begins with '-' "
      "or '/' starts batch mode.");
  return 1;
}

}  // namespace qvl
