#ifndef QVL_ENTRIES_LOG_TIME_TEXT_H_
#define QVL_ENTRIES_LOG_TIME_TEXT_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "entries/log_time.h"
#include "entries/text_sink.h"
#include "platform/locale_text.h"

namespace qvl {

/// Bytes that always hold the text of a time stamp, its NUL included.
inline constexpr std::size_t kLogTimeTextSize = 128;

/// Writes time stamps as the locale does: short date, blank, time without seconds. A date that no
/// calendar has reads "Invalid: month/day/year", an impossible time of day "Invalid: hour:minute".
/// A log has few days and a day few minutes, so the locale is asked once for each; and most
/// entries occurred once, so that their two times are one text.
class LogTimeFormatter {
 public:
  LogTimeFormatter() = default;
  explicit LogTimeFormatter(const std::string& locale) : locale_(locale) {}

  void Append(LogTime time, TextSink& out);

 private:
  struct CachedText {
    std::uint32_t key = 0;
    std::uint8_t length = 0;
    char text[27] = {};
  };

  void Compose(LogTime time, TextSink& out);
  std::string_view Date(LogTime time);
  std::string_view TimeOfDay(LogTime time);
  std::string_view Store(CachedText& place, std::uint32_t key, const std::string& text);

  LocaleText locale_;
  std::vector<CachedText> dates_;
  std::vector<CachedText> timesOfDay_;
  std::string uncached_;
  LogTime lastTime_;
  std::array<char, kLogTimeTextSize> lastText_{};
  std::size_t lastSize_ = 0;
};

/// Appends a time stamp as the user's locale writes it.
void FormatLogTime(TextSink& out, LogTime time);

}  // namespace qvl

#endif  // QVL_ENTRIES_LOG_TIME_TEXT_H_
