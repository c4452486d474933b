#include <windows.h>

#include <algorithm>

#include "platform/exclusive_file.h"
#include "platform/wide_text_windows.h"

namespace qvl {

struct ExclusiveFile::Handle {
  HANDLE file = INVALID_HANDLE_VALUE;
};

namespace {

constexpr std::size_t kLargestTransfer = std::size_t{1} << 30U;

Status Failure(const char* operation, const std::string& path, DWORD error) {
  if (error == ERROR_SHARING_VIOLATION) {
    return Status::Failed("cannot open '" + path + "': another program is using the file");
  }
  return Status::Failed(std::string(operation) + " '" + path + "': " + SystemErrorText(error));
}

DWORD Disposition(ExclusiveFile::Mode mode) {
  switch (mode) {
    case ExclusiveFile::Mode::kRead:
      return OPEN_EXISTING;
    case ExclusiveFile::Mode::kReplace:
      return CREATE_ALWAYS;
    case ExclusiveFile::Mode::kOverwrite:
    case ExclusiveFile::Mode::kOverwriteShared:
    case ExclusiveFile::Mode::kAppend:
      break;
  }
  return OPEN_ALWAYS;
}

// A file that grows may be read meanwhile: a run log is looked at while the run goes on.
DWORD Sharing(ExclusiveFile::Mode mode) {
  const bool alone =
      mode == ExclusiveFile::Mode::kOverwrite || mode == ExclusiveFile::Mode::kReplace;
  return alone ? 0 : FILE_SHARE_READ;
}

}  // namespace

ExclusiveFile::ExclusiveFile() : handle_(std::make_unique<Handle>()) {}

ExclusiveFile::~ExclusiveFile() {
  if (handle_->file != INVALID_HANDLE_VALUE) ::CloseHandle(handle_->file);
}

Status ExclusiveFile::Open(const std::string& path, Mode mode) {
  Status closed = Close();
  if (!closed.ok()) return closed;
  path_ = path;
  const bool reading = mode == Mode::kRead;
  handle_->file =
      ::CreateFileW(WideFromUtf8(path).c_str(), reading ? GENERIC_READ : GENERIC_WRITE,
                    Sharing(mode), nullptr, Disposition(mode), FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle_->file == INVALID_HANDLE_VALUE) return Failure("cannot open", path, ::GetLastError());
  if (mode == Mode::kAppend) {
    const LARGE_INTEGER zero = {};
    if (::SetFilePointerEx(handle_->file, zero, nullptr, FILE_END) == 0) {
      Status failure = Failure("cannot open", path, ::GetLastError());
      ::CloseHandle(handle_->file);
      handle_->file = INVALID_HANDLE_VALUE;
      return failure;
    }
  }
  return Status::Ok();
}

Status ExclusiveFile::Read(std::span<std::uint8_t> into, std::size_t& got) {
  got = 0;
  while (got < into.size()) {
    const auto want = static_cast<DWORD>(std::min(into.size() - got, kLargestTransfer));
    DWORD count = 0;
    if (::ReadFile(handle_->file, into.data() + got, want, &count, nullptr) == 0) {
      return Failure("cannot read", path_, ::GetLastError());
    }
    if (count == 0) break;
    got += count;
  }
  return Status::Ok();
}

Status ExclusiveFile::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    const auto want = static_cast<DWORD>(std::min(bytes.size(), kLargestTransfer));
    DWORD count = 0;
    if (::WriteFile(handle_->file, bytes.data(), want, &count, nullptr) == 0) {
      return Failure("cannot write", path_, ::GetLastError());
    }
    if (count == 0) return Failure("cannot write", path_, ERROR_DISK_FULL);
    bytes.remove_prefix(count);
  }
  return Status::Ok();
}

Status ExclusiveFile::Size(std::uint64_t& size) {
  LARGE_INTEGER value = {};
  size = 0;
  if (::GetFileType(handle_->file) != FILE_TYPE_DISK) return Status::Ok();
  if (::GetFileSizeEx(handle_->file, &value) == 0) {
    return Failure("cannot query", path_, ::GetLastError());
  }
  size = static_cast<std::uint64_t>(value.QuadPart);
  return Status::Ok();
}

Status ExclusiveFile::CutTail() {
  if (::GetFileType(handle_->file) != FILE_TYPE_DISK) return Status::Ok();
  if (::SetEndOfFile(handle_->file) == 0) return Failure("cannot write", path_, ::GetLastError());
  return Status::Ok();
}

Status ExclusiveFile::Flush() {
  if (::GetFileType(handle_->file) != FILE_TYPE_DISK) return Status::Ok();
  if (::FlushFileBuffers(handle_->file) == 0) {
    return Failure("cannot write", path_, ::GetLastError());
  }
  return Status::Ok();
}

Status ExclusiveFile::Close() {
  if (handle_->file == INVALID_HANDLE_VALUE) return Status::Ok();
  const BOOL closed = ::CloseHandle(handle_->file);
  const DWORD error = ::GetLastError();
  handle_->file = INVALID_HANDLE_VALUE;
  if (closed == 0) return Failure("cannot close", path_, error);
  return Status::Ok();
}

}  // namespace qvl
