#include "platform/system_error_text.h"

#include <windows.h>

#include <array>

namespace qvl {

std::string TextOfErrorCode(std::uint32_t code) {
  std::array<char, 260> buffer{};
  // The code may come from another machine, and some texts ask for values that only its caller
  // knew; those places stay as they are written.
  constexpr DWORD kFlags = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
  const DWORD length =
      ::FormatMessageA(kFlags, nullptr, code, MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT),
                       buffer.data(), static_cast<DWORD>(buffer.size()), nullptr);
  std::string text(buffer.data(), length);
  text.erase(text.find_last_not_of("\r\n") + 1);  // nothing found is the largest number: 0
  return text;
}

}  // namespace qvl
