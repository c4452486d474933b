#include <windows.h>

#include <vector>

#include "platform/wide_text_windows.h"
#include "viewer/ui/program_version.h"

namespace qvl {
namespace {

std::string ValueOf(const std::vector<char>& resource, const std::wstring& name) {
  void* text = nullptr;
  UINT length = 0;
  const std::wstring path = L"\\StringFileInfo\\040904B0\\" + name;
  if (!::VerQueryValueW(resource.data(), path.c_str(), &text, &length) || length == 0) return {};
  return Utf8FromWide(std::wstring(static_cast<const wchar_t*>(text), length - 1));
}

}  // namespace

ProgramVersion OwnVersion() {
  wchar_t path[MAX_PATH] = {};
  ::GetModuleFileNameW(nullptr, path, MAX_PATH - 1);
  DWORD ignored = 0;
  const DWORD size = ::GetFileVersionInfoSizeW(path, &ignored);
  std::vector<char> resource(size);
  if (size == 0 || !::GetFileVersionInfoW(path, 0, size, resource.data())) return {};
  return {.fileDescription = ValueOf(resource, L"FileDescription"),
          .fileVersion = ValueOf(resource, L"FileVersion"),
          .legalCopyright = ValueOf(resource, L"LegalCopyright")};
}

}  // namespace qvl
