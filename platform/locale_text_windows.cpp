#include <windows.h>

#include <array>

#include "platform/locale_text.h"

namespace qvl {
namespace {

constexpr std::size_t kTextSize = 128;

// The length that the system returns counts the terminating NUL.
std::string TextOf(const std::array<char, kTextSize>& text, int length) {
  return length <= 0 ? std::string()
                     : std::string(text.data(), static_cast<std::size_t>(length - 1));
}

}  // namespace

struct LocaleText::Formats {};

LocaleText::LocaleText() = default;
LocaleText::LocaleText(const std::string& /*locale*/) {}
LocaleText::~LocaleText() = default;

std::string LocaleText::ShortDate(int year, int month, int day) const {
  SYSTEMTIME date = {};
  date.wYear = static_cast<WORD>(year);
  date.wMonth = static_cast<WORD>(month);
  date.wDay = static_cast<WORD>(day);
  std::array<char, kTextSize> text{};
  return TextOf(text, ::GetDateFormatA(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &date, nullptr,
                                       text.data(), static_cast<int>(text.size())));
}

std::string LocaleText::ShortTime(int hour, int minute) const {
  SYSTEMTIME time = {};
  time.wHour = static_cast<WORD>(hour);
  time.wMinute = static_cast<WORD>(minute);
  std::array<char, kTextSize> text{};
  return TextOf(text, ::GetTimeFormatA(LOCALE_USER_DEFAULT, TIME_NOSECONDS, &time, nullptr,
                                       text.data(), static_cast<int>(text.size())));
}

}  // namespace qvl
