#ifndef QVL_TESTS_FAKES_TERMINAL_LINE_H_
#define QVL_TESTS_FAKES_TERMINAL_LINE_H_

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace qvl::testing {

/// What stands on the last line of a terminal after these bytes, without the blanks at its end: a
/// carriage return goes back to the line's beginning.
inline std::string LastLine(std::string_view bytes) {
  std::string line;
  std::size_t column = 0;
  for (const char c : bytes) {
    if (c == '\r') {
      column = 0;
    } else if (c == '\n') {
      line.clear();
      column = 0;
    } else {
      line.resize(std::max(line.size(), column + 1), ' ');
      line[column++] = c;
    }
  }
  line.resize(line.find_last_not_of(' ') + 1);
  return line;
}

}  // namespace qvl::testing

#endif  // QVL_TESTS_FAKES_TERMINAL_LINE_H_
