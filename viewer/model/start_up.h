#ifndef QVL_VIEWER_MODEL_START_UP_H_
#define QVL_VIEWER_MODEL_START_UP_H_

#include <string>
#include <string_view>

namespace qvl {

/// The path of the log file that an argument names: a path, or a "file:" URI (RFC 8089), which is
/// how a desktop hands over a path where one begins with a slash. Escaped bytes of a URI are
/// decoded; a drive letter stands behind its slash. Empty for a URI that names another machine or
/// holds a broken escape or a zero.
std::string PathOfArgument(std::string_view argument);

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_START_UP_H_
