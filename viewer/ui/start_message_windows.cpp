#include <windows.h>

#include <string>

#include "platform/standard_streams.h"
#include "platform/wide_text_windows.h"
#include "viewer/ui/start_message.h"

namespace qvl {

void ShowStartMessage(std::string_view text) {
  const std::string line(text);
  StandardOutput error(StandardOutput::Stream::kError);
  // A program of the desktop has no standard error unless a script gives it one.
  if (error.Write(line + "\r\n").ok()) return;
  ::MessageBoxW(nullptr, WideFromUtf8(line).c_str(), L"zlkqvxv", MB_OK | MB_ICONINFORMATION);
}

}  // namespace qvl
