#ifndef QVL_TEXTS_FILLED_TEXT_H_
#define QVL_TEXTS_FILLED_TEXT_H_

#include <initializer_list>
#include <string>
#include <string_view>

#include "texts/strings.h"

namespace qvl {

/// The text of a number in the process's language with its two-character conversions ("%s", "%u")
/// replaced by the arguments in order. What an argument holds is never taken for a conversion.
/// Without arguments it is what `GetString` views, as a text of one's own.
std::string FilledText(StringId id, std::initializer_list<std::string_view> arguments = {});

}  // namespace qvl

#endif  // QVL_TEXTS_FILLED_TEXT_H_
