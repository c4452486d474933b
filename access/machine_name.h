#ifndef QVL_ACCESS_MACHINE_NAME_H_
#define QVL_ACCESS_MACHINE_NAME_H_

#include <string>
#include <string_view>

namespace qvl {

/// A machine's name as users write it ("\\server", "server", "." for this computer) as the client
/// connects to it: backslashes become blanks, blanks are taken off both ends, ASCII letters are
/// upper case whatever the locale, bytes beyond ASCII stay. Empty when nothing is left of it.
/// thisComputer  what "." stands for; in any case.
std::string NormaliseMachineName(std::string_view name, std::string_view thisComputer);

}  // namespace qvl

#endif  // QVL_ACCESS_MACHINE_NAME_H_
