#include "tools/sample/sample_log.h"

#include <algorithm>
#include <span>

#include "entries/severity.h"

namespace qvl {
namespace {

using sample::EventKind;
using sample::Pace;
using sample::Random;
using sample::Scene;
using sample::Step;
using sample::Story;

constexpr std::uint64_t kMostEntries = 0xFFFFFFFF;
constexpr std::uint32_t kMinutesPerDay = 24 * 60;
constexpr std::uint32_t kDays = 364;  // 2025-11-21 to 2026-11-19
constexpr std::uint32_t kMinutes = kDays * kMinutesPerDay;
// The log is read at the end of 2026-11-20: what recurs has been updated by then.
constexpr std::uint32_t kLastMinute = kMinutes + kMinutesPerDay - 1;

// The log begins with its clearing, not with a quiet month.
constexpr std::uint32_t kFirstMinutes = 600;

constexpr std::uint32_t kStoryPercent = 22;
// One entry in so many, at most, is of a class without a decoder.
constexpr std::uint64_t kEntriesPerUndecoded = 150;

struct Date {
  std::uint8_t year;
  std::uint8_t month;
  std::uint8_t day;
};

constexpr std::array<Date, kDays + 1> MakeDates() {
  constexpr std::uint8_t kMonthLengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  std::array<Date, kDays + 1> dates{};
  Date date{25, 11, 21};
  for (Date& slot : dates) {
    slot = date;
    if (date.day++ < kMonthLengths[date.month - 1]) continue;
    date.day = 1;
    if (date.month++ < 12) continue;
    date.month = 1;
    ++date.year;
  }
  return dates;
}
constexpr std::array<Date, kDays + 1> kDates = MakeDates();
static_assert(kDates.back().year == 26 && kDates.back().month == 11 && kDates.back().day == 20);

LogTime TimeAt(std::uint32_t minute) {
  const Date& date = kDates[minute / kMinutesPerDay];
  const std::uint32_t ofDay = minute % kMinutesPerDay;
  return {20,
          date.year,
          date.month,
          date.day,
          static_cast<std::uint8_t>(ofDay / 60),
          static_cast<std::uint8_t>(ofDay % 60)};
}

// Small counts are frequent, large ones rare.
std::uint32_t DrawCount(std::uint32_t maxCount, Random& random) {
  return 2 + random.Below(1 + random.Below(1 + random.Below(maxCount - 1)));
}

// Some faults recur every minute, some once a day.
std::uint32_t DrawInterval(Random& random) {
  constexpr std::uint32_t kIntervals[] = {1, 5, 60, 360, 1440};
  return random.AnyOf(kIntervals);
}

// The older a fault, the more likely someone has marked it repaired.
bool IsRepaired(const EventKind& kind, std::uint32_t minute, Random& random) {
  if (kind.severity < kLowestRepairable) return false;
  return random.Percent(kind.repairedPercent * (kMinutes - minute) / kMinutes);
}

}  // namespace

SampleLog::SampleLog(std::uint64_t seed, std::uint64_t entries)
    : entries_(std::min(entries, kMostEntries)),
      planSize_(entries_ >= sample::kEntriesForPlan ? sample::YearPlan().size()
                                                    : static_cast<std::size_t>(entries_ > 0)),
      random_(Random::Mix(seed)) {
  machine_.seed = random_.Next();
  for (const Story* story : sample::YearPlan().first(planSize_)) {
    plannedSteps_ += story->steps.size();
  }
}

bool SampleLog::Next(RawLogEntry& entry) {
  if (next_ == entries_) return false;
  if (itemPosition_ == itemCount_) BeginItems();
  const Item& item = items_[itemPosition_];
  Fill(item, entry);
  ++itemPosition_;
  ++next_;
  if (!item.kind->HasDecoder()) ++withoutDecoder_;
  return true;
}

// Draws what comes next: a planned story when its time has come, else any story or single event
// that leaves enough room for the plan.
void SampleLog::BeginItems() {
  itemCount_ = 0;
  itemPosition_ = 0;
  cast_ = sample::DrawCast(random_);
  const Story* story = TakePlannedStory();
  if (story == nullptr && random_.Percent(kStoryPercent)) {
    story = &sample::PickStory(random_);
    if (story->steps.size() > Room()) story = nullptr;
  }
  if (story != nullptr) {
    sample::Arrange(*story, random_, cast_);
    AddStory(*story);
  } else {
    items_[itemCount_++] = {&PickDecodedOrRare(), 0, 0, false};
  }
  if (story != nullptr && story->pace == Pace::kQuick) {
    LineUpItems();
  } else {
    SpreadItems();
  }
}

const Story* SampleLog::TakePlannedStory() {
  if (planPosition_ == planSize_) return nullptr;
  const bool isDue = planPosition_ * entries_ / planSize_ <= next_;
  if (!isDue && Room() > 0) return nullptr;
  const Story* const story = sample::YearPlan()[planPosition_++];
  plannedSteps_ -= story->steps.size();
  return story;
}

const EventKind& SampleLog::PickDecodedOrRare() {
  for (;;) {
    const EventKind& kind = sample::PickEvent(random_);
    if (kind.HasDecoder() || (withoutDecoder_ + 1) * kEntriesPerUndecoded <= next_) return kind;
  }
}

void SampleLog::AddStory(const Story& story) {
  std::uint64_t spare = Room() - story.steps.size();
  for (const Step& step : story.steps) {
    items_[itemCount_++] = {step.kind, 0, step.minutes, false};
    if (story.pace == Pace::kQuick || &step == &story.steps.back()) continue;
    for (std::uint32_t asides = random_.Below(1 + kMaxAsides); asides > 0 && spare > 0; --asides) {
      items_[itemCount_++] = {&PickDecodedOrRare(), 0, 0, true};
      --spare;
    }
  }
}

// Each item by chance within its own share of the year.
void SampleLog::SpreadItems() {
  for (std::size_t i = 0; i < itemCount_; ++i) {
    const std::uint32_t begin = MinuteAt(next_ + i);
    const std::uint32_t share = MinuteAt(next_ + i + 1) - begin;
    items_[i].minute =
        begin + random_.Below(next_ + i == 0 ? std::min(share, kFirstMinutes) : share);
  }
}

// One item soon after the other, all within their common share of the year.
void SampleLog::LineUpItems() {
  std::uint32_t length = 0;
  for (Item& item : std::span(items_).first(itemCount_)) {
    item.delay = static_cast<std::uint16_t>(item.delay / 2 + random_.Below(item.delay + 1U));
    length += item.delay;
  }
  const std::uint32_t begin = MinuteAt(next_);
  const std::uint32_t share = MinuteAt(next_ + itemCount_) - begin;
  std::uint32_t offset = share > length ? random_.Below(share - length) : 0;
  for (Item& item : std::span(items_).first(itemCount_)) {
    offset = std::min(offset + item.delay, share == 0 ? 0 : share - 1);
    item.minute = begin + offset;
  }
}

void SampleLog::Fill(const Item& item, RawLogEntry& entry) {
  const EventKind& kind = *item.kind;
  entry = RawLogEntry{};
  // Nothing reads the reserved bytes; they vary so that a copy that loses them is found out.
  const std::uint32_t reserved = random_.Word();
  entry.reserved0 = {static_cast<std::uint8_t>(reserved >> 8U),
                     static_cast<std::uint8_t>(reserved)};
  entry.reserved6 = static_cast<std::uint8_t>(reserved >> 16U);
  entry.entryNumber = static_cast<std::uint32_t>(next_ + 1);
  entry.severity = IsRepaired(kind, item.minute, random_) ? kRepaired : kind.severity;
  entry.eventClass = kind.eventClass;
  entry.eventCode = kind.code;
  SetTimes(item, entry);

  std::array<std::uint8_t, EventData::kSize> data{};
  const sample::Cast own = item.isAside ? sample::DrawCast(random_) : cast_;
  Scene scene{kind, own, machine_, random_, item.minute, data};
  kind.fill(scene);
  entry.data = data;
}

void SampleLog::SetTimes(const Item& item, RawLogEntry& entry) {
  const sample::Recurrence recurrence = item.kind->recurrence;
  // What a story is about ends with it: the part has been replaced.
  const bool endsWithStory = !item.isAside && itemPosition_ + 1 < itemCount_;
  const std::uint32_t rest =
      (endsWithStory ? items_[itemCount_ - 1].minute : kLastMinute) - item.minute;
  std::uint32_t updateMinute = item.minute;
  entry.count = 1;
  if (rest > 0 && random_.Percent(recurrence.percent)) {
    entry.count = DrawCount(recurrence.maxCount, random_);
    const std::uint32_t span = 1 + random_.Below((entry.count - 1) * DrawInterval(random_));
    updateMinute += span <= rest ? span : 1 + random_.Below(rest);
  }
  entry.initialTime = TimeAt(item.minute);
  entry.updateTime = TimeAt(updateMinute);
}

std::uint32_t SampleLog::MinuteAt(std::uint64_t index) const {
  return static_cast<std::uint32_t>(index * kMinutes / entries_);
}

}  // namespace qvl
