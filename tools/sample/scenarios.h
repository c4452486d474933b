#ifndef QVL_TOOLS_SAMPLE_SCENARIOS_H_
#define QVL_TOOLS_SAMPLE_SCENARIOS_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "entries/event_data.h"

namespace qvl::sample {

/// splitmix64. The standard distributions may differ between libraries; this gives the same
/// numbers everywhere.
class Random {
 public:
  explicit constexpr Random(std::uint64_t seed) : state_(seed) {}

  constexpr std::uint64_t Next() {
    state_ += 0x9E3779B97F4A7C15U;
    return Mix(state_);
  }
  constexpr std::uint32_t Word() { return static_cast<std::uint32_t>(Next() >> 32U); }
  /// 0 to limit - 1; 0 for a limit of 0.
  constexpr std::uint32_t Below(std::uint32_t limit) {
    return static_cast<std::uint32_t>((Next() >> 32U) * limit >> 32U);
  }
  constexpr std::uint32_t Between(std::uint32_t low, std::uint32_t high) {
    return low + Below(high - low + 1);
  }
  constexpr bool Percent(std::uint32_t percent) { return Below(100) < percent; }

  template <typename T, std::size_t N>
  constexpr const T& AnyOf(const T (&values)[N]) {
    return values[Below(static_cast<std::uint32_t>(N))];
  }
  /// A few of 32 bits, as in a status register.
  constexpr std::uint32_t StatusWord() { return Word() & Word(); }

  static constexpr std::uint64_t Mix(std::uint64_t value) {
    value = (value ^ value >> 30U) * 0xBF58476D1CE4E5B9U;
    value = (value ^ value >> 27U) * 0x94D049BB133111EBU;
    return value ^ value >> 31U;
  }

 private:
  std::uint64_t state_;
};

/// What the machine carries from one story to the next.
struct Machine {
  static constexpr std::size_t kCarriers = 17;  ///< system memory, boards 1-8, processors 1-8
  static constexpr std::size_t kModules = 9;    ///< modules 1-8 of each

  std::uint64_t seed = 0;
  std::uint32_t romVersion = 214;
  /// How often each memory module was replaced: a new module has a new serial number.
  std::array<std::array<std::uint16_t, kModules>, kCarriers> replacements{};
};

/// Where fans and power supplies sit, in the numbers of the events' chassis types.
enum class Place : std::uint8_t {
  kSystem,
  kExternalChassis,
  kExternalStorage,
  kInternalStorage,
  kBladeEnclosure,
  kPowerEnclosure,
};

/// The parts that one story is about: drawn when it begins, the same in all of its events.
struct Cast {
  Place place = Place::kSystem;
  bool isUpper = true;      ///< the upper tray or node-controller board
  bool isExternal = false;  ///< the storage enclosure
  std::uint8_t board = 0;   ///< 0 is system memory
  std::uint8_t module = 0;
  std::uint8_t processor = 0;  ///< within its tray
  std::uint8_t slot = 0;
  std::uint8_t port = 0;
  std::uint8_t bus = 0;
  std::uint8_t device = 0;
  std::uint8_t function = 0;
  std::uint8_t fan = 0;
  std::uint8_t zone = 0;
  std::uint8_t location = 0;
  std::uint8_t supply = 0;
  std::uint8_t chassis = 0;    ///< number of the external chassis
  std::uint8_t enclosure = 0;  ///< number of the blade or power enclosure
  std::uint8_t blade = 0;
  std::uint8_t box = 0;
  std::uint8_t bay = 0;

  /// Lower-tray processors are counted backwards through the machine.
  std::uint8_t ProcessorNumber() const {
    return static_cast<std::uint8_t>(isUpper ? processor : 9 - processor);
  }
};
Cast DrawCast(Random& random);

struct EventKind;

/// All that an event's data are filled from, and the data, which begin as zeros.
struct Scene {
  const EventKind& kind;
  const Cast& cast;
  Machine& machine;
  Random& random;
  std::uint32_t minute;  ///< of the year, when the event first occurred
  std::span<std::uint8_t, EventData::kSize> data;
};

/// How often an event recurs: in `percent` of all cases, then at most `maxCount` times.
struct Recurrence {
  std::uint8_t percent = 0;
  std::uint16_t maxCount = 0;
};
inline constexpr Recurrence kOnce{0, 1};
inline constexpr Recurrence kSeldomAgain{12, 4};
inline constexpr Recurrence kOftenAgain{35, 40};
inline constexpr Recurrence kPilesUp{65, 900};

/// One kind of event: a row of the generator's tables.
struct EventKind {
  std::uint16_t eventClass;
  std::uint16_t code;
  std::uint8_t severity;
  std::uint8_t repairedPercent;  ///< of the entries, marked repaired meanwhile
  Recurrence recurrence;
  void (*fill)(Scene& scene);
  std::uint8_t selector = 0;                     ///< for `fill`
  std::span<const std::string_view> texts = {};  ///< for `fill`, one of them by chance

  /// No decoder names the events of these classes.
  constexpr bool HasDecoder() const { return eventClass != 12 && eventClass != 15; }
};

struct Step {
  const EventKind* kind;
  std::uint16_t minutes;  ///< typical delay after the step before
};

enum class Pace : std::uint8_t {
  kQuick,  ///< within hours, one entry right behind the other
  kSlow,   ///< over days or weeks, with other events in between
};

/// What a story asks of its cast.
enum class Setting : std::uint8_t {
  kAnywhere,
  kInServer,       ///< not in an enclosure beside it
  kOnMemoryBoard,  ///< not in the system memory, which has no cartridges
};

struct Story {
  std::uint16_t weight;
  Pace pace;
  std::span<const Step> steps;
  Setting setting = Setting::kAnywhere;
};
inline constexpr std::size_t kLongestStory = 9;

/// A log of so many entries has room for the whole plan.
inline constexpr std::uint64_t kEntriesForPlan = 100;
/// The stories that a year always has, in their order; together they show every event class.
std::span<const Story* const> YearPlan();
/// Gives `cast` what the story asks of it.
void Arrange(const Story& story, Random& random, Cast& cast);
/// A story, or a single event, by weight.
const Story& PickStory(Random& random);
const EventKind& PickEvent(Random& random);

}  // namespace qvl::sample

#endif  // QVL_TOOLS_SAMPLE_SCENARIOS_H_
