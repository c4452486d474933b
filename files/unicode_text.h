#ifndef QVL_FILES_UNICODE_TEXT_H_
#define QVL_FILES_UNICODE_TEXT_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace qvl {

/// True when `bytes` is well-formed UTF-8 (RFC 3629: no overlong forms, no surrogates).
bool IsUtf8(std::string_view bytes);

/// An 8-bit text as UTF-8: itself when it is well-formed UTF-8, else read as Windows-1252. The
/// five bytes that Windows-1252 leaves open become the control characters of the same number.
std::string Utf8FromText(std::string_view bytes);

/// Columns that a text takes in a font of fixed width: two for the wide and full-width characters
/// of East Asia (https://www.unicode.org/Public/UNIDATA/EastAsianWidth.txt), one for any other.
std::size_t TextColumns(std::string_view bytes);

}  // namespace qvl

#endif  // QVL_FILES_UNICODE_TEXT_H_
