#ifndef QVL_VIEWER_MODEL_ASCII_CASE_H_
#define QVL_VIEWER_MODEL_ASCII_CASE_H_

#include <algorithm>
#include <string_view>

#include "entries/field_formatters.h"

namespace qvl {

/// Comparisons that ignore the case of ASCII letters, whatever the locale.
inline bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return ToAsciiLower(x) == ToAsciiLower(y); });
}

inline bool BeginsIgnoringCase(std::string_view text, std::string_view start) {
  return EqualsIgnoringCase(text.substr(0, start.size()), start);
}

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_ASCII_CASE_H_
