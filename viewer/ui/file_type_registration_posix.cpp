#include "viewer/ui/file_type_registration.h"

namespace qvl {

void RegisterFileType() {}

}  // namespace qvl
