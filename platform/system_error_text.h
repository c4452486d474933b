#ifndef QVL_PLATFORM_SYSTEM_ERROR_TEXT_H_
#define QVL_PLATFORM_SYSTEM_ERROR_TEXT_H_

#include <cstdint>
#include <string>

namespace qvl {

/// The system's own text for one of Windows' error codes, without the line end that Windows puts
/// behind it, at most 259 bytes; empty for a code that the system has no text for. Elsewhere the
/// same English texts for the codes that a remote call can return.
std::string TextOfErrorCode(std::uint32_t code);

}  // namespace qvl

#endif  // QVL_PLATFORM_SYSTEM_ERROR_TEXT_H_
