#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "platform/standard_streams.h"

namespace qvl {

Status StandardInput::Read(std::span<std::uint8_t> into, std::size_t& got) {
  got = 0;
  while (got < into.size()) {
    const ssize_t count = ::read(STDIN_FILENO, into.data() + got, into.size() - got);
    if (count == 0) break;
    if (count < 0) {
      if (errno == EINTR) continue;
      return Status::Failed(std::string("cannot read standard input: ") + std::strerror(errno));
    }
    got += static_cast<std::size_t>(count);
  }
  return Status::Ok();
}

Status StandardOutput::Write(std::string_view bytes) {
  const int descriptor = stream_ == Stream::kOutput ? STDOUT_FILENO : STDERR_FILENO;
  while (!bytes.empty()) {
    const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
    if (count < 0) {
      if (errno == EINTR) continue;
      return Status::Failed(std::string("cannot write standard output: ") + std::strerror(errno));
    }
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return Status::Ok();
}

std::vector<std::string> ProgramArguments(int argc, char** argv) {
  if (argc < 1) return {};
  return {argv + 1, argv + argc};
}

}  // namespace qvl
