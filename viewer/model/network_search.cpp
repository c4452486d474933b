#include "viewer/model/network_search.h"

#include <algorithm>
#include <utility>

#include "files/unicode_text.h"

namespace qvl {
namespace {

// Parsable, resolved, ended when nothing more is announced, without a database of types.
constexpr SearchProgram kPrograms[] = {
    {"avahi-browse -prtk _smb._tcp",         MachineOfAvahiLine},
    {"avahi-browse -prtk _workstation._tcp", MachineOfAvahiLine},
    {"smbtree --no-pass --servers",          MachineOfTreeLine },
};

constexpr int kFieldsBeforeHost = 6;
constexpr std::size_t kLongestLine = 4096;
// As long as a name in the domain name system can be.
constexpr std::size_t kLongestName = 253;

bool IsDigit(char character) {
  return character >= '0' && character <= '9';
}

// Backslash and three digits, one byte: the value, or -1.
int EscapedByte(std::string_view text) {
  if (text.size() < 4 || text[0] != '\\') return -1;
  if (!std::all_of(text.begin() + 1, text.begin() + 4, IsDigit)) return -1;
  const int value = (text[1] - '0') * 100 + (text[2] - '0') * 10 + (text[3] - '0');
  return value <= 255 ? value : -1;
}

bool CanBeName(std::string_view name) {
  return !name.empty() && name.size() <= kLongestName && IsUtf8(name) &&
         std::none_of(name.begin(), name.end(), [](char character) {
           return static_cast<unsigned char>(character) <= ' ' || character == '\x7F' ||
                  character == '\\' || character == '/';
         });
}

}  // namespace

std::span<const SearchProgram> SearchPrograms() {
  return kPrograms;
}

std::string MachineOfAvahiLine(std::string_view line) {
  if (!line.starts_with("=;")) return {};
  for (int field = 0; field < kFieldsBeforeHost; ++field) {
    const std::size_t semicolon = line.find(';');
    if (semicolon == std::string_view::npos) return {};
    line.remove_prefix(semicolon + 1);
  }
  line = line.substr(0, line.find(';'));
  std::string name;
  while (!line.empty()) {
    const int escaped = EscapedByte(line);
    name += escaped >= 0 ? static_cast<char>(escaped) : line[0];
    line.remove_prefix(escaped >= 0 ? 4 : 1);
  }
  return name;
}

std::string MachineOfTreeLine(std::string_view line) {
  const std::size_t begin = line.find_first_not_of(" \t");
  if (begin == std::string_view::npos || !line.substr(begin).starts_with("\\\\")) return {};
  line.remove_prefix(begin + 2);
  const std::size_t end = line.find_first_of(" \t\\");
  const bool isShare = end != std::string_view::npos && line[end] == '\\';
  return isShare ? std::string() : std::string(line.substr(0, end));
}

std::vector<std::string> SearchOutput::Add(std::string_view piece) {
  std::vector<std::string> machines;
  for (const char character : piece) {
    if (character == '\n') {
      std::string name = tooLong_ ? std::string() : machineOf_(line_);
      if (CanBeName(name)) machines.push_back(std::move(name));
      line_.clear();
      tooLong_ = false;
    } else if (line_.size() == kLongestLine) {
      tooLong_ = true;
    } else if (character != '\r') {
      line_ += character;
    }
  }
  return machines;
}

}  // namespace qvl
