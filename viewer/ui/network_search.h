#ifndef QVL_VIEWER_UI_NETWORK_SEARCH_H_
#define QVL_VIEWER_UI_NETWORK_SEARCH_H_

#include <span>
#include <string>
#include <string_view>

namespace qvl {

/// A program that lists what a network announces, one machine a line.
struct SearchProgram {
  const char* command;
  /// The machine that a line names; empty for any other line.
  std::string (*machineOf)(std::string_view line);
};

/// Whichever of them is installed answers.
std::span<const SearchProgram> SearchPrograms();

/// A line of `avahi-browse --parsable`: fields with semicolons between them, the name the fourth,
/// other characters than letters and digits as a backslash and three decimal digits.
std::string MachineOfAvahiLine(std::string_view line);

/// A line of `smbtree`: two backslashes, the name, blanks and a comment.
std::string MachineOfTreeLine(std::string_view line);

}  // namespace qvl

#endif  // QVL_VIEWER_UI_NETWORK_SEARCH_H_
