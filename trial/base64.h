#ifndef QVL_TRIAL_BASE64_H_
#define QVL_TRIAL_BASE64_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "trial/wire.h"

namespace qvl {

/// RFC 4648, section 4, with padding.
std::string ToBase64(WireBytes bytes);

/// Returns false, leaving `bytes` empty, for what no encoder writes.
bool FromBase64(std::string_view text, std::vector<std::uint8_t>& bytes);

}  // namespace qvl

#endif  // QVL_TRIAL_BASE64_H_
