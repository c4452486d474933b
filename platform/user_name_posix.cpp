#include <pwd.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>
#include <vector>

#include "platform/system_names.h"

// Apart from the other names: a statically linked program can ask for those, but not for a user.
namespace qvl {
namespace {

// A directory service may need more room than any user's entry should take.
constexpr std::size_t kFirstEntryRoom = 1024;
constexpr std::size_t kLargestEntryRoom = std::size_t{1} << 20U;

}  // namespace

bool LoggedOnUserName(std::size_t capacity, std::string& name) {
  passwd entry = {};
  passwd* found = nullptr;
  for (std::size_t room = kFirstEntryRoom; room <= kLargestEntryRoom; room *= 2) {
    std::vector<char> buffer(room);
    const int error = ::getpwuid_r(::geteuid(), &entry, buffer.data(), buffer.size(), &found);
    if (error == ERANGE) continue;
    if (error != 0 || found == nullptr) return false;
    const std::string_view whole(entry.pw_name);
    if (whole.empty() || whole.size() >= capacity) return false;
    name = whole;
    return true;
  }
  return false;
}

}  // namespace qvl
