#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "platform/standard_streams.h"

namespace qvl {

Status StandardInput::ReadSome(std::span<std::uint8_t> into, std::size_t& got) {
  got = 0;
  ssize_t count = -1;
  do {
    count = ::read(STDIN_FILENO, into.data(), into.size());
  } while (count < 0 && errno == EINTR);
  if (count < 0) {
    return Status::Failed(std::string("cannot read standard input: ") +
                          std::generic_category().message(errno));
  }
  got = static_cast<std::size_t>(count);
  return Status::Ok();
}

Status StandardOutput::Write(std::string_view bytes) {
  const int descriptor = stream_ == Stream::kOutput ? STDOUT_FILENO : STDERR_FILENO;
  while (!bytes.empty()) {
    const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
    if (count < 0) {
      if (errno == EINTR) continue;
      if (errno == EPIPE) return Status::Failed("");
      return Status::Failed(std::string(stream_ == Stream::kOutput
                                            ? "cannot write standard output: "
                                            : "cannot write standard error: ") +
                            std::generic_category().message(errno));
    }
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return Status::Ok();
}

bool StandardOutput::IsTerminal() const {
  return ::isatty(stream_ == Stream::kOutput ? STDOUT_FILENO : STDERR_FILENO) != 0;
}

void PrepareStandardStreams() {
  // An open gives the lowest number that is free.
  int descriptor = 0;
  while (descriptor >= 0 && descriptor <= STDERR_FILENO) {
    descriptor = ::open("/dev/null", O_RDWR);
  }
  if (descriptor >= 0) ::close(descriptor);
  ::signal(SIGXFSZ, SIG_IGN);
}

std::vector<std::string> ProgramArguments(int argc, char** argv) {
  if (argc < 1) return {};
  return {argv + 1, argv + argc};
}

}  // namespace qvl
