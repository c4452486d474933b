#ifndef QVL_PLATFORM_LOCALE_TEXT_H_
#define QVL_PLATFORM_LOCALE_TEXT_H_

#include <memory>
#include <string>

namespace qvl {

/// Dates and times of day as the user's locale writes them: the short date and the time without
/// seconds. On Windows these are the user's regional settings and the active code page; elsewhere
/// the locale that LC_ALL, LC_TIME or LANG names, in UTF-8. The C and POSIX locales read as
/// US English.
class LocaleText {
 public:
  /// The user's locale.
  LocaleText();
  /// A named locale ("de_DE", "ja_JP.UTF-8"), for tests. Ignored on Windows.
  explicit LocaleText(const std::string& locale);
  ~LocaleText();
  LocaleText(const LocaleText&) = delete;
  LocaleText& operator=(const LocaleText&) = delete;

  /// year 1601 to 25755, month 1 to 12, a day that the month has.
  std::string ShortDate(int year, int month, int day) const;
  /// hour 0 to 23, minute 0 to 59.
  std::string ShortTime(int hour, int minute) const;

 private:
  struct Formats;
  std::unique_ptr<Formats> formats_;
};

}  // namespace qvl

#endif  // QVL_PLATFORM_LOCALE_TEXT_H_
