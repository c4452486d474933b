#include "access/status_texts.h"

#include <array>
#include <cstdio>

#include "platform/system_error_text.h"
#include "texts/strings.h"

namespace qvl {
namespace {

struct StatusRow {
  RemoteStatus status;
  StringId text;
};

constexpr StatusRow kStatusRows[] = {
    {RM_E_ALREADY_OPEN,      StringId::kStatusAlreadyOpen      },
    {RM_E_NOT_OPEN,          StringId::kStatusNotOpen          },
    {RM_E_NO_DRIVER,         StringId::kStatusNoDriver         },
    {RM_E_NOT_ADMINISTRATOR, StringId::kStatusNotAdministrator },
    {kAccessDenied,          StringId::kStatusAccessDenied     },
    {kUnknownInterface,      StringId::kStatusUnknownInterface },
    {kServerUnavailable,     StringId::kStatusServerUnavailable},
};

// "0x%04x": at least four digits.
std::string UnknownStatus(RemoteStatus status) {
  constexpr std::string_view kConversion = "0x%04x";
  std::array<char, 16> digits{};
  std::snprintf(digits.data(), digits.size(), "0x%04x", static_cast<unsigned>(status));
  std::string text(GetString(StringId::kStatusUnknown));
  text.replace(text.find(kConversion), kConversion.size(), digits.data());
  return text;
}

}  // namespace

std::string StatusText(RemoteStatus status, StatusReader reader) {
  for (const StatusRow& row : kStatusRows) {
    const bool known = row.status != RM_E_NOT_ADMINISTRATOR || reader == StatusReader::kViewer;
    if (known && row.status == status) return std::string(GetString(row.text));
  }
  const std::string systemText = TextOfErrorCode(status);
  return systemText.empty() ? UnknownStatus(status) : systemText;
}

}  // namespace qvl
