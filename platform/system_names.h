#ifndef QVL_PLATFORM_SYSTEM_NAMES_H_
#define QVL_PLATFORM_SYSTEM_NAMES_H_

#include <cstddef>
#include <string>

namespace qvl {

/// The name of this computer, without a domain; empty when the system does not tell.
std::string ComputerName();

/// The name of the user who is logged on.
/// capacity  bytes the name may take, its terminating zero included.
/// Returns false, leaving `name` alone, when the name is longer or the system does not tell.
bool LoggedOnUserName(std::size_t capacity, std::string& name);

/// The whole command line of this process: as the system holds it on Windows; elsewhere the
/// arguments with blanks between them, one that holds a blank in double quotes.
std::string ProcessCommandLine(int argc, const char* const* argv);

/// True when the user's language is Japanese: the user interface language on Windows, LC_ALL,
/// LC_MESSAGES or LANG elsewhere.
bool UserReadsJapanese();

/// The end of a line in this system's text files.
extern const char* const kSystemLineEnd;

}  // namespace qvl

#endif  // QVL_PLATFORM_SYSTEM_NAMES_H_
