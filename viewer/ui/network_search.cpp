#include "viewer/ui/network_search.h"

#include <algorithm>

namespace qvl {
namespace {

constexpr SearchProgram kPrograms[] = {
    {"avahi-browse --terminate --parsable --no-db-lookup _smb._tcp",         MachineOfAvahiLine},
    {"avahi-browse --terminate --parsable --no-db-lookup _workstation._tcp", MachineOfAvahiLine},
    {"smbtree --no-pass --servers",                                          MachineOfTreeLine },
};

bool IsDigit(char character) {
  return character >= '0' && character <= '9';
}

}  // namespace

std::span<const SearchProgram> SearchPrograms() {
  return kPrograms;
}

std::string MachineOfAvahiLine(std::string_view line) {
  if (!line.starts_with("+;")) return {};
  for (int field = 0; field < 3; ++field) {
    const std::size_t semicolon = line.find(';');
    if (semicolon == std::string_view::npos) return {};
    line.remove_prefix(semicolon + 1);
  }
  line = line.substr(0, line.find(';'));
  std::string name;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const std::string_view digits = line.substr(i + 1, 3);
    if (line[i] == '\\' && digits.size() == 3 &&
        std::all_of(digits.begin(), digits.end(), IsDigit)) {
      name += static_cast<char>((digits[0] - '0') * 100 + (digits[1] - '0') * 10 + digits[2] - '0');
      i += 3;
    } else if (line[i] != '\\') {
      name += line[i];
    }
  }
  // A workstation adds its network card's address in brackets.
  return name.substr(0, name.find(" ["));
}

std::string MachineOfTreeLine(std::string_view line) {
  const std::size_t begin = line.find_first_not_of(" \t");
  if (begin == std::string_view::npos || !line.substr(begin).starts_with("\\\\")) return {};
  line.remove_prefix(begin + 2);
  const std::size_t end = line.find_first_of(" \t\\\r\n");
  const bool isShare = end != std::string_view::npos && line[end] == '\\';
  return isShare ? std::string() : std::string(line.substr(0, end));
}

}  // namespace qvl
