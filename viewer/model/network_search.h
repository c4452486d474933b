#ifndef QVL_VIEWER_MODEL_NETWORK_SEARCH_H_
#define QVL_VIEWER_MODEL_NETWORK_SEARCH_H_

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qvl {

/// The machine that a line of a search program names; empty for any other line.
using MachineOfLine = std::string (*)(std::string_view line);

/// A program that lists what a network announces, one machine a line.
struct SearchProgram {
  const char* command;
  MachineOfLine machineOf;
};

/// Whichever of them is installed answers.
std::span<const SearchProgram> SearchPrograms();

/// A line of `avahi-browse --parsable --resolve`: fields with semicolons between them, the first of
/// them "=" for a service that answered, the seventh its host; other characters than letters and
/// digits as a backslash and three decimal digits (avahi-browse(1)).
std::string MachineOfAvahiLine(std::string_view line);

/// A line of `smbtree --servers`: two backslashes, the name, blanks and a comment (smbtree(1)).
std::string MachineOfTreeLine(std::string_view line);

/// Takes what a search program writes apart into lines, in whatever pieces it comes. Nothing that
/// comes from a network is trusted: names that no machine can have are left out, and what does not
/// end is not kept.
class SearchOutput {
 public:
  explicit SearchOutput(MachineOfLine machineOf) : machineOf_(machineOf) {}

  /// The machines of the lines that end in this piece, in their order; a machine may come twice.
  std::vector<std::string> Add(std::string_view piece);

  /// The program has ended: the machine of a last line without its end.
  std::vector<std::string> End() { return Add("\n"); }

 private:
  MachineOfLine machineOf_;
  std::string line_;
  bool tooLong_ = false;
};

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_NETWORK_SEARCH_H_
