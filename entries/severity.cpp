#include "entries/severity.h"

#include <array>

namespace qvl {
namespace {

using Names = std::array<std::string_view, 256>;

Names CollectNames(Language language) {
  Names names;
  names[kInformationalMinor] = GetString(StringId::kSeverityInformational, language);
  names[kInformational] = GetString(StringId::kSeverityInformational, language);
  names[kRepaired] = GetString(StringId::kSeverityRepaired, language);
  names[kCaution] = GetString(StringId::kSeverityCaution, language);
  names[kCritical] = GetString(StringId::kSeverityCritical, language);
  return names;
}

}  // namespace

std::string_view SeverityName(std::uint8_t severity, Language language) {
  static const Names english = CollectNames(Language::kEnglish);
  static const Names japanese = CollectNames(Language::kJapanese);
  return (language == Language::kJapanese ? japanese : english)[severity];
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
