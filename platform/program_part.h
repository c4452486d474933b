#ifndef QVL_PLATFORM_PROGRAM_PART_H_
#define QVL_PLATFORM_PROGRAM_PART_H_

#include <string>

namespace qvl {

/// The path of a file that belongs to this program and that users never start or open themselves:
/// beside the program, as in a build, or else in ../libexec/quarvel-log-viewer, as installed. The
/// file may be missing. Always absolute: empty where the system does not say where this program is,
/// so that nothing is taken from the current folder. POSIX only; elsewhere a program is one file.
std::string PathOfProgramPart(const std::string& name);

}  // namespace qvl

#endif  // QVL_PLATFORM_PROGRAM_PART_H_
