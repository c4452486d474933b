#include "entries/event_class.h"

#include <array>

namespace qvl {
namespace {

using enum StringId;

struct ClassRow {
  std::uint16_t eventClass;
  StringId name;
};

constexpr ClassRow kClasses[] = {
    {0,  kClassEmpty                    },
    {1,  kClassInternalTest             },
    {2,  kClassMachineEnvironment       },
    {3,  kClassMainMemory               },
    {4,  kClassCacheMemory              },
    {5,  kClassCpu                      },
    {6,  kClassHostBus                  },
    {7,  kClassEisaBus                  },
    {8,  kClassPciBus                   },
    {9,  kClassExpansionSlot            },
    {10, kClassPostMessages             },
    {11, kClassPowerSubsystem           },
    {12, kClassUps                      },
    {13, kClassAutomaticServerRecovery  },
    {14, kClassOperatingSystem          },
    {15, kClassDiagnostics              },
    {17, kClassNetworkAdapter           },
    {18, kClassScsiSubsystem            },
    {19, kClassDriveArraySubsystem      },
    {20, kClassUnrecoverableSystemError },
    {32, kClassSystemRevision           },
    {33, kClassMaintenance              },
    {34, kClassInfrastructureEnvironment},
    {37, kClassKtb                      },
};

using Names = std::array<std::string_view, kEventClassEnd>;

Names CollectNames(Language language) {
  Names names;
  for (const ClassRow& row : kClasses) names[row.eventClass] = GetString(row.name, language);
  return names;
}

}  // namespace

std::string_view EventClassName(std::uint16_t eventClass, Language language) {
  static const Names english = CollectNames(Language::kEnglish);
  static const Names japanese = CollectNames(Language::kJapanese);
  if (eventClass >= kEventClassEnd) return {};
  return (language == Language::kJapanese ? japanese : english)[eventClass];
}

}  // namespace qvl
