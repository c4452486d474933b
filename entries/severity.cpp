#include "entries/severity.h"

namespace qvl {

std::string_view SeverityName(std::uint8_t severity, Language language) {
  switch (severity) {
    case kInformationalMinor:
    case kInformational:
      return GetString(StringId::kSeverityInformational, language);
    case kRepaired:
      return GetString(StringId::kSeverityRepaired, language);
    case kCaution:
      return GetString(StringId::kSeverityCaution, language);
    case kCritical:
      return GetString(StringId::kSeverityCritical, language);
    default:
      return {};
  }
}

int SeverityImage(std::uint8_t severity) {
  switch (severity) {
    case kCritical:
      return 0;
    case kCaution:
      return 1;
    case kRepaired:
      return 2;
    default:
      return 3;
  }
}

}  // namespace qvl
