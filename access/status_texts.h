#ifndef QVL_ACCESS_STATUS_TEXTS_H_
#define QVL_ACCESS_STATUS_TEXTS_H_

#include <cstdint>
#include <string>

#include "access/remote_status.h"

namespace qvl {

/// Who reads a status: batch mode has no text of its own for RM_E_NOT_ADMINISTRATOR.
enum class StatusReader : std::uint8_t { kViewer, kBatch };

/// What a status says to the user, in the process's language; the system's own text for the codes
/// that this program has none for.
std::string StatusText(RemoteStatus status, StatusReader reader);

}  // namespace qvl

#endif  // QVL_ACCESS_STATUS_TEXTS_H_
