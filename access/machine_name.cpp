#include "access/machine_name.h"

#include <algorithm>

namespace qvl {
namespace {

// Not toupper(): a locale's letters differ between systems, and a machine's name must not.
char ToAsciiUpper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

}  // namespace

std::string NormaliseMachineName(std::string_view name, std::string_view thisComputer) {
  std::string normal(name);
  std::replace(normal.begin(), normal.end(), '\\', ' ');
  normal.erase(0, std::min(normal.find_first_not_of(' '), normal.size()));
  normal.resize(normal.find_last_not_of(' ') + 1);  // nothing found is the largest number: 0
  if (normal == ".") normal = thisComputer;
  std::transform(normal.begin(), normal.end(), normal.begin(), ToAsciiUpper);
  return normal;
}

}  // namespace qvl
