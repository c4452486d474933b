#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "platform/exclusive_file.h"

namespace qvl {

struct ExclusiveFile::Handle {
  int descriptor = -1;
};

namespace {

// Linux writes at most this many bytes a call; larger requests are simply split.
constexpr std::size_t kLargestTransfer = std::size_t{1} << 30U;

Status Failure(const char* operation, const std::string& path, int error) {
  return Status::Failed(std::string(operation) + " '" + path +
                        "': " + std::generic_category().message(error));
}

int OpenFlags(ExclusiveFile::Mode mode) {
  switch (mode) {
    case ExclusiveFile::Mode::kRead:
      return O_RDONLY;
    case ExclusiveFile::Mode::kAppend:
      return O_WRONLY | O_CREAT | O_APPEND | O_NONBLOCK;
    case ExclusiveFile::Mode::kOverwrite:
    case ExclusiveFile::Mode::kOverwriteShared:
    case ExclusiveFile::Mode::kReplace:
      break;
  }
  // A file to be replaced is truncated only once it is locked: another program's file stays whole.
  // A pipe without a reader is a failure, and nothing to wait for.
  return O_WRONLY | O_CREAT | O_NONBLOCK;
}

// Some file systems and devices have no locks; there the open alone must do.
bool LockUnsupported(int error) {
  return error == EINVAL || error == ENOLCK || error == EOPNOTSUPP || error == ENOSYS;
}

// Locks an open file, and empties it when it is to be replaced.
Status Claim(int descriptor, const std::string& path, ExclusiveFile::Mode mode) {
  struct stat properties = {};
  if (::fstat(descriptor, &properties) != 0) return Failure("cannot query", path, errno);
  if (S_ISDIR(properties.st_mode)) return Failure("cannot open", path, EISDIR);
  const int flags = ::fcntl(descriptor, F_GETFL);
  if (flags < 0 || ::fcntl(descriptor, F_SETFL, flags & ~O_NONBLOCK) != 0) {
    return Failure("cannot open", path, errno);
  }
  const int lock = mode == ExclusiveFile::Mode::kRead ? LOCK_SH : LOCK_EX;
  if (::flock(descriptor, lock | LOCK_NB) != 0 && !LockUnsupported(errno)) {
    if (errno != EWOULDBLOCK) return Failure("cannot lock", path, errno);
    return Status::Failed("cannot open '" + path + "': another program is using the file");
  }
  const bool empties = mode == ExclusiveFile::Mode::kReplace && S_ISREG(properties.st_mode);
  if (empties && ::ftruncate(descriptor, 0) != 0) return Failure("cannot empty", path, errno);
  return Status::Ok();
}

}  // namespace

ExclusiveFile::ExclusiveFile() : handle_(std::make_unique<Handle>()) {}

ExclusiveFile::~ExclusiveFile() {
  if (handle_->descriptor >= 0) ::close(handle_->descriptor);
}

Status ExclusiveFile::Open(const std::string& path, Mode mode) {
  Status closed = Close();
  if (!closed.ok()) return closed;
  path_ = path;
  int descriptor = -1;
  do {
    descriptor = ::open(path.c_str(), OpenFlags(mode) | O_CLOEXEC, 0666);
  } while (descriptor < 0 && errno == EINTR);
  if (descriptor < 0) return Failure("cannot open", path, errno);
  Status claimed = Claim(descriptor, path, mode);
  if (claimed.ok()) {
    handle_->descriptor = descriptor;
  } else {
    ::close(descriptor);
  }
  return claimed;
}

Status ExclusiveFile::Read(std::span<std::uint8_t> into, std::size_t& got) {
  got = 0;
  while (got < into.size()) {
    const std::size_t want = std::min(into.size() - got, kLargestTransfer);
    const ssize_t count = ::read(handle_->descriptor, into.data() + got, want);
    if (count == 0) break;
    if (count < 0) {
      if (errno == EINTR) continue;
      return Failure("cannot read", path_, errno);
    }
    got += static_cast<std::size_t>(count);
  }
  return Status::Ok();
}

Status ExclusiveFile::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count =
        ::write(handle_->descriptor, bytes.data(), std::min(bytes.size(), kLargestTransfer));
    if (count < 0) {
      if (errno == EINTR) continue;
      return Failure("cannot write", path_, errno);
    }
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return Status::Ok();
}

Status ExclusiveFile::Size(std::uint64_t& size) {
  struct stat properties = {};
  if (::fstat(handle_->descriptor, &properties) != 0) return Failure("cannot query", path_, errno);
  size = S_ISREG(properties.st_mode) ? static_cast<std::uint64_t>(properties.st_size) : 0;
  return Status::Ok();
}

Status ExclusiveFile::CutTail() {
  const off_t place = ::lseek(handle_->descriptor, 0, SEEK_CUR);
  struct stat properties = {};
  if (::fstat(handle_->descriptor, &properties) != 0) return Failure("cannot query", path_, errno);
  if (!S_ISREG(properties.st_mode)) return Status::Ok();
  if (place < 0 || ::ftruncate(handle_->descriptor, place) != 0) {
    return Failure("cannot write", path_, errno);
  }
  return Status::Ok();
}

Status ExclusiveFile::Flush() {
  if (::fsync(handle_->descriptor) == 0) return Status::Ok();
  const int error = errno;
  // Devices and pipes have no storage to wait for.
  if (error == EINVAL || error == EROFS || error == ENOTSUP) return Status::Ok();
  return Failure("cannot write", path_, error);
}

Status ExclusiveFile::Close() {
  if (handle_->descriptor < 0) return Status::Ok();
  const int result = ::close(handle_->descriptor);
  const int error = errno;
  handle_->descriptor = -1;
  if (result != 0 && error != EINTR) return Failure("cannot close", path_, error);
  return Status::Ok();
}

}  // namespace qvl
