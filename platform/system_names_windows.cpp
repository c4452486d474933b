#include "platform/system_names.h"

#include <windows.h>

#include <array>

#include "platform/wide_text_windows.h"

namespace qvl {

const char* const kSystemLineEnd = "\r\n";

// The names go to calls that take 8-bit text, so they are asked for as such. The program's
// manifest makes that UTF-8.
std::string ComputerName() {
  std::array<char, 260> name{};
  auto size = static_cast<DWORD>(name.size());
  if (::GetComputerNameA(name.data(), &size) == 0) return {};
  return {name.data(), size};
}

std::string ProcessCommandLine(int /*argc*/, const char* const* /*argv*/) {
  return Utf8FromWide(::GetCommandLineW());
}

bool UserReadsJapanese() {
  return PRIMARYLANGID(::GetUserDefaultUILanguage()) == LANG_JAPANESE;
}

}  // namespace qvl
