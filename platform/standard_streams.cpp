#include "platform/standard_streams.h"

namespace qvl {

Status StandardInput::Read(std::span<std::uint8_t> into, std::size_t& got) {
  got = 0;
  while (got < into.size()) {
    std::size_t some = 0;
    Status status = ReadSome(into.subspan(got), some);
    if (!status.ok()) return status;
    if (some == 0) break;
    got += some;
  }
  return Status::Ok();
}

}  // namespace qvl
