#ifndef QVL_TOOLS_SAMPLE_SAMPLE_LOG_H_
#define QVL_TOOLS_SAMPLE_SAMPLE_LOG_H_

#include <array>
#include <cstddef>
#include <cstdint>

#include "entries/log_time.h"
#include "entries/raw_log_entry.h"
#include "tools/sample/scenarios.h"

namespace qvl {

/// The log of one made-up server's year, from 2025-11-21 to 2026-11-19, entry by entry: entry
/// numbers from 1, in the order of the initial times. From 100 entries on every event class
/// appears. The same seed and count give the same bytes on every system.
class SampleLog {
 public:
  /// entries  at most 4294967295, the last number an entry can have; more are not written.
  SampleLog(std::uint64_t seed, std::uint64_t entries);

  /// Writes the next entry over `entry`. False, with `entry` untouched, after the last one.
  bool Next(RawLogEntry& entry);

 private:
  struct Item {
    const sample::EventKind* kind = nullptr;
    std::uint32_t minute = 0;  ///< since the year's begin
    std::uint16_t delay = 0;   ///< in minutes, after the item before
    bool isAside = false;      ///< not part of the story, with parts of its own
  };
  static constexpr std::size_t kMaxAsides = 2;
  static constexpr std::size_t kMaxItems = sample::kLongestStory * (1 + kMaxAsides);

  void BeginItems();
  const sample::Story* TakePlannedStory();
  const sample::EventKind& PickDecodedOrRare();
  void AddStory(const sample::Story& story);
  void SpreadItems();
  void LineUpItems();
  void Fill(const Item& item, RawLogEntry& entry);
  void SetTimes(const Item& item, RawLogEntry& entry);

  std::uint32_t MinuteAt(std::uint64_t index) const;
  std::uint64_t Room() const { return entries_ - next_ - itemCount_ - plannedSteps_; }

  std::uint64_t entries_;
  std::uint64_t next_ = 0;            ///< entries given so far
  std::uint64_t withoutDecoder_ = 0;  ///< of them
  std::size_t planSize_;              ///< stories of the year's plan that are told at all
  std::size_t planPosition_ = 0;
  std::size_t plannedSteps_ = 0;  ///< of the planned stories still to come
  sample::Random random_;
  sample::Machine machine_;
  sample::Cast cast_;
  std::array<Item, kMaxItems> items_;
  std::size_t itemCount_ = 0;
  std::size_t itemPosition_ = 0;
};

}  // namespace qvl

#endif  // QVL_TOOLS_SAMPLE_SAMPLE_LOG_H_
