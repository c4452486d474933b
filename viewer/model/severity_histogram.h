#ifndef QVL_VIEWER_MODEL_SEVERITY_HISTOGRAM_H_
#define QVL_VIEWER_MODEL_SEVERITY_HISTOGRAM_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "entries/entry_list.h"
#include "platform/local_time.h"
#include "viewer/model/filter.h"
#include "viewer/model/wall_minute.h"

namespace qvl {

/// How many entries of each severity were last updated in each stretch of time.
class SeverityHistogram {
 public:
  /// Critical, caution, repaired, everything else: as the pictures of the list.
  static constexpr std::size_t kSeverities = 4;
  using Counts = std::array<std::uint32_t, kSeverities>;

  SeverityHistogram() = default;

  /// Counts the entries that pass the four criteria of the filter; those without a valid update
  /// time are left out.
  /// now             the clock that the time criteria count back from.
  /// largestBuckets  how many bars there is room for, at least 2.
  SeverityHistogram(const EntryList& entries, const FilterChoices& choices, Moment now,
                    std::size_t largestBuckets);

  /// Empty when no entry has a time.
  const std::vector<Counts>& buckets() const { return buckets_; }
  /// Minutes that a bucket covers: a length that reads well, from a minute up.
  WallMinute bucketMinutes() const { return bucketMinutes_; }
  /// The most entries in one bucket.
  std::uint32_t largestTotal() const { return largestTotal_; }

  TimeRange RangeOf(std::size_t bucket) const;

  /// The stretch of time of a drag from one bucket to another, in either direction. Buckets beyond
  /// the last one count as the last. Only for a histogram that is not empty.
  TimeRange RangeOfDrag(std::size_t from, std::size_t to) const;

  /// A bucket in words, for a tool tip and for those who do not see the bars; UTF-8.
  std::string Describe(std::size_t bucket) const;

 private:
  void Layout(WallMinute first, WallMinute last, std::size_t largestBuckets);

  std::vector<Counts> buckets_;
  WallMinute begin_ = 0;
  WallMinute bucketMinutes_ = 1;
  std::uint32_t largestTotal_ = 0;
};

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_SEVERITY_HISTOGRAM_H_
