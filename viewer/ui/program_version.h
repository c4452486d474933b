#ifndef QVL_VIEWER_UI_PROGRAM_VERSION_H_
#define QVL_VIEWER_UI_PROGRAM_VERSION_H_

#include <string>

namespace qvl {

/// What a program file says of itself, UTF-8.
struct ProgramVersion {
  std::string fileDescription;
  std::string fileVersion;
  std::string legalCopyright;
};

/// This program's: from the version resource of its file on Windows (language and code page
/// 040904B0), else as it was built. Texts that cannot be read are empty.
ProgramVersion OwnVersion();

}  // namespace qvl

#endif  // QVL_VIEWER_UI_PROGRAM_VERSION_H_
