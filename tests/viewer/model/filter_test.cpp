#include "viewer/model/filter.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "entries/event_log_entry.h"
#include "tests/files/file_fixtures.h"

namespace qvl {
namespace {

using testing::LanguageScope;
using testing::Record;

using Indices = std::vector<EntryIndex>;
using Texts = std::vector<std::string_view>;

// Friday, 20 November 2026, 13:05:00 on the wall clock.
Moment TestNow() {
  Moment now = 0;
  EXPECT_TRUE(ToMoment({2026, 11, 20, 13, 5, 0}, now));
  return now;
}

constexpr Moment kMinute = 60;
constexpr Moment kDay = 86400;

LogTime StampOf(Moment moment) {
  const WallTime wall = ToWallTime(moment);
  return {static_cast<std::uint8_t>(wall.year / 100), static_cast<std::uint8_t>(wall.year % 100),
          static_cast<std::uint8_t>(wall.month),      static_cast<std::uint8_t>(wall.day),
          static_cast<std::uint8_t>(wall.hour),       static_cast<std::uint8_t>(wall.minute)};
}

RawLogEntry WithSeverity(std::uint16_t eventClass, std::uint8_t severity) {
  RawLogEntry raw = Record(0, eventClass, 1);
  raw.severity = severity;
  return raw;
}

RawLogEntry Timed(LogTime update, LogTime initial) {
  RawLogEntry raw = Record(0, 12, 1);
  raw.updateTime = update;
  raw.initialTime = initial;
  return raw;
}

EntryList ListOf(const std::vector<RawLogEntry>& records) {
  EntryList list;
  for (const RawLogEntry& raw : records) list.Append(raw);
  return list;
}

FilterChoices ClassChoice(std::string_view text) {
  FilterChoices choices;
  choices.eventClass = text;
  return choices;
}
FilterChoices SeverityChoice(std::string_view text) {
  FilterChoices choices;
  choices.severity = text;
  return choices;
}
FilterChoices UpdateChoice(std::string_view text) {
  FilterChoices choices;
  choices.updateTime = text;
  return choices;
}
FilterChoices InitialChoice(std::string_view text) {
  FilterChoices choices;
  choices.initialTime = text;
  return choices;
}

bool PassesUpdate(std::string_view choice, LogTime stamp, Moment now) {
  return EntryFilter(UpdateChoice(choice), now).Passes(CEventLogEntry(Timed(stamp, {})));
}
bool PassesInitial(std::string_view choice, LogTime stamp, Moment now) {
  return EntryFilter(InitialChoice(choice), now).Passes(CEventLogEntry(Timed({}, stamp)));
}

TEST(FilterChoices, OfferTheClassesInTheirOrder) {
  EXPECT_EQ(ClassChoices(), (Texts{"(All)",
                                   "Internal Test",
                                   "Machine Environment",
                                   "Main Memory",
                                   "Cache Memory",
                                   "CPU",
                                   "Host Bus",
                                   "EISA Bus",
                                   "PCI Bus",
                                   "Expansion Slot",
                                   "POST Messages",
                                   "Power Subsystem",
                                   "UPS",
                                   "Automatic Server Recovery",
                                   "Operating System",
                                   "Diagnostics",
                                   "Network Adapter",
                                   "SCSI Subsystem",
                                   "Drive Array Subsystem",
                                   "System Revision",
                                   "Unrecoverable System Error",
                                   "Maintenance"}));
}

TEST(FilterChoices, OfferTheSeveritiesInTheirOrder) {
  EXPECT_EQ(SeverityChoices(),
            (Texts{"(All)", "Critical", "Caution", "Repaired", "Informational"}));
}

TEST(FilterChoices, OfferTheTimesInTheirOrder) {
  EXPECT_EQ(TimeChoices(), (Texts{"(All)", "Since Yesterday", "Since Last Week", "Since Last Month",
                                  "Since Last 6 Months", "Since Last Year"}));
}

TEST(FilterChoices, AreActiveWithOneRestriction) {
  EXPECT_FALSE(FilterChoices().IsActive());
  EXPECT_EQ(FilterChoices().eventClass, "(All)");
  EXPECT_EQ(FilterChoices().severity, "(All)");
  EXPECT_EQ(FilterChoices().updateTime, "(All)");
  EXPECT_EQ(FilterChoices().initialTime, "(All)");
  EXPECT_TRUE(ClassChoice("UPS").IsActive());
  EXPECT_TRUE(SeverityChoice("Critical").IsActive());
  EXPECT_TRUE(UpdateChoice("Since Yesterday").IsActive());
  EXPECT_TRUE(InitialChoice("Since Yesterday").IsActive());
}

TEST(FindChoice, TakesTheFirstThatBeginsWithTheText) {
  const Texts times = TimeChoices();
  EXPECT_EQ(FindChoice(times, "Since Last Week"), 2U);
  EXPECT_EQ(FindChoice(times, "Since"), 1U);
  EXPECT_EQ(FindChoice(times, "Since Last"), 2U);
  EXPECT_EQ(FindChoice(times, "Since Last M"), 3U);
  EXPECT_EQ(FindChoice(times, "Since Last Y"), 5U);
  EXPECT_EQ(FindChoice(ClassChoices(), "C"), 4U);  // "Cache Memory" stands before "CPU"
  EXPECT_EQ(FindChoice(ClassChoices(), "M"), 2U);
}

TEST(FindChoice, IgnoresCase) {
  EXPECT_EQ(FindChoice(ClassChoices(), "ups"), 12U);
  EXPECT_EQ(FindChoice(ClassChoices(), "post MESSAGES"), 10U);
  EXPECT_EQ(FindChoice(SeverityChoices(), "(aLL"), 0U);
}

TEST(FindChoice, TakesTheFirstForAnEmptyText) {
  EXPECT_EQ(FindChoice(ClassChoices(), ""), 0U);
}

TEST(FindChoice, FindsNothingForWhatNoChoiceBeginsWith) {
  EXPECT_EQ(FindChoice(SeverityChoices(), "Criticality"), kNoChoice);  // longer than the choice
  EXPECT_EQ(FindChoice(SeverityChoices(), "ritical"), kNoChoice);
  EXPECT_EQ(FindChoice(ClassChoices(), "KTB"), kNoChoice);
  EXPECT_EQ(FindChoice(ClassChoices(), "Infrastructure Environment"), kNoChoice);
  EXPECT_EQ(FindChoice(ClassChoices(), "Empty"), kNoChoice);
  EXPECT_EQ(FindChoice({}, ""), kNoChoice);
}

TEST(FilterEntries, KeepsEveryEntryWithoutRestrictions) {
  std::vector<RawLogEntry> records;
  for (std::uint16_t i = 0; i < 300; ++i) {
    records.push_back(WithSeverity(i, static_cast<std::uint8_t>(i)));
  }
  const Indices kept = FilterEntries(ListOf(records), FilterChoices(), TestNow());
  Indices all(records.size());
  std::iota(all.begin(), all.end(), 0U);
  EXPECT_EQ(kept, all);
  EXPECT_TRUE(FilterEntries(EntryList(), FilterChoices(), TestNow()).empty());
  EXPECT_TRUE(FilterEntries(EntryList(), ClassChoice("UPS"), TestNow()).empty());
}

TEST(FilterEntries, KeepsTheOneClassThatIsChosen) {
  // The classes behind the choices, in the order of the choices.
  constexpr std::uint16_t kClasses[] = {1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11,
                                        12, 13, 14, 15, 17, 18, 19, 32, 20, 33};
  std::vector<RawLogEntry> records;
  for (std::uint16_t i = 0; i < 600; ++i) records.push_back(WithSeverity(i, 15));
  records.push_back(WithSeverity(0xFF0C, 15));
  records.push_back(WithSeverity(65535, 15));
  const EntryList list = ListOf(records);
  const Texts choices = ClassChoices();
  ASSERT_EQ(choices.size(), std::size(kClasses) + 1);
  for (std::size_t i = 1; i < choices.size(); ++i) {
    EXPECT_EQ(FilterEntries(list, ClassChoice(choices[i]), TestNow()), (Indices{kClasses[i - 1]}))
        << choices[i];
  }
}

TEST(FilterEntries, HidesInfrastructureNodeControllersAndEmptyRecordsUnderEveryClass) {
  const EntryList list = ListOf({WithSeverity(34, 15), WithSeverity(37, 15), WithSeverity(0, 15)});
  for (const std::string_view choice : ClassChoices()) {
    EXPECT_EQ(FilterEntries(list, ClassChoice(choice), TestNow()).size(),
              choice == "(All)" ? 3U : 0U)
        << choice;
  }
}

TEST(FilterEntries, ComparesNamesExactly) {
  const EntryList list = ListOf({WithSeverity(12, 15), WithSeverity(16, 0)});
  for (const std::string_view text : {"ups", "UP", "UPS ", "", "(all)", "(All) "}) {
    EXPECT_TRUE(FilterEntries(list, ClassChoice(text), TestNow()).empty()) << text;
  }
  for (const std::string_view text : {"critical", "Crit", ""}) {
    EXPECT_TRUE(FilterEntries(list, SeverityChoice(text), TestNow()).empty()) << text;
  }
}

TEST(FilterEntries, KeepsTheSeveritiesOfAName) {
  std::vector<RawLogEntry> records;
  for (int i = 0; i < 256; ++i) records.push_back(WithSeverity(2, static_cast<std::uint8_t>(i)));
  const EntryList list = ListOf(records);
  const auto kept = [&](std::string_view choice) {
    return FilterEntries(list, SeverityChoice(choice), TestNow());
  };
  EXPECT_EQ(kept("Critical"), (Indices{15}));
  EXPECT_EQ(kept("Caution"), (Indices{9}));
  EXPECT_EQ(kept("Repaired"), (Indices{6}));
  EXPECT_EQ(kept("Informational"), (Indices{2, 3}));
  EXPECT_EQ(kept("(All)").size(), 256U);
}

TEST(FilterEntries, KeepsNothingWhereNoEntryMatchesBothChoices) {
  FilterChoices choices = ClassChoice("UPS");
  choices.severity = "Critical";
  EXPECT_TRUE(choices.IsActive());
  const EntryList list = ListOf({WithSeverity(12, 9), WithSeverity(11, 15)});
  EXPECT_TRUE(FilterEntries(list, choices, TestNow()).empty());
}

TEST(FilterEntries, KeepsTheOrderOfTheList) {
  std::vector<RawLogEntry> records;
  for (const std::uint32_t number : {9U, 1U, 5U, 5U, 0U}) {
    records.push_back(Record(number, 12, 1));
    records.push_back(Record(number, 11, 1));
  }
  EXPECT_EQ(FilterEntries(ListOf(records), ClassChoice("UPS"), TestNow()),
            (Indices{0, 2, 4, 6, 8}));
}

struct Span {
  const char* choice;
  int days;
};
constexpr Span kSpans[] = {
    {"Since Yesterday",     1  },
    {"Since Last Week",     7  },
    {"Since Last Month",    31 },
    {"Since Last 6 Months", 183},
    {"Since Last Year",     365}
};

TEST(TimeTest, CountsWholeDaysOf24HoursBack) {
  for (const Span& span : kSpans) {
    EXPECT_EQ(TimeTest::SinceChoice(span.choice, 1000000000), 1000000000 - span.days * kDay)
        << span.choice;
  }
  EXPECT_EQ(TimeTest::SinceChoice("whatever else", 1000000000), 1000000000 - 365 * kDay);
}

TEST(TimeTest, KeepsTheVeryMinuteAndDropsTheOneBefore) {
  const Moment now = TestNow();
  for (const Span& span : kSpans) {
    const Moment since = now - span.days * kDay;
    for (const auto& passes : {PassesUpdate, PassesInitial}) {
      EXPECT_TRUE(passes(span.choice, StampOf(since), now)) << span.choice;
      EXPECT_TRUE(passes(span.choice, StampOf(since + kMinute), now)) << span.choice;
      EXPECT_FALSE(passes(span.choice, StampOf(since - kMinute), now)) << span.choice;
      EXPECT_TRUE(passes(span.choice, StampOf(now), now)) << span.choice;
    }
  }
}

TEST(TimeTest, KeepsAStampOfExactlySevenDaysAgo) {
  EXPECT_TRUE(PassesUpdate("Since Last Week", {20, 26, 11, 13, 13, 5}, TestNow()));
  EXPECT_FALSE(PassesUpdate("Since Last Week", {20, 26, 11, 13, 13, 4}, TestNow()));
}

// A stamp has no seconds, so those of the clock decide nothing.
TEST(TimeTest, LeavesTheSecondsOfTheClockOut) {
  for (const Moment seconds : {0, 1, 30, 59}) {
    const Moment now = TestNow() + seconds;
    EXPECT_FALSE(PassesUpdate("Since Last Week", {20, 26, 11, 13, 13, 4}, now)) << seconds;
    EXPECT_TRUE(PassesUpdate("Since Last Week", {20, 26, 11, 13, 13, 5}, now)) << seconds;
  }
}

// Both stamps say the first of January 2030.
TEST(TimeTest, CountsAYearBeyondItsCenturyOn) {
  EXPECT_TRUE(PassesUpdate("Since Yesterday", {20, 30, 1, 1, 0, 0}, TestNow()));
  EXPECT_TRUE(PassesUpdate("Since Yesterday", {19, 130, 1, 1, 0, 0}, TestNow()));
  EXPECT_FALSE(PassesUpdate("Since Yesterday", {19, 120, 1, 1, 0, 0}, TestNow()));
}

TEST(TimeTest, DecidesAroundTheMomentAsTheClockDoes) {
  const Moment now = TestNow();
  const Moment since = now - 7 * kDay;
  for (Moment offset = -4 * kDay; offset <= 4 * kDay; offset += 7 * kMinute) {
    EXPECT_EQ(PassesUpdate("Since Last Week", StampOf(since + offset), now), offset >= 0) << offset;
  }
}

TEST(TimeTest, DropsTheFarPastAndKeepsTheFuture) {
  const Moment now = TestNow();
  EXPECT_FALSE(PassesUpdate("Since Last Year", {16, 1, 1, 1, 0, 0}, now));
  EXPECT_FALSE(PassesUpdate("Since Last Year", {19, 69, 12, 31, 23, 59}, now));
  EXPECT_FALSE(PassesUpdate("Since Last Year", {20, 25, 11, 19, 23, 59}, now));
  EXPECT_TRUE(PassesUpdate("Since Yesterday", {20, 26, 11, 20, 13, 6}, now));
  EXPECT_TRUE(PassesUpdate("Since Yesterday", {20, 36, 1, 1, 0, 0}, now));
  EXPECT_TRUE(PassesUpdate("Since Yesterday", {20, 39, 1, 1, 0, 0}, now));  // beyond 32-bit clocks
}

TEST(TimeTest, DropsMissingStamps) {
  const Moment now = TestNow();
  for (const LogTime stamp : {
           LogTime{0,  0,  0,  0,  0,  0},
           LogTime{0,  26, 11, 20, 13, 5},
           LogTime{20, 26, 0,  20, 13, 5},
           LogTime{20, 26, 11, 0,  13, 5}
  }) {
    for (const Span& span : kSpans) {
      EXPECT_FALSE(PassesUpdate(span.choice, stamp, now));
      EXPECT_FALSE(PassesInitial(span.choice, stamp, now));
    }
  }
}

TEST(TimeTest, DropsImpossibleStampsNearAndFar) {
  const Moment now = TestNow();
  for (const LogTime stamp : {
           LogTime{20,  26,  13,  1,   0,   0  }, // month 13
           LogTime{20,  26,  255, 20,  0,   0  }, //
           LogTime{20,  26,  2,   31,  0,   0  }, // day 31 of February
           LogTime{20,  26,  2,   29,  0,   0  }, // not a leap year
           LogTime{20,  26,  11,  31,  0,   0  }, // day 31 of November
           LogTime{20,  27,  2,   31,  0,   0  }, // and all the same in the future
           LogTime{20,  26,  11,  20,  24,  0  }, // hour 24
           LogTime{20,  26,  11,  20,  255, 5  }, //
           LogTime{20,  26,  11,  20,  13,  60 }, // minute 60
           LogTime{20,  30,  11,  20,  24,  0  }, //
           LogTime{255, 255, 255, 255, 255, 255},
  }) {
    for (const Span& span : kSpans) {
      EXPECT_FALSE(PassesUpdate(span.choice, stamp, now))
          << int{stamp.month} << "/" << int{stamp.day};
      EXPECT_FALSE(PassesInitial(span.choice, stamp, now));
    }
  }
  // The same months and days where the calendar has them.
  EXPECT_TRUE(PassesUpdate("Since Last Year", {20, 28, 2, 29, 23, 59}, now));
  EXPECT_TRUE(PassesUpdate("Since Last Year", {20, 26, 10, 31, 23, 59}, now));
}

TEST(FilterEntries, JudgesEachTimeOnItsOwn) {
  const Moment now = TestNow();
  const LogTime recent = StampOf(now - 60 * kMinute);
  const LogTime old = StampOf(now - 20 * kDay);
  const EntryList list = ListOf({Timed({}, recent), Timed(recent, {}), Timed(recent, old),
                                 Timed(old, recent), Timed(recent, recent), Timed({}, {})});
  EXPECT_EQ(FilterEntries(list, UpdateChoice("Since Yesterday"), now), (Indices{1, 2, 4}));
  EXPECT_EQ(FilterEntries(list, InitialChoice("Since Yesterday"), now), (Indices{0, 3, 4}));
  FilterChoices both = UpdateChoice("Since Yesterday");
  both.initialTime = "Since Last Month";
  EXPECT_EQ(FilterEntries(list, both, now), (Indices{2, 4}));
}

// Records among which every choice keeps some and drops some.
EntryList MixedList(std::size_t count, Moment now) {
  std::mt19937 random(1);
  constexpr std::array<std::uint8_t, 8> kSeverities = {0, 2, 3, 6, 7, 9, 15, 255};
  EntryList list;
  for (std::size_t i = 0; i < count; ++i) {
    RawLogEntry raw =
        Record(static_cast<std::uint32_t>(random()), static_cast<std::uint16_t>(random() % 40), 1);
    raw.severity = kSeverities[random() % kSeverities.size()];
    raw.updateTime = StampOf(now - static_cast<Moment>(random() % (500U * 86400U)));
    raw.initialTime = StampOf(now - static_cast<Moment>(random() % (40U * 86400U)));
    if (random() % 10 == 0) raw.updateTime.month = static_cast<std::uint8_t>(random() % 16);
    if (random() % 10 == 0) raw.initialTime.hour = static_cast<std::uint8_t>(random() % 32);
    list.Append(raw);
  }
  return list;
}

bool TimePasses(std::string_view choice, LogTime stamp, Moment now) {
  if (choice == "(All)") return true;
  if (stamp.IsMissing() || !stamp.HasValidDate() || !stamp.HasValidTimeOfDay()) return false;
  Moment moment = 0;
  const WallTime wall{stamp.FullYear(), stamp.month, stamp.day, stamp.hour, stamp.minute, 0};
  return ToMoment(wall, moment) && moment >= TimeTest::SinceChoice(choice, now);
}

TEST(FilterEntries, CombinesAllCriteria) {
  const Moment now = TestNow() + 17;
  const EntryList list = MixedList(400, now);
  std::size_t keptInAll = 0;
  for (const std::string_view eventClass : {"(All)", "CPU", "UPS", "Maintenance"}) {
    for (const std::string_view severity : SeverityChoices()) {
      for (const std::string_view update : TimeChoices()) {
        for (const std::string_view initial : TimeChoices()) {
          FilterChoices choices;
          choices.eventClass = eventClass;
          choices.severity = severity;
          choices.updateTime = update;
          choices.initialTime = initial;
          Indices expected;
          for (std::size_t i = 0; i < list.size(); ++i) {
            const CEventLogEntry& entry = list[i];
            if (eventClass != "(All)" && entry.GetClassName() != eventClass) continue;
            if (severity != "(All)" && entry.GetSeverityName() != severity) continue;
            if (!TimePasses(update, entry.GetUpdateTime(), now)) continue;
            if (!TimePasses(initial, entry.GetInitialTime(), now)) continue;
            expected.push_back(static_cast<EntryIndex>(i));
          }
          keptInAll += expected.size();
          ASSERT_EQ(FilterEntries(list, choices, now), expected)
              << eventClass << ", " << severity << ", " << update << ", " << initial;
        }
      }
    }
  }
  EXPECT_GT(keptInAll, 1000U);
}

TEST(FilterEntries, AgreesWithTheTestOfOneEntryOverManyBlocks) {
  const Moment now = TestNow();
  const EntryList list = MixedList(2 * EntryList::kBlockEntries + 7, now);
  FilterChoices choices;
  choices.severity = "Informational";
  choices.updateTime = "Since Last 6 Months";
  const EntryFilter filter(choices, now);
  Indices expected;
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (filter.Passes(list[i])) expected.push_back(static_cast<EntryIndex>(i));
  }
  EXPECT_GT(expected.size(), 100U);
  EXPECT_EQ(FilterEntries(list, choices, now), expected);
}

// The kept entries of every choice of every list, in the process's language.
std::vector<Indices> KeptByEveryChoice(const EntryList& list, Moment now) {
  std::vector<Indices> kept;
  for (const std::string_view choice : ClassChoices()) {
    kept.push_back(FilterEntries(list, ClassChoice(choice), now));
  }
  for (const std::string_view choice : SeverityChoices()) {
    kept.push_back(FilterEntries(list, SeverityChoice(choice), now));
  }
  for (const std::string_view choice : TimeChoices()) {
    kept.push_back(FilterEntries(list, UpdateChoice(choice), now));
    kept.push_back(FilterEntries(list, InitialChoice(choice), now));
  }
  return kept;
}

TEST(FilterEntries, KeepsTheSameEntriesInJapanese) {
  const Moment now = TestNow();
  const EntryList list = MixedList(2000, now);
  const std::vector<Indices> english = KeptByEveryChoice(list, now);

  const LanguageScope language(Language::kJapanese);
  EXPECT_EQ(ClassChoices().size(), 22U);
  EXPECT_EQ(SeverityChoices().size(), 5U);
  EXPECT_EQ(TimeChoices().size(), 6U);
  EXPECT_NE(ClassChoices()[0], "(All)");
  EXPECT_FALSE(FilterChoices().IsActive());
  EXPECT_TRUE(ClassChoice("(All)").IsActive());  // no choice of this language
  EXPECT_EQ(KeptByEveryChoice(list, now), english);
}

}  // namespace
}  // namespace qvl
