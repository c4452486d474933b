#include <string>

#include "platform/standard_streams.h"
#include "viewer/ui/start_message.h"

namespace qvl {

void ShowStartMessage(std::string_view text) {
  StandardOutput error(StandardOutput::Stream::kError);
  // Nobody is left to tell when this fails.
  static_cast<void>(error.Write(std::string(text) + "\n"));
}

}  // namespace qvl
