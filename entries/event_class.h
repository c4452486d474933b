#ifndef QVL_ENTRIES_EVENT_CLASS_H_
#define QVL_ENTRIES_EVENT_CLASS_H_

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "texts/strings.h"

namespace qvl {

/// Classes from this number up have neither a name nor a decoder.
inline constexpr std::size_t kEventClassEnd = 38;

/// The display name of an event class in `language`; empty for a class without a name.
std::string_view EventClassName(std::uint16_t eventClass, Language language);

}  // namespace qvl

#endif  // QVL_ENTRIES_EVENT_CLASS_H_
