#include "viewer/model/severity_histogram.h"

#include <algorithm>
#include <numeric>
#include <optional>

#include "entries/log_time_text.h"
#include "entries/severity.h"
#include "files/unicode_text.h"
#include "texts/filled_text.h"

namespace qvl {
namespace {

constexpr WallMinute kHour = 60;
constexpr WallMinute kDay = 24 * kHour;

// Beyond the last one each is twice the one before it.
constexpr WallMinute kBucketLengths[] = {
    1,    5,        15,       30,        kHour,     2 * kHour, 3 * kHour,  6 * kHour, 12 * kHour,
    kDay, 2 * kDay, 7 * kDay, 14 * kDay, 30 * kDay, 91 * kDay, 182 * kDay, 365 * kDay};

// Rounded down for times before 1970 too, so that buckets begin at midnight and at full hours.
WallMinute FloorTo(WallMinute minute, WallMinute length) {
  const WallMinute rest = minute % length;
  return minute - (rest < 0 ? rest + length : rest);
}

// A bucket may begin before the first stamp that there can be, or end behind the last one.
std::string TimeText(WallMinute minute) {
  static const WallMinute kFirst = MinuteOf({16, 1, 1, 1, 0, 0}).value_or(0);
  static const WallMinute kLast = MinuteOf({255, 99, 12, 31, 23, 59}).value_or(0);
  std::array<char, kLogTimeTextSize> buffer;
  TextSink text(buffer);
  FormatLogTime(text, TimeOfMinute(std::clamp(minute, kFirst, kLast)));
  return Utf8FromText(text.view());
}

std::uint32_t Total(const SeverityHistogram::Counts& counts) {
  return std::accumulate(counts.begin(), counts.end(), std::uint32_t{0});
}

}  // namespace

SeverityHistogram::SeverityHistogram(const EntryList& entries, const FilterChoices& choices,
                                     Moment now, std::size_t largestBuckets) {
  struct Timed {
    WallMinute minute;
    int severity;
  };
  std::vector<Timed> timed;
  for (const EntryIndex index : FilterEntries(entries, choices, now)) {
    const EntryHead& head = entries.Head(index);
    const std::optional<WallMinute> minute = MinuteOf(head.updateTime);
    if (minute) timed.push_back({*minute, SeverityImage(head.severity)});
  }
  if (timed.empty()) return;
  const auto [first, last] =
      std::minmax_element(timed.begin(), timed.end(),
                          [](const Timed& a, const Timed& b) { return a.minute < b.minute; });
  // Two times on both sides of 1970 always fall into two buckets.
  Layout(first->minute, last->minute, std::max<std::size_t>(largestBuckets, 2));
  for (const Timed& entry : timed) {
    const auto bucket = static_cast<std::size_t>((entry.minute - begin_) / bucketMinutes_);
    ++buckets_[bucket][static_cast<std::size_t>(entry.severity)];
  }
  for (const Counts& counts : buckets_) largestTotal_ = std::max(largestTotal_, Total(counts));
}

void SeverityHistogram::Layout(WallMinute first, WallMinute last, std::size_t largestBuckets) {
  const auto bucketsFor = [first, last](WallMinute length) {
    return static_cast<std::size_t>((last - FloorTo(first, length)) / length + 1);
  };
  std::size_t at = 0;
  bucketMinutes_ = kBucketLengths[0];
  while (bucketsFor(bucketMinutes_) > largestBuckets) {
    ++at;
    bucketMinutes_ = at < std::size(kBucketLengths) ? kBucketLengths[at] : bucketMinutes_ * 2;
  }
  begin_ = FloorTo(first, bucketMinutes_);
  buckets_.resize(bucketsFor(bucketMinutes_));
}

TimeRange SeverityHistogram::RangeOf(std::size_t bucket) const {
  const WallMinute first = begin_ + static_cast<WallMinute>(bucket) * bucketMinutes_;
  return {first, first + bucketMinutes_ - 1};
}

TimeRange SeverityHistogram::RangeOfDrag(std::size_t from, std::size_t to) const {
  const std::size_t end = buckets_.size() - 1;
  const auto [first, last] = std::minmax(std::min(from, end), std::min(to, end));
  return {RangeOf(first).first, RangeOf(last).last};
}

std::string SeverityHistogram::Describe(std::size_t bucket) const {
  const TimeRange range = RangeOf(bucket);
  const Counts& counts = buckets_[bucket];
  return FilledText(
      StringId::kHistogramBar,
      {TimeText(range.first), TimeText(range.last), std::to_string(counts[0]),
       std::to_string(counts[1]), std::to_string(counts[2]), std::to_string(counts[3])});
}

}  // namespace qvl
