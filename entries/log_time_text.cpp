#include "entries/log_time_text.h"

#include <cstring>

#include "entries/message.h"

namespace qvl {
namespace {

constexpr Message<Number, Number, Number> kInvalidDate = "Invalid: %d/%d/%d";
constexpr Message<Number, Number> kInvalidTimeOfDay = "Invalid: %d:%d";

// More than the days of a year, and a power of two: days of one log hardly ever share a place.
constexpr std::size_t kDatePlaces = 1024;
constexpr std::size_t kMinutesPerDay = std::size_t{24} * 60;

}  // namespace

void LogTimeFormatter::Append(LogTime time, TextSink& out) {
  if (lastSize_ == 0 || time != lastTime_) {
    TextSink text(lastText_);
    Compose(time, text);
    lastTime_ = time;
    lastSize_ = text.size();
  }
  out.Append(std::string_view(lastText_.data(), lastSize_));
}

void LogTimeFormatter::Compose(LogTime time, TextSink& out) {
  if (time.HasValidDate()) {
    out.Append(Date(time));
  } else {
    out.Format(kInvalidDate, time.month, time.day, static_cast<Number>(time.FullYear()));
  }
  out.Append(std::string_view(" "));
  if (time.HasValidTimeOfDay()) {
    out.Append(TimeOfDay(time));
  } else {
    out.Format(kInvalidTimeOfDay, time.hour, time.minute);
  }
}

std::string_view LogTimeFormatter::Date(LogTime time) {
  if (dates_.empty()) dates_.resize(kDatePlaces);
  // A valid date is never all zero, so an unused place matches none.
  const auto key = static_cast<std::uint32_t>(time.Packed() >> 16U);
  const std::uint32_t day =
      static_cast<std::uint32_t>(time.FullYear()) * 372U + time.month * 31U + time.day;
  CachedText& place = dates_[day % kDatePlaces];
  if (place.key == key) return {place.text, place.length};
  return Store(place, key, locale_.ShortDate(time.FullYear(), time.month, time.day));
}

std::string_view LogTimeFormatter::TimeOfDay(LogTime time) {
  if (timesOfDay_.empty()) timesOfDay_.resize(kMinutesPerDay);
  CachedText& place = timesOfDay_[time.hour * 60U + time.minute];
  if (place.key != 0) return {place.text, place.length};
  return Store(place, 1, locale_.ShortTime(time.hour, time.minute));
}

std::string_view LogTimeFormatter::Store(CachedText& place, std::uint32_t key,
                                         const std::string& text) {
  if (text.size() > sizeof place.text) {
    uncached_ = text.substr(0, kLogTimeTextSize / 2 - 1);
    return uncached_;
  }
  std::memcpy(place.text, text.data(), text.size());
  place.length = static_cast<std::uint8_t>(text.size());
  place.key = key;
  return {place.text, place.length};
}

void FormatLogTime(TextSink& out, LogTime time) {
  static LogTimeFormatter formatter;
  formatter.Append(time, out);
}

}  // namespace qvl
