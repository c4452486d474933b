#include <unicode/udat.h>
#include <unicode/udatpg.h>
#include <unicode/ustring.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "platform/locale_text.h"

namespace qvl {
namespace {

constexpr std::size_t kTextSize = 128;

// The order in which POSIX looks for the locale of dates and times.
std::string UserLocale() {
  for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"}) {
    const char* const value = std::getenv(variable);  // NOLINT(concurrency-mt-unsafe): one thread
    if (value != nullptr && *value != '\0') return value;
  }
  return "C";
}

bool IsPlainLocale(std::string_view locale) {
  const std::string_view name = locale.substr(0, locale.find('.'));
  return name.empty() || name == "C" || name == "POSIX";
}

// ICU separates the time from its day period with narrow or unbreakable blanks, which terminals
// and spreadsheets show badly.
bool IsFancyBlank(UChar c) {
  return c == 0x202F || c == 0x00A0 || c == 0x2009;
}

std::string Utf8(std::array<UChar, kTextSize>& text, std::int32_t length) {
  for (std::int32_t i = 0; i < length; ++i) {
    if (IsFancyBlank(text[static_cast<std::size_t>(i)])) text[static_cast<std::size_t>(i)] = u' ';
  }
  std::array<char, kTextSize * 3> bytes{};
  std::int32_t size = 0;
  UErrorCode error = U_ZERO_ERROR;
  u_strToUTF8(bytes.data(), static_cast<std::int32_t>(bytes.size()), &size, text.data(), length,
              &error);
  if (U_FAILURE(error) != 0) return {};
  return {bytes.data(), static_cast<std::size_t>(size)};
}

UDateFormat* OpenFormat(UDateTimePatternGenerator* generator, const std::string& locale,
                        std::u16string_view skeleton) {
  UErrorCode error = U_ZERO_ERROR;
  std::array<UChar, kTextSize> pattern{};
  const std::int32_t length =
      udatpg_getBestPattern(generator, skeleton.data(), static_cast<std::int32_t>(skeleton.size()),
                            pattern.data(), static_cast<std::int32_t>(pattern.size()), &error);
  UDateFormat* const format = udat_open(UDAT_PATTERN, UDAT_PATTERN, locale.c_str(), u"UTC", 3,
                                        pattern.data(), length, &error);
  return U_FAILURE(error) != 0 ? nullptr : format;
}

std::string Format(const UDateFormat* format, UDate moment) {
  std::array<UChar, kTextSize> text{};
  UErrorCode error = U_ZERO_ERROR;
  const std::int32_t length = udat_format(format, moment, text.data(),
                                          static_cast<std::int32_t>(text.size()), nullptr, &error);
  return U_FAILURE(error) != 0 ? std::string() : Utf8(text, length);
}

}  // namespace

struct LocaleText::Formats {
  explicit Formats(const std::string& locale) {
    if (IsPlainLocale(locale)) return;
    UErrorCode error = U_ZERO_ERROR;
    std::array<char, kTextSize> canonical{};
    uloc_canonicalize(locale.c_str(), canonical.data(), static_cast<std::int32_t>(canonical.size()),
                      &error);
    UDateTimePatternGenerator* const generator = udatpg_open(canonical.data(), &error);
    if (U_FAILURE(error) != 0) return;
    date = OpenFormat(generator, canonical.data(), u"yMd");
    time = OpenFormat(generator, canonical.data(), u"jm");
    udatpg_close(generator);
  }
  ~Formats() {
    if (date != nullptr) udat_close(date);
    if (time != nullptr) udat_close(time);
  }
  Formats(const Formats&) = delete;
  Formats& operator=(const Formats&) = delete;

  UDateFormat* date = nullptr;  // null: US English, without ICU and its data
  UDateFormat* time = nullptr;
};

LocaleText::LocaleText() : LocaleText(UserLocale()) {}
LocaleText::LocaleText(const std::string& locale) : formats_(std::make_unique<Formats>(locale)) {}
LocaleText::~LocaleText() = default;

std::string LocaleText::ShortDate(int year, int month, int day) const {
  if (formats_->date != nullptr) {
    const std::chrono::sys_days midnight =
        std::chrono::year(year) / month / std::chrono::day(static_cast<unsigned>(day));
    constexpr double kMillisecondsPerDay = 86400000.0;
    return Format(formats_->date,
                  static_cast<double>(midnight.time_since_epoch().count()) * kMillisecondsPerDay);
  }
  return std::to_string(month) + "/" + std::to_string(day) + "/" + std::to_string(year);
}

std::string LocaleText::ShortTime(int hour, int minute) const {
  if (formats_->time != nullptr) {
    constexpr double kMillisecondsPerMinute = 60000.0;
    return Format(formats_->time, (hour * 60 + minute) * kMillisecondsPerMinute);
  }
  const int twelve = hour % 12 == 0 ? 12 : hour % 12;
  const std::string minutes = std::to_string(minute);
  return std::to_string(twelve) + (minute < 10 ? ":0" : ":") + minutes +
         (hour < 12 ? " AM" : " PM");
}

}  // namespace qvl
