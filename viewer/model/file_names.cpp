#include "viewer/model/file_names.h"

#include <exception>
#include <filesystem>
#include <system_error>

#include "entries/ascii_case.h"

namespace qvl {
namespace {

using std::filesystem::path;

constexpr bool kNamesIgnoreCase = path::preferred_separator == '\\';

path SystemPath(const std::string& bytes) {
  return path(std::u8string(bytes.begin(), bytes.end()));
}

bool HasExtension(std::string_view name) {
  const std::size_t dot = name.rfind('.');
  return dot != std::string_view::npos && dot > 0;
}

}  // namespace

std::string_view FileNameOf(std::string_view path) {
  const std::size_t separator = path.find_last_of("/\\");
  return separator == std::string_view::npos ? path : path.substr(separator + 1);
}

std::string PathWithExtension(const std::string& path, std::string_view extension) {
  return HasExtension(FileNameOf(path)) ? path : path + std::string(extension);
}

std::string PathToRead(const std::string& path, std::string_view extension) {
  try {
    std::error_code unknown;
    if (std::filesystem::exists(SystemPath(path), unknown)) return path;
  } catch (const std::exception&) {
    return path;  // a name that the system cannot have: reading tells so
  }
  return PathWithExtension(path, extension);
}

std::string AbsolutePath(const std::string& path) {
  try {
    const std::u8string whole = absolute(SystemPath(path)).lexically_normal().u8string();
    return std::string(whole.begin(), whole.end());
  } catch (const std::exception&) {
    return path;
  }
}

bool IsSamePath(std::string_view a, std::string_view b) {
  return kNamesIgnoreCase ? EqualsIgnoringCase(a, b) : a == b;
}

}  // namespace qvl
