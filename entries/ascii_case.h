#ifndef QVL_ENTRIES_ASCII_CASE_H_
#define QVL_ENTRIES_ASCII_CASE_H_

#include <algorithm>
#include <string_view>

namespace qvl {

/// The case of ASCII letters. Bytes beyond ASCII are left alone and compared as they are. Not the
/// C library's rules: those change with the locale, and names and switches must not.
constexpr char ToAsciiLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
constexpr char ToAsciiUpper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

constexpr bool IsSameIgnoringCase(char a, char b) {
  return ToAsciiLower(a) == ToAsciiLower(b);
}

inline bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), IsSameIgnoringCase);
}

inline bool BeginsIgnoringCase(std::string_view text, std::string_view start) {
  return EqualsIgnoringCase(text.substr(0, start.size()), start);
}

inline bool EndsIgnoringCase(std::string_view text, std::string_view end) {
  return text.size() >= end.size() &&
         EqualsIgnoringCase(text.substr(text.size() - end.size()), end);
}

/// Also true for an empty part.
inline bool HoldsIgnoringCase(std::string_view text, std::string_view part) {
  return part.empty() || std::search(text.begin(), text.end(), part.begin(), part.end(),
                                     IsSameIgnoringCase) != text.end();
}

}  // namespace qvl

#endif  // QVL_ENTRIES_ASCII_CASE_H_
