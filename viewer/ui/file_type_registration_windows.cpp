#include <windows.h>
// After windows.h, which it needs.
#include <shlobj.h>

#include <string>
#include <string_view>
#include <vector>

#include "platform/wide_text_windows.h"
#include "texts/strings.h"
#include "viewer/ui/file_type_registration.h"

namespace qvl {
namespace {

constexpr std::wstring_view kUserClasses = L"Software\\Classes\\";
// The fields of the text that describes the document type.
constexpr std::size_t kExtension = 4;
constexpr std::size_t kTypeId = 5;
constexpr std::size_t kTypeName = 6;

std::wstring DocumentTypeField(std::size_t index) {
  std::string_view text = GetString(StringId::kDocumentType);
  for (; index > 0; --index) text.remove_prefix(text.find('\n') + 1);
  return WideFromUtf8(text.substr(0, text.find('\n')));
}

/// The unnamed text of a key; empty where there is none.
std::wstring TextOfKey(HKEY root, const std::wstring& key) {
  DWORD size = 0;
  if (::RegGetValueW(root, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, nullptr, &size) !=
      ERROR_SUCCESS) {
    return {};
  }
  std::vector<wchar_t> text(size / sizeof(wchar_t) + 1);
  if (::RegGetValueW(root, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, text.data(), &size) !=
      ERROR_SUCCESS) {
    return {};
  }
  return text.data();
}

/// The type that an extension belongs to, for this user or else for everybody.
std::wstring OwnerOf(const std::wstring& extension) {
  // Not every system shows the user's classes among all of them.
  const std::wstring own = TextOfKey(HKEY_CURRENT_USER, std::wstring(kUserClasses) + extension);
  return own.empty() ? TextOfKey(HKEY_CLASSES_ROOT, extension) : own;
}

/// Returns whether the key had to be written.
bool SetClass(const std::wstring& name, const std::wstring& text) {
  const std::wstring key = std::wstring(kUserClasses) + name;
  if (TextOfKey(HKEY_CURRENT_USER, key) == text) return false;
  const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
  return ::RegSetKeyValueW(HKEY_CURRENT_USER, key.c_str(), nullptr, REG_SZ, text.c_str(), size) ==
         ERROR_SUCCESS;
}

std::wstring OwnPath() {
  std::vector<wchar_t> path(32768);  // the longest path there is
  const DWORD length =
      ::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size() - 1));
  return std::wstring(path.data(), length);
}

}  // namespace

void RegisterFileType() {
  const std::wstring program = OwnPath();
  if (program.empty()) return;
  const std::wstring type = DocumentTypeField(kTypeId);
  bool written = SetClass(type, DocumentTypeField(kTypeName));
  // The second icon of the program: a page and not the window.
  written |= SetClass(type + L"\\DefaultIcon", L"\"" + program + L"\",1");
  written |= SetClass(type + L"\\shell\\open\\command", L"\"" + program + L"\" \"%1\"");
  const std::wstring extension = DocumentTypeField(kExtension);
  const std::wstring owner = OwnerOf(extension);
  if (owner.empty() || owner == type) written |= SetClass(extension, type);
  if (written) ::SHChangeNotify(SHCNE_ASSOCCHANGED, SHCNF_IDLIST, nullptr, nullptr);
}

}  // namespace qvl
