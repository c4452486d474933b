#include "viewer/model/filter.h"

#include <algorithm>

#include "entries/ascii_case.h"
#include "entries/severity.h"
#include "texts/strings.h"

namespace qvl {
namespace {

using enum StringId;

constexpr StringId kClassChoices[] = {
    kAll,
    kClassInternalTest,
    kClassMachineEnvironment,
    kClassMainMemory,
    kClassCacheMemory,
    kClassCpu,
    kClassHostBus,
    kClassEisaBus,
    kClassPciBus,
    kClassExpansionSlot,
    kClassPostMessages,
    kClassPowerSubsystem,
    kClassUps,
    kClassAutomaticServerRecovery,
    kClassOperatingSystem,
    kClassDiagnostics,
    kClassNetworkAdapter,
    kClassScsiSubsystem,
    kClassDriveArraySubsystem,
    kClassSystemRevision,
    kClassUnrecoverableSystemError,
    kClassMaintenance,
};

constexpr StringId kSeverityChoices[] = {
    kAll, kSeverityCritical, kSeverityCaution, kSeverityRepaired, kSeverityInformational,
};

struct TimeChoice {
  StringId text;
  int days;
};
constexpr TimeChoice kTimeChoices[] = {
    {kSinceYesterday,     1  },
    {kSinceLastWeek,      7  },
    {kSinceLastMonth,     31 },
    {kSinceLastSixMonths, 183},
    {kSinceLastYear,      365},
};
constexpr Moment kSecondsPerMinute = 60;
constexpr Moment kSecondsPerDay = 86400;

// Farther from the moment than any clock has ever been turned at once.
constexpr Moment kUncertainty = 2 * kSecondsPerDay;

template <std::size_t N>
std::vector<std::string_view> Texts(const StringId (&ids)[N]) {
  std::vector<std::string_view> texts;
  for (const StringId id : ids) texts.push_back(GetString(id));
  return texts;
}

std::uint64_t PackedWallTime(Moment moment) {
  const WallTime wall = ToWallTime(moment);
  // A year that a stamp cannot hold lies beyond all stamps, on its own side.
  if (wall.year < 100) return 0;
  if (wall.year >= 25600) return ~std::uint64_t{0};
  return LogTime{
      static_cast<std::uint8_t>(wall.year / 100), static_cast<std::uint8_t>(wall.year % 100),
      static_cast<std::uint8_t>(wall.month),      static_cast<std::uint8_t>(wall.day),
      static_cast<std::uint8_t>(wall.hour),       static_cast<std::uint8_t>(wall.minute)}
      .Packed();
}

bool IsAll(std::string_view choice) {
  return choice == GetString(kAll);
}

}  // namespace

FilterChoices::FilterChoices()
    : eventClass(GetString(kAll)),
      severity(GetString(kAll)),
      updateTime(GetString(kAll)),
      initialTime(GetString(kAll)) {}

bool FilterChoices::IsActive() const {
  return !IsAll(eventClass) || !IsAll(severity) || !IsAll(updateTime) || !IsAll(initialTime);
}

std::vector<std::string_view> ClassChoices() {
  return Texts(kClassChoices);
}
std::vector<std::string_view> SeverityChoices() {
  return Texts(kSeverityChoices);
}
std::vector<std::string_view> TimeChoices() {
  std::vector<std::string_view> texts = {GetString(kAll)};
  for (const TimeChoice& choice : kTimeChoices) texts.push_back(GetString(choice.text));
  return texts;
}

std::size_t FindChoice(const std::vector<std::string_view>& choices, std::string_view text) {
  for (std::size_t i = 0; i < choices.size(); ++i) {
    if (BeginsIgnoringCase(choices[i], text)) return i;
  }
  return kNoChoice;
}

TimeTest::TimeTest(Moment since)
    : since_(since - since % kSecondsPerMinute),
      certainlyBefore_(PackedWallTime(since - kUncertainty)),
      certainlyAfter_(PackedWallTime(since + kUncertainty)) {}

Moment TimeTest::SinceChoice(std::string_view choice, Moment now) {
  int days = std::end(kTimeChoices)[-1].days;
  for (const TimeChoice& candidate : kTimeChoices) {
    if (choice == GetString(candidate.text)) days = candidate.days;
  }
  return now - days * kSecondsPerDay;
}

bool TimeTest::PassesNear(LogTime time) const {
  if (time == lastTime_) return lastPassed_;
  Moment moment = 0;
  const WallTime wall{time.FullYear(), time.month, time.day, time.hour, time.minute, 0};
  lastTime_ = time;
  lastPassed_ = ToMoment(wall, moment) && moment >= since_;
  return lastPassed_;
}

EntryFilter::EntryFilter(const FilterChoices& choices, Moment now) {
  if (IsAll(choices.eventClass)) {
    classPasses_.fill(1);
  } else {
    for (std::size_t i = 0; i < kEventClassEnd; ++i) {
      const std::string_view name =
          EventClassName(static_cast<std::uint16_t>(i), CurrentLanguage());
      classPasses_[i] = !name.empty() && name == choices.eventClass ? 1 : 0;
    }
  }
  for (std::size_t i = 0; i < severityPasses_.size(); ++i) {
    const std::string_view name = SeverityName(static_cast<std::uint8_t>(i), CurrentLanguage());
    const bool passes = IsAll(choices.severity) || (!name.empty() && name == choices.severity);
    severityPasses_[i] = passes ? 1 : 0;
  }
  if (!IsAll(choices.updateTime)) {
    updateTest_.emplace(TimeTest::SinceChoice(choices.updateTime, now));
  }
  if (!IsAll(choices.initialTime)) {
    initialTest_.emplace(TimeTest::SinceChoice(choices.initialTime, now));
  }
}

std::vector<EntryIndex> FilterEntries(const EntryList& entries, const FilterChoices& choices,
                                      Moment now) {
  const EntryFilter filter(choices, now);
  std::vector<EntryIndex> passed(entries.size());
  std::size_t count = 0;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    // Written always and counted only when it passes: no branch to mispredict.
    passed[count] = static_cast<EntryIndex>(i);
    count += filter.PassesHead(entries.Head(i)) ? 1U : 0U;
  }
  passed.resize(count);
  if (filter.initialTest_) {
    std::erase_if(passed, [&](EntryIndex i) {
      return !filter.PassesInitialTime(entries[i].GetInitialTime());
    });
  }
  passed.shrink_to_fit();
  return passed;
}

}  // namespace qvl
