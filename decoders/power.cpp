#include <cstddef>
#include <cstdint>
#include <string_view>

#include "decoders/chassis.h"
#include "decoders/decoders.h"
#include "decoders/rows.h"
#include "entries/event_data.h"
#include "entries/field_formatters.h"
#include "entries/message.h"
#include "entries/text_sink.h"

namespace qvl {
namespace {

constexpr NameRow kFailureNames[] = {
    {0,   "General Failure"          },
    {1,   "BIST Failure"             },
    {2,   "Fan Failure"              },
    {5,   "EPROM Failure"            },
    {6,   "VREF Failure"             },
    {7,   "DAC Failure"              },
    {8,   "RAM Test Failed"          },
    {9,   "Voltage Channel Failure"  },
    {12,  "Give Up On Startup"       },
    {13,  "NVRAM Invalid"            },
    {14,  "Calibration Table Invalid"},
    {255, "No Error"                 },
};
static_assert(StrictlyAscending(kFailureNames));
constexpr Name kUnknownFailure = "Unknown Failure";

constexpr Name kAcReasonNames[] = {
    "Unknown", "Line Over Voltage", "Line Under Voltage", "Line Hit", "Brown Out", "AC Power Loss",
};

constexpr Name kRedundancyLocationNames[] = {
    "Enclosure", "Power Module", "Bus Bar", "Breaker", "Power Subsystem",
};

constexpr Name kAnyPowerModule = "A Power Module has Failed";
constexpr NameRow kPowerModules[] = {
    {1, "A CPU Power Module has Failed" },
    {2, "A PCI Power Module has Failed" },
    {3, "An I/O Power Module has Failed"},
};
static_assert(StrictlyAscending(kPowerModules));

// Failure, power supply. The failure stands in front of the chassis.
constexpr ChassisRow<2> kSupplyStatus = {
    1,
    5,
    "System Power Supply: %s (Power Supply %s)",
    "External Chassis Power Supply: %s (Chassis %s, Power Supply %s)",
    "External Storage System Power Supply: %s (%sSlot %s, Power Supply %s)",
    "Internal Storage System Power Supply: %s (%sSlot %s, Power Supply %s)",
    "Server Blade Enclosure Power Supply: %s (Power Supply %s, %s)",
    "Power Enclosure Power Supply: %s (Power Supply %s, %s)",
};

constexpr FixedMessage kClockBattery = "Real-Time Clock Battery Failing";
constexpr TextMessage<1> kChassisClockBattery = "Real-Time Clock Battery Failing (Chassis %s)";

// Module, socket; module, chassis, slot, socket.
constexpr TextMessage<2> kSystemBoardModuleFailed = "%s (System Board, Socket %s)";
constexpr TextMessage<4> kChassisModuleFailed = "%s (Chassis %s, Slot %s, Socket %s)";

// Power supply.
// One text a line, which the aligned layout would not keep.
// clang-format off
constexpr ChassisRow<1> kSupplyRows[] = {
    {4, 4,
     "System Power Supply Removed (Power Supply %s)",
     "External Chassis Power Supply Removed (Chassis %s, Power Supply %s)",
     "External Storage System Power Supply Removed (%sSlot %s, Power Supply %s)",
     "Internal Storage System Power Supply Removed (%sSlot %s, Power Supply %s)",
     "Server Blade Enclosure Power Supply Removed (Power Supply %s, %s)",
     "Power Enclosure Power Supply Removed (Power Supply %s, %s)"},
    {5, 4,
     "System Power Supply Inserted (Power Supply %s)",
     "External Chassis Power Supply Inserted (Chassis %s, Power Supply %s)",
     "External Storage System Power Supply Inserted (%sSlot %s, Power Supply %s)",
     "Internal Storage System Power Supply Inserted (%sSlot %s, Power Supply %s)",
     "Server Blade Enclosure Power Supply Inserted (Power Supply %s, %s)",
     "Power Enclosure Power Supply Inserted (Power Supply %s, %s)"},
};
// clang-format on
static_assert(StrictlyAscending(kSupplyRows));

// Power supply; an enclosure adds its reason or voltage.
constexpr ChassisRow<1, 3> kAcPowerProblem = {
    8,
    5,
    "System AC Power Problem (Power Supply %s)",
    "External Chassis AC Power Problem (Chassis %s, Power Supply %s)",
    "External Storage System AC Power Problem (%sSlot %s, Power Supply %s)",
    "Internal Storage System AC Power Problem (%sSlot %s, Power Supply %s)",
    "Server Blade Enclosure AC Power Problem (Power Supply %s, Reason: %s, %s)",
    "Power Enclosure AC Power Problem (Power Supply %s, Reason: %s, %s)",
};
constexpr ChassisRow<1, 3> kAcPowerOverload = {
    9,
    5,
    "System AC Power Overload (Power Supply %s)",
    "External Chassis AC Power Overload (Chassis %s, Power Supply %s)",
    "External Storage System AC Power Overload (%sSlot %s, Power Supply %s)",
    "Internal Storage System AC Power Overload (%sSlot %s, Power Supply %s)",
    "Server Blade Enclosure AC Power Overload (Power Supply %s, Voltage: %s, %s)",
    "Power Enclosure AC Power Overload (Power Supply %s, Voltage: %s, %s)",
};

// Power supply or power module; the enclosures are not identified. The extra "System" of codes 10
// and 11 is meant.
// One text a line, which the aligned layout would not keep.
// clang-format off
constexpr ChassisRow<1, 1> kUnidentifiedRows[] = {
    {10, 4,
     "System Power Supply Powered Up (Power Supply %s)",
     "External Chassis System Power Supply Powered Up (Chassis %s, Power Supply %s)",
     "External Storage System Power Supply Powered Up (%sSlot %s, Power Supply %s)",
     "Internal Storage System Power Supply Powered Up (%sSlot %s, Power Supply %s)",
     "Server Blade Enclosure System Power Supply Powered Up (Power Supply %s)",
     "Power Enclosure System Power Supply Powered Up (Power Supply %s)"},
    {11, 4,
     "System Power Supply Powered Down (Power Supply %s)",
     "External Chassis System Power Supply Powered Down (Chassis %s, Power Supply %s)",
     "External Storage System Power Supply Powered Down (%sSlot %s, Power Supply %s)",
     "Internal Storage System Power Supply Powered Down (%sSlot %s, Power Supply %s)",
     "Server Blade Enclosure System Power Supply Powered Down (Power Supply %s)",
     "Power Enclosure System Power Supply Powered Down (Power Supply %s)"},
    {12, 5,
     "System Power Module Failure (Power Module %s)",
     "External Chassis Power Module Failure (Chassis %s, Power Module %s)",
     "External Storage System Power Module Failure (%sSlot %s, Power Module %s)",
     "Internal Storage System Power Module Failure (%sSlot %s, Power Module %s)",
     "Server Blade Enclosure Power Module Failure (Power Module %s)",
     "Power Enclosure Power Module Failure (Power Module %s)"},
    {13, 4,
     "System Power Module Removed (Power Module %s)",
     "External Chassis Power Module Removed (Chassis %s, Power Module %s)",
     "External Storage System Power Module Removed (%sSlot %s, Power Module %s)",
     "Internal Storage System Power Module Removed (%sSlot %s, Power Module %s)",
     "Server Blade Enclosure Power Module Removed (Power Module %s)",
     "Power Enclosure Power Module Removed (Power Module %s)"},
    {14, 4,
     "System Power Module Inserted (Power Module %s)",
     "External Chassis Power Module Inserted (Chassis %s, Power Module %s)",
     "External Storage System Power Module Inserted (%sSlot %s, Power Module %s)",
     "Internal Storage System Power Module Inserted (%sSlot %s, Power Module %s)",
     "Server Blade Enclosure Power Module Inserted (Power Module %s)",
     "Power Enclosure Power Module Inserted (Power Module %s)"},
    {16, 5,
     "System Power Module Overload (Power Module %s)",
     "External Chassis Power Module Overload (Chassis %s, Power Module %s)",
     "External Storage System Power Module Overload (%sSlot %s, Power Module %s)",
     "Internal Storage System Power Module Overload (%sSlot %s, Power Module %s)",
     "Server Blade Enclosure Power Module Overload (Power Module %s)",
     "Power Enclosure Power Module Overload (Power Module %s)"},
};
// clang-format on
static_assert(StrictlyAscending(kUnidentifiedRows));

// An enclosure has a location, and its text one byte further on.
constexpr ChassisRow<0, 2> kSuppliesNotRedundant = {
    6,
    3,
    "System Power Supplies Not Redundant",
    "External Chassis Power Supplies Not Redundant (Chassis %s)",
    "External Storage System Power Supplies Not Redundant (%sSlot %s)",
    "Internal Storage System Power Supplies Not Redundant (%sSlot %s)",
    "Server Blade Enclosure Power Supplies Not Redundant (in %s, %s)",
    "Power Enclosure Power Supplies Not Redundant (in %s, %s)",
};
constexpr std::size_t kRedundancyEnclosureTextOffset = 4;

constexpr ChassisRow<0, 0> kModulesNotRedundant = {
    7,
    6,
    "System Power Modules Not Redundant",
    "External Chassis Power Modules Not Redundant (Chassis %s)",
    "External Storage System Power Modules Not Redundant (%sSlot %s)",
    "Internal Storage System Power Modules Not Redundant (%sSlot %s)",
    "Server Blade Enclosure Power Modules Not Redundant",
    "Power Enclosure Power Modules Not Redundant",
};
// Code 15 is code 7 with its text in another place.
constexpr std::size_t kCode15TextOffset = 3;

// Side, power supply, box, port, bay location.
constexpr Message<Text, Number, Number, Text, Text> kStorageEnclosureSupply =
    "%s Storage Enclosure Power Supply Failure (Power Supply %u, Box %u, Port %s, %s)";

constexpr FixedMessage kMismatchedSupply = "Mismatched Power Supply Installed";

constexpr Message<Text> kDetail = ", %s";

void AppendDetail(std::string_view detail, TextSink& out) {
  if (!detail.empty()) out.Format(kDetail, detail);
}

template <std::size_t N>
const Name& NameOf(const NameRow (&names)[N], std::uint8_t code, const Name& fallback) {
  const NameRow* const row = Find(names, code);
  return row != nullptr ? row->name : fallback;
}

void DescribeSupplyStatus(EventData data, TextSink& out) {
  FormatForChassis<1>(kSupplyStatus, kSupplyStatus.textOffset, data, out,
                      {NameOf(kFailureNames, data.Byte<4>(), kUnknownFailure),
                       FormatByteOrUnknown(data.Byte<3>())});
}

void DescribeClockBattery(EventData data, TextSink& out) {
  const std::uint8_t chassis = data.Byte<1>();
  if (chassis == 0) {
    out.Format(kClockBattery);
  } else {
    out.Format(kChassisClockBattery, FormatByteOrUnknown(chassis));
  }
}

void DescribeModuleFailed(EventData data, TextSink& out) {
  const Name& module = NameOf(kPowerModules, data.Byte<5>(), kAnyPowerModule);
  const Text socket = FormatByteOrUnknown(data.Byte<4>());
  switch (ChooseChassisForm(data)) {
    case ChassisForm::kSystem:
      return out.Format(kSystemBoardModuleFailed, module, socket);
    case ChassisForm::kExternalChassis:
    case ChassisForm::kExternalStorage:
    case ChassisForm::kInternalStorage:
      return out.Format(kChassisModuleFailed, module, FormatByteOrUnknown(data.Byte<1>()),
                        FormatByteOrUnknown(data.Byte<3>()), socket);
    default:
      return;
  }
}

// Codes whose messages have the number of a power supply or power module as their only field.
template <std::size_t E, std::size_t N>
void DescribeNumbered(const ChassisRow<1, E> (&rows)[N], std::uint16_t code, EventData data,
                      TextSink& out) {
  const ChassisRow<1, E>* const row = Find(rows, code);
  if (row == nullptr) return;
  FormatForChassis(*row, row->textOffset, data, out, {FormatByteOrUnknown(data.Byte<3>())});
}

// `enclosureField` is what an enclosure tells besides the power supply.
void DescribeAcPower(const ChassisRow<1, 3>& row, const Text& enclosureField, EventData data,
                     TextSink& out) {
  const Text supply = FormatByteOrUnknown(data.Byte<3>());
  FormatSystemOrStorage(row, row.textOffset, data, out, {supply});
  FormatEnclosure(row, row.textOffset, data, out, TextFields<2>{supply, enclosureField});
}

void DescribeAcPowerProblem(EventData data, TextSink& out) {
  DescribeAcPower(kAcPowerProblem, NameAt(kAcReasonNames, data.Byte<4>(), kUnknown), data, out);
}

void DescribeSuppliesNotRedundant(EventData data, TextSink& out) {
  FormatSystemOrStorage(kSuppliesNotRedundant, kSuppliesNotRedundant.textOffset, data, out, {});
  const Name& location = NameAt(kRedundancyLocationNames, data.Byte<3>(), kUnknown);
  FormatEnclosure(kSuppliesNotRedundant, kRedundancyEnclosureTextOffset, data, out,
                  TextFields<1>{location});
}

// An assumed layout: docs/formats/record.md. The numbers of a storage enclosure have no unknown
// value: 255 is written as a number.
void DescribeStorageEnclosureSupply(EventData data, TextSink& out) {
  Scratch port;
  Scratch bay;
  out.Format(kStorageEnclosureSupply, GetStorageEnclosureSide(data), data.Byte<3>(), data.Byte<6>(),
             FormatTwoChars(data.Byte<4>(), data.Byte<5>(), port),
             FormatBayLocation(data.TextAt(7), data, bay));
}

// Codes 17, 18 and 19 are 8, 2 and 1 with a detail text, which is written for an unknown chassis
// type too.
void DescribeWithDetail(std::uint16_t code, EventData data, TextSink& out) {
  if (code == 17) {
    DescribeAcPowerProblem(data, out);
    AppendDetail(data.TextAfter(data.TextAt(kAcPowerProblem.textOffset)), out);
  } else if (code == 18) {
    DescribeClockBattery(data, out);
    AppendDetail(data.TextAt(3), out);
  } else {
    DescribeSupplyStatus(data, out);
    AppendDetail(data.TextAfter(data.TextAt(kSupplyStatus.textOffset)), out);
  }
}

}  // namespace

void DescribePowerEvent(std::uint16_t code, EventData data, TextSink& out) {
  switch (code) {
    case 1:
      return DescribeSupplyStatus(data, out);
    case 2:
      return DescribeClockBattery(data, out);
    case 3:
      return DescribeModuleFailed(data, out);
    case 4:
    case 5:
      return DescribeNumbered(kSupplyRows, code, data, out);
    case 6:
      return DescribeSuppliesNotRedundant(data, out);
    case 7:
      return FormatForChassis(kModulesNotRedundant, kModulesNotRedundant.textOffset, data, out, {});
    case 8:
      return DescribeAcPowerProblem(data, out);
    case 9:
      return DescribeAcPower(kAcPowerOverload, FormatByteOrUnknown(data.Byte<4>()), data, out);
    case 15:
      return FormatForChassis(kModulesNotRedundant, kCode15TextOffset, data, out, {});
    case 17:
    case 18:
    case 19:
      return DescribeWithDetail(code, data, out);
    case 20:
      return DescribeStorageEnclosureSupply(data, out);
    case 21:
      return out.Format(kMismatchedSupply);
    default:
      return DescribeNumbered(kUnidentifiedRows, code, data, out);
  }
}

void ListPowerTables(TableEntries& entries) {
  entries.Add(kFailureNames);
  entries.Add(kUnknownFailure);
  entries.Add(kAcReasonNames);
  entries.Add(kRedundancyLocationNames);
  entries.Add(kAnyPowerModule);
  entries.Add(kPowerModules);
  AddChassisRow(kSupplyStatus, entries);
  entries.Add(kClockBattery);
  entries.Add(kChassisClockBattery);
  entries.Add(kSystemBoardModuleFailed);
  entries.Add(kChassisModuleFailed);
  AddChassisRows(kSupplyRows, entries);
  AddChassisRow(kAcPowerProblem, entries);
  AddChassisRow(kAcPowerOverload, entries);
  AddChassisRows(kUnidentifiedRows, entries);
  AddChassisRow(kSuppliesNotRedundant, entries);
  AddChassisRow(kModulesNotRedundant, entries);
  entries.Add(kStorageEnclosureSupply);
  entries.Add(kMismatchedSupply);
  entries.Add(kDetail);
}

}  // namespace qvl
