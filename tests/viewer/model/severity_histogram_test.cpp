#include "viewer/model/severity_histogram.h"

#include <gtest/gtest.h>

#include <numeric>
#include <vector>

#include "tests/files/file_fixtures.h"

namespace qvl {
namespace {

using testing::Record;
using Counts = SeverityHistogram::Counts;

constexpr Moment kNow = 1795176300;  // 2026-11-20 12:05 UTC

RawLogEntry At(LogTime time, std::uint8_t severity) {
  RawLogEntry raw = Record(1, 12, 1);
  raw.severity = severity;
  raw.updateTime = time;
  return raw;
}

// A time of 20 November 2026.
LogTime Today(std::uint8_t hour, std::uint8_t minute) {
  return {20, 26, 11, 20, hour, minute};
}

EntryList ListOf(const std::vector<RawLogEntry>& records) {
  EntryList list;
  for (const RawLogEntry& raw : records) list.Append(raw);
  return list;
}

TEST(WallMinute, CountsFrom1970OnTheWallClock) {
  EXPECT_EQ(MinuteOf({19, 70, 1, 1, 0, 0}), 0);
  EXPECT_EQ(MinuteOf({19, 70, 1, 2, 1, 1}), 24 * 60 + 61);
  EXPECT_EQ(MinuteOf({19, 69, 12, 31, 23, 59}), -1);
  EXPECT_EQ(MinuteOf(Today(12, 5)), kNow / 60);
}

TEST(WallMinute, HasNoneForAMissingOrImpossibleStamp) {
  for (const LogTime time : {
           LogTime{  },
           LogTime{ 20, 26, 13, 1,  0, 0},
           LogTime{ 20, 26, 2,  29, 0, 0},
           LogTime{ 20, 26, 1,  1,  24, 0},
           LogTime{ 20, 26, 1,  1,  0, 60}
  }) {
    EXPECT_EQ(MinuteOf(time), std::nullopt);
    EXPECT_FALSE(IsWithin({-1000000000, 1000000000}, time));
  }
}

TEST(WallMinute, ComesBackAsItsStamp) {
  for (const LogTime time : {
           LogTime{16,  1,  1,  1,  0,  0 },
           LogTime{20,  24, 2,  29, 23, 59},
           LogTime{255, 99, 12, 31, 23, 59},
           LogTime{19,  69, 12, 31, 23, 59}
  }) {
    const std::optional<WallMinute> minute = MinuteOf(time);
    ASSERT_TRUE(minute);
    EXPECT_EQ(TimeOfMinute(*minute), time);
    EXPECT_TRUE(IsWithin({*minute, *minute}, time));
    EXPECT_FALSE(IsWithin({*minute + 1, *minute + 9}, time));
    EXPECT_FALSE(IsWithin({*minute - 9, *minute - 1}, time));
  }
}

TEST(SeverityHistogram, OfNoTimesIsEmpty) {
  EXPECT_TRUE(SeverityHistogram().buckets().empty());
  EXPECT_TRUE(SeverityHistogram(EntryList(), FilterChoices(), kNow, 50).buckets().empty());
  EXPECT_TRUE(
      SeverityHistogram(ListOf({At(LogTime{}, 15)}), FilterChoices(), kNow, 50).buckets().empty());
}

TEST(SeverityHistogram, CountsSeveritiesAsTheirPictures) {
  const LogTime noon = Today(12, 0);
  const SeverityHistogram histogram(ListOf({At(noon, 15), At(noon, 15), At(noon, 9), At(noon, 6),
                                            At(noon, 3), At(noon, 2), At(noon, 7)}),
                                    FilterChoices(), kNow, 50);
  EXPECT_EQ(histogram.buckets(), std::vector<Counts>{(Counts{2, 1, 1, 3})});
  EXPECT_EQ(histogram.largestTotal(), 7U);
  EXPECT_EQ(histogram.bucketMinutes(), 1);
}

TEST(SeverityHistogram, ChoosesTheFinestLengthThatFits) {
  const EntryList list = ListOf({At(Today(9, 10), 15), At(Today(9, 59), 9), At(Today(11, 5), 9)});
  const SeverityHistogram hours(list, FilterChoices(), kNow, 3);
  EXPECT_EQ(hours.bucketMinutes(), 60);
  EXPECT_EQ(hours.buckets(), (std::vector<Counts>{
                                 Counts{1,  1},
                                 Counts{0 },
                                 Counts{0, 1 }
  }));
  EXPECT_EQ(hours.RangeOf(0).first, *MinuteOf(Today(9, 0)));
  EXPECT_EQ(hours.RangeOf(0).last, *MinuteOf(Today(9, 59)));
  EXPECT_EQ(SeverityHistogram(list, FilterChoices(), kNow, 200).bucketMinutes(), 1);
  EXPECT_EQ(SeverityHistogram(list, FilterChoices(), kNow, 30).bucketMinutes(), 5);
}

TEST(SeverityHistogram, HoldsEveryTimeOnceWhateverTheRoom) {
  const EntryList list = ListOf({At({16, 1, 1, 1, 0, 0}, 15), At({19, 69, 12, 31, 23, 59}, 9),
                                 At(Today(9, 59), 3), At({255, 99, 12, 31, 23, 59}, 6)});
  for (const std::size_t room : {0U, 1U, 2U, 3U, 10U, 1000U}) {
    const SeverityHistogram histogram(list, FilterChoices(), kNow, room);
    EXPECT_LE(histogram.buckets().size(), std::max<std::size_t>(room, 2));
    std::uint32_t total = 0;
    for (const Counts& counts : histogram.buckets()) {
      total += std::accumulate(counts.begin(), counts.end(), 0U);
    }
    EXPECT_EQ(total, 4U);
    EXPECT_FALSE(histogram.Describe(0).empty());
    EXPECT_FALSE(histogram.Describe(histogram.buckets().size() - 1).empty());
  }
}

TEST(SeverityHistogram, LeavesOutWhatTheFilterHides) {
  FilterChoices choices;
  choices.severity = "Critical";
  const LogTime noon = Today(12, 0);
  EXPECT_EQ(SeverityHistogram(ListOf({At(noon, 15), At(noon, 9)}), choices, kNow, 9).buckets(),
            std::vector<Counts>{(Counts{1, 0, 0, 0})});
}

TEST(SeverityHistogram, ADragCoversItsBucketsInEitherDirection) {
  const SeverityHistogram histogram(ListOf({At(Today(9, 0), 15), At(Today(9, 9), 15)}),
                                    FilterChoices(), kNow, 10);
  ASSERT_EQ(histogram.buckets().size(), 10U);
  const TimeRange range = {*MinuteOf(Today(9, 2)), *MinuteOf(Today(9, 5))};
  EXPECT_EQ(histogram.RangeOfDrag(2, 5), range);
  EXPECT_EQ(histogram.RangeOfDrag(5, 2), range);
  EXPECT_EQ(histogram.RangeOfDrag(8, 400), histogram.RangeOfDrag(8, 9));
  EXPECT_EQ(histogram.RangeOfDrag(3, 3), histogram.RangeOf(3));
}

TEST(SeverityHistogram, SaysABucketInWords) {
  const SeverityHistogram histogram(ListOf({At(Today(9, 10), 15), At(Today(13, 30), 2)}),
                                    FilterChoices(), kNow, 6);
  EXPECT_EQ(histogram.Describe(0),
            "11/20/2026 9:00 AM to 11/20/2026 9:59 AM: 1 critical, 0 caution, 0 repaired, 0 other");
}

}  // namespace
}  // namespace qvl
