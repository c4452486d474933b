#include <windows.h>
// Needs the declarations of windows.h before it.
#include <shellapi.h>

#include <algorithm>

#include "platform/standard_streams.h"
#include "platform/wide_text_windows.h"

namespace qvl {
namespace {

constexpr std::size_t kLargestTransfer = std::size_t{1} << 20U;

HANDLE HandleOf(StandardOutput::Stream stream) {
  return ::GetStdHandle(stream == StandardOutput::Stream::kOutput ? STD_OUTPUT_HANDLE
                                                                  : STD_ERROR_HANDLE);
}

}  // namespace

Status StandardInput::ReadSome(std::span<std::uint8_t> into, std::size_t& got) {
  got = 0;
  const auto want = static_cast<DWORD>(std::min(into.size(), kLargestTransfer));
  DWORD count = 0;
  if (::ReadFile(::GetStdHandle(STD_INPUT_HANDLE), into.data(), want, &count, nullptr) == 0) {
    // The writer of a pipe that closes its end is how a pipe ends.
    const DWORD error = ::GetLastError();
    if (error == ERROR_BROKEN_PIPE || error == ERROR_HANDLE_EOF) return Status::Ok();
    return Status::Failed("cannot read standard input: " + SystemErrorText(error));
  }
  got = count;
  return Status::Ok();
}

Status StandardOutput::Write(std::string_view bytes) {
  const HANDLE handle = HandleOf(stream_);
  while (!bytes.empty()) {
    const auto want = static_cast<DWORD>(std::min(bytes.size(), kLargestTransfer));
    DWORD count = 0;
    if (::WriteFile(handle, bytes.data(), want, &count, nullptr) == 0 || count == 0) {
      const DWORD error = ::GetLastError();
      const bool readerGone =
          error == ERROR_BROKEN_PIPE || error == ERROR_NO_DATA || error == ERROR_PIPE_NOT_CONNECTED;
      return Status::Failed(readerGone ? ""
                                       : "cannot write standard output: " + SystemErrorText(error));
    }
    bytes.remove_prefix(count);
  }
  return Status::Ok();
}

bool StandardOutput::IsTerminal() const {
  DWORD mode = 0;
  return ::GetConsoleMode(HandleOf(stream_), &mode) != 0;
}

// Handles are not given anew in the place of standard streams.
void PrepareStandardStreams() {}

std::vector<std::string> ProgramArguments(int /*argc*/, char** /*argv*/) {
  int count = 0;
  LPWSTR* const arguments = ::CommandLineToArgvW(::GetCommandLineW(), &count);
  std::vector<std::string> texts;
  for (int i = 1; i < count; ++i) texts.push_back(Utf8FromWide(arguments[i]));
  ::LocalFree(arguments);
  return texts;
}

}  // namespace qvl
