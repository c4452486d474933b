#include "viewer/ui/message_pictures.h"

namespace qvl {

// The system's own boxes have them.
void ShowPicturesInMessages() {}

}  // namespace qvl
