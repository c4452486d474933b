#include "texts/strings.h"
#include "viewer/ui/start_message.h"
#include "viewer/ui/start_window.h"

namespace qvl {

int StartWindow(const std::vector<std::string>& /*arguments*/) {
  ShowStartMessage(GetString(StringId::kBuiltWithoutWindow));
  return 1;
}

}  // namespace qvl
