#ifndef QVL_VIEWER_MODEL_FILTER_H_
#define QVL_VIEWER_MODEL_FILTER_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "entries/entry_list.h"
#include "entries/event_class.h"
#include "entries/log_time.h"
#include "platform/local_time.h"

namespace qvl {

/// The four criteria, each a text of its choice list in the process's language. A criterion that
/// reads "(All)" restricts nothing.
struct FilterChoices {
  FilterChoices();

  std::string eventClass;
  std::string severity;
  std::string updateTime;
  std::string initialTime;

  /// True when at least one criterion restricts.
  bool IsActive() const;

  friend bool operator==(const FilterChoices&, const FilterChoices&) = default;
};

/// What each list offers, in this order, "(All)" first. The classes that only appear under
/// "(All)" are left out on purpose: infrastructure, node controllers and empty records.
std::vector<std::string_view> ClassChoices();
std::vector<std::string_view> SeverityChoices();
std::vector<std::string_view> TimeChoices();

inline constexpr std::size_t kNoChoice = static_cast<std::size_t>(-1);

/// The first choice that begins with `text`, ignoring ASCII case, as a combo box selects by text;
/// an empty text selects the first choice. `kNoChoice` when none does.
std::size_t FindChoice(const std::vector<std::string_view>& choices, std::string_view text);

/// Tests whether time stamps lie at or after a moment, to the minute: a stamp has no seconds, so
/// the one of the moment's own minute passes whatever the clock's seconds say. The system's clock
/// rules decide only near the moment itself, where a change of daylight-saving time can matter;
/// elsewhere the stamps compare as they stand.
class TimeTest {
 public:
  explicit TimeTest(Moment since);

  /// The moment that a time choice stands for, whole days of 24 hours before `now`.
  static Moment SinceChoice(std::string_view choice, Moment now);

  /// A missing or impossible stamp never passes.
  bool Passes(LogTime time) const {
    // A year beyond its century counts on into the next one, where the bytes do not tell the order.
    const bool ordered = time.year <= 99;
    const std::uint64_t packed = time.Packed();
    if (ordered && packed < certainlyBefore_) return false;
    if (time.IsMissing() || !time.HasValidDate() || !time.HasValidTimeOfDay()) return false;
    return (ordered && packed > certainlyAfter_) || PassesNear(time);
  }

 private:
  bool PassesNear(LogTime time) const;

  Moment since_;
  std::uint64_t certainlyBefore_;
  std::uint64_t certainlyAfter_;
  // The last stamp that the system was asked about: a log's entries come in the order of time.
  mutable LogTime lastTime_;
  mutable bool lastPassed_ = false;
};

/// The entries that pass every criterion, in list order.
/// now  the clock that the time criteria count back from.
std::vector<EntryIndex> FilterEntries(const EntryList& entries, const FilterChoices& choices,
                                      Moment now);

/// The same test for one entry at a time, for logs that are read in a stream.
class EntryFilter {
 public:
  EntryFilter(const FilterChoices& choices, Moment now);

  bool Passes(const CEventLogEntry& entry) const {
    const RawLogEntry& raw = entry.raw();
    const std::size_t eventClass =
        raw.eventClass < kEventClassEnd ? raw.eventClass : kEventClassEnd;
    const EntryHead head{static_cast<std::uint8_t>(eventClass), raw.severity, raw.updateTime};
    return PassesHead(head) && PassesInitialTime(raw.initialTime);
  }

 private:
  friend std::vector<EntryIndex> FilterEntries(const EntryList&, const FilterChoices&, Moment);

  bool PassesHead(const EntryHead& head) const {
    return (classPasses_[head.classIndex] & severityPasses_[head.severity]) != 0 &&
           (!updateTest_ || updateTest_->Passes(head.updateTime));
  }
  bool PassesInitialTime(LogTime time) const { return !initialTest_ || initialTest_->Passes(time); }

  std::array<std::uint8_t, kEventClassEnd + 1> classPasses_{};  // the last for all higher classes
  std::array<std::uint8_t, 256> severityPasses_{};
  std::optional<TimeTest> updateTest_;
  std::optional<TimeTest> initialTest_;
};

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_FILTER_H_
