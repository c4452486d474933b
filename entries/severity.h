#ifndef QVL_ENTRIES_SEVERITY_H_
#define QVL_ENTRIES_SEVERITY_H_

#include <cstdint>
#include <string_view>

#include "texts/strings.h"

namespace qvl {

/// The severity codes that have a name. Their numeric order is the order of the list's column.
inline constexpr std::uint8_t kInformationalMinor = 2;
inline constexpr std::uint8_t kInformational = 3;
inline constexpr std::uint8_t kRepaired = 6;
inline constexpr std::uint8_t kCaution = 9;
inline constexpr std::uint8_t kCritical = 15;

/// The lowest severity that can be marked repaired.
inline constexpr std::uint8_t kLowestRepairable = 7;

/// The name of a severity code in `language`; empty for a code without a name.
std::string_view SeverityName(std::uint8_t severity, Language language);

/// The index of a severity's picture: 0 critical, 1 caution, 2 repaired, 3 everything else.
int SeverityImage(std::uint8_t severity);

}  // namespace qvl

#endif  // QVL_ENTRIES_SEVERITY_H_
