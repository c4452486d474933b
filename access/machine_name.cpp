#include "access/machine_name.h"

#include <algorithm>

#include "entries/ascii_case.h"

namespace qvl {
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
