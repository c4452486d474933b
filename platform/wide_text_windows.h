#ifndef QVL_PLATFORM_WIDE_TEXT_WINDOWS_H_
#define QVL_PLATFORM_WIDE_TEXT_WINDOWS_H_

#include <string>
#include <string_view>

namespace qvl {

/// Windows only: UTF-8 to the system's UTF-16 and back. Invalid sequences become replacement
/// characters.
std::wstring WideFromUtf8(std::string_view text);
std::string Utf8FromWide(std::wstring_view text);

/// The system's text for an error code, without its trailing line end.
std::string SystemErrorText(unsigned long code);

}  // namespace qvl

#endif  // QVL_PLATFORM_WIDE_TEXT_WINDOWS_H_
