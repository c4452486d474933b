#include "viewer/ui/program_version.h"

namespace qvl {

ProgramVersion OwnVersion() {
  return {.fileDescription = QVL_FILE_DESCRIPTION,
          .fileVersion = QVL_FILE_VERSION,
          .legalCopyright = QVL_LEGAL_COPYRIGHT};
}

}  // namespace qvl
