#ifndef QVL_PLATFORM_TIME_LIMIT_H_
#define QVL_PLATFORM_TIME_LIMIT_H_

#include <chrono>

namespace qvl {

/// How long to wait for somebody else, in milliseconds: from 1 to 3600000, as an environment
/// variable has it; `standard` when it is not set or holds anything else.
std::chrono::milliseconds TimeLimit(const char* variable, std::chrono::milliseconds standard);

}  // namespace qvl

#endif  // QVL_PLATFORM_TIME_LIMIT_H_
