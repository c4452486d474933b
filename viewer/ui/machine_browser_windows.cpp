#include <windows.h>
// After windows.h, which they need.
#include <objbase.h>
#include <shlobj.h>

#include <array>

#include "platform/wide_text_windows.h"
#include "texts/strings.h"
#include "viewer/ui/machine_browser.h"

namespace qvl {
namespace {

constexpr std::size_t kDisplayNameSize = 260;
constexpr std::size_t kPromptSize = 500;

}  // namespace

std::optional<std::string> BrowseForMachine(wxWindow* owner) {
  const HRESULT started = ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  LPITEMIDLIST network = nullptr;
  const HWND window = owner->GetHandle();
  std::optional<std::string> name;
  if (SUCCEEDED(::SHGetSpecialFolderLocation(window, CSIDL_NETWORK, &network))) {
    std::array<wchar_t, kDisplayNameSize> displayName{};
    const std::wstring prompt =
        WideFromUtf8(GetString(StringId::kBrowsePrompt)).substr(0, kPromptSize);
    BROWSEINFOW request = {};
    request.hwndOwner = window;
    request.pidlRoot = network;
    request.pszDisplayName = displayName.data();
    request.lpszTitle = prompt.c_str();
    request.ulFlags = BIF_BROWSEFORCOMPUTER;
    const LPITEMIDLIST chosen = ::SHBrowseForFolderW(&request);
    if (chosen != nullptr) name = Utf8FromWide(displayName.data());
    ::CoTaskMemFree(chosen);
    ::CoTaskMemFree(network);
  }
  if (SUCCEEDED(started)) ::CoUninitialize();
  return name;
}

}  // namespace qvl
