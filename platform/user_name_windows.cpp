#include <windows.h>

#include <vector>

#include "platform/system_names.h"

namespace qvl {

bool LoggedOnUserName(std::size_t capacity, std::string& name) {
  if (capacity == 0) return false;
  std::vector<char> text(capacity);
  auto size = static_cast<DWORD>(capacity);
  if (::GetUserNameA(text.data(), &size) == 0 || size <= 1) return false;
  // The size counts the terminating zero here.
  name.assign(text.data(), size - 1);
  return true;
}

}  // namespace qvl
