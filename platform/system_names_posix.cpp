#include <unistd.h>

#include <array>
#include <cstdlib>
#include <string_view>

#include "platform/system_names.h"

namespace qvl {
namespace {

// The first of these that is set decides about messages (POSIX.1-2017, section 8.2).
std::string_view MessagesLocale() {
  for (const char* const name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* const value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe)
    if (value != nullptr && *value != '\0') return value;
  }
  return {};
}

}  // namespace

const char* const kSystemLineEnd = "\n";

std::string ComputerName() {
  std::array<char, 260> name{};
  if (::gethostname(name.data(), name.size() - 1) != 0) return {};
  const std::string_view whole(name.data());
  return std::string(whole.substr(0, whole.find('.')));
}

std::string ProcessCommandLine(int argc, const char* const* argv) {
  std::string line;
  for (int i = 0; i < argc; ++i) {
    const std::string_view argument(argv[i]);
    const bool quoted = argument.empty() || argument.find(' ') != std::string_view::npos;
    if (i > 0) line += ' ';
    if (quoted) line += '"';
    line += argument;
    if (quoted) line += '"';
  }
  return line;
}

bool UserReadsJapanese() {
  const std::string_view locale = MessagesLocale();
  return locale.substr(0, locale.find_first_of("_.@")) == "ja";
}

}  // namespace qvl
