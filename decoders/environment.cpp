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

// Zone, location, temperature.
constexpr ChassisRow<3> kOverheating = {
    1,
    6,
    "System Overheating (Zone %s, Location %s, Temperature %s)",
    "External Chassis Overheating (Chassis %s, Zone %s, Location %s, Temperature %s)",
    "External Storage System Overheating (%sSlot %s, Zone %s, Location %s, Temperature %s)",
    "Internal Storage System Overheating (%sSlot %s, Zone %s, Location %s, Temperature %s)",
    "Server Blade Enclosure Overheating (Zone %s, Location %s, Temperature %s, %s)",
    "Power Enclosure Overheating (Zone %s, Location %s, Temperature %s, %s)",
};

// Zone, location, temperature, suffix.
constexpr ChassisRow<4> kThresholdExceeded = {
    14,
    6,
    "Critical Temperature Threshold Exceeded (Zone %s, Location %s, Temperature %s%s)",
    "External Chassis Overheating (Chassis %s, Zone %s, Location %s, Temperature %s%s)",
    "External Storage System Overheating (%sSlot %s, Zone %s, Location %s, Temperature %s%s)",
    "Internal Storage System Overheating (%sSlot %s, Zone %s, Location %s, Temperature %s%s)",
    "Server Blade Enclosure Overheating (Zone %s, Location %s, Temperature %s, %s%s)",
    "Power Enclosure Overheating (Zone %s, Location %s, Temperature %s, %s%s)",
};

constexpr std::size_t kFanTextOffset = 5;

// Fan, location.
// One text a line, which the aligned layout would not keep.
// clang-format off
constexpr ChassisRow<2> kFanRows[] = {
    {2, kFanTextOffset,
     "Fan Failure (Fan %s, Location %s)",
     "External Chassis Fan Failure (Chassis %s, Fan %s, Location %s)",
     "External Storage System Fan Failure (%sSlot %s, Fan %s, Location %s)",
     "Internal Storage System Fan Failure (%sSlot %s, Fan %s, Location %s)",
     "Server Blade Enclosure Fan Failure (Fan %s, Location %s, %s)",
     "Power Enclosure Fan Failure (Fan %s, Location %s, %s)"},
    {4, kFanTextOffset,
     "System Fan Removed (Fan %s, Location %s)",
     "External Chassis Fan Removed (Chassis %s, Fan %s, Location %s)",
     "External Storage System Fan Removed (%sSlot %s, Fan %s, Location %s)",
     "Internal Storage System Fan Removed (%sSlot %s, Fan %s, Location %s)",
     "Server Blade Enclosure Fan Removed (Fan %s, Location %s, %s)",
     "Power Enclosure Fan Removed (Fan %s, Location %s, %s)"},
    {5, kFanTextOffset,
     "System Fan Inserted (Fan %s, Location %s)",
     "External Chassis Fan Inserted (Chassis %s, Fan %s, Location %s)",
     "External Storage System Fan Inserted (%sSlot %s, Fan %s, Location %s)",
     "Internal Storage System Fan Inserted (%sSlot %s, Fan %s, Location %s)",
     "Server Blade Enclosure Fan Inserted (Fan %s, Location %s, %s)",
     "Power Enclosure Fan Inserted (Fan %s, Location %s, %s)"},
};
// clang-format on
static_assert(StrictlyAscending(kFanRows));

// The enclosures are not identified.
constexpr ChassisRow<0, 0> kSidePanel = {
    3,
    5,
    "Side panel removed or improperly installed",
    "External Chassis side panel removed or improperly installed (Chassis %s)",
    "External Storage System side panel removed or improperly installed (%sSlot %s)",
    "Internal Storage System side panel removed or improperly installed (%sSlot %s)",
    "Server Blade Enclosure side panel removed or improperly installed",
    "Power Enclosure side panel removed or improperly installed",
};

// Location.
constexpr ChassisRow<1> kFansNotRedundant = {
    6,
    4,
    "System Fans Not Redundant (Location %s)",
    "External Chassis Fans Not Redundant (Chassis %s, Location %s)",
    "External Storage System Fans Not Redundant (%sSlot %s, Location %s)",
    "Internal Storage System Fans Not Redundant (%sSlot %s, Location %s)",
    "Server Blade Enclosure Fans Not Redundant (Location %s, %s)",
    "Power Enclosure Fans Not Redundant (Location %s, %s)",
};

constexpr TextMessage<1> kSharedFansNotRedundant = "System Fans Not Redundant (Shared Location %s)";

// Side, fan or zone, location, box, port, bay location.
constexpr Row<Message<Text, Number, Text, Number, Text, Text>> kStorageEnclosureRows[] = {
    {11, "%s Storage Enclosure Fan Failure (Fan %u, Location %s, Box %u, Port %s, %s)" },
    {12, "%s Storage Enclosure Overheating (Zone %u, Location %s, Box %u, Port %s, %s)"},
};
static_assert(StrictlyAscending(kStorageEnclosureRows));

// Side, fan and fan module as far as they are given, location, box, port, bay location.
constexpr Message<Text, Number, Number, Text, Number, Text, Text> kStorageEnclosureFanAndModule =
    "%s Storage Enclosure Fan Failure (Fan %u, Fan Module %u, Location %s, Box %u, Port %s, %s)";
constexpr Message<Text, Number, Text, Number, Text, Text> kStorageEnclosureFanModule =
    "%s Storage Enclosure Fan Failure (Fan Module %u, Location %s, Box %u, Port %s, %s)";
constexpr Message<Text, Number, Text, Number, Text, Text> kStorageEnclosureFan =
    "%s Storage Enclosure Fan Failure (Fan %u, Location %s, Box %u, Port %s, %s)";

constexpr Message<Text> kSupplement = ", %s";

// The supplementary text stands right behind the chassis text.
void AppendSupplement(std::size_t chassisTextOffset, EventData data, TextSink& out) {
  const std::string_view supplement = data.TextAfter(data.TextAt(chassisTextOffset));
  if (!supplement.empty()) out.Format(kSupplement, supplement);
}

void DescribeOverheating(EventData data, TextSink& out) {
  Scratch temperature;
  FormatForChassis(kOverheating, kOverheating.textOffset, data, out,
                   {FormatByteOrUnknown(data.Byte<3>()), GetLocationName(data.Byte<4>()),
                    FormatTemperature(data.Byte<5>(), temperature)});
}

void DescribeThresholdExceeded(EventData data, TextSink& out) {
  Scratch temperature;
  Scratch supplement;
  TextSink suffix(supplement);
  AppendSupplement(kThresholdExceeded.textOffset, data, suffix);
  FormatForChassis<0, 1>(kThresholdExceeded, kThresholdExceeded.textOffset, data, out,
                         {FormatByteOrUnknown(data.Byte<3>()), GetLocationName(data.Byte<4>()),
                          FormatTemperature(data.Byte<5>(), temperature), suffix.view()});
}

void DescribeFan(std::uint16_t code, EventData data, TextSink& out) {
  const ChassisRow<2>* const row = Find(kFanRows, code);
  if (row == nullptr) return;
  FormatForChassis(*row, row->textOffset, data, out,
                   {FormatByteOrUnknown(data.Byte<3>()), GetLocationName(data.Byte<4>())});
}

void DescribeSidePanel(EventData data, TextSink& out) {
  FormatForChassis(kSidePanel, kSidePanel.textOffset, data, out, {});
}

// The numbers of a storage enclosure have no unknown value: 255 is written as a number.
void DescribeStorageEnclosure(std::uint16_t code, EventData data, TextSink& out) {
  const auto* const row = Find(kStorageEnclosureRows, code);
  if (row == nullptr) return;
  Scratch port;
  Scratch bay;
  out.Format(row->message, GetStorageEnclosureSide(data), data.Byte<3>(),
             GetLocationName(data.Byte<4>()), data.Byte<7>(),
             FormatTwoChars(data.Byte<5>(), data.Byte<6>(), port),
             FormatBayLocation(data.TextAt(8), data, bay));
}

// A failed fan, fan module, or fan within a module; without either it is fan 0.
void DescribeStorageEnclosureFan(EventData data, TextSink& out) {
  const std::uint8_t fan = data.Byte<3>();
  const std::uint8_t module = data.Byte<4>();
  const Name& side = GetStorageEnclosureSide(data);
  const Name& location = GetLocationName(data.Byte<5>());
  const std::uint8_t box = data.Byte<8>();
  Scratch portScratch;
  Scratch bayScratch;
  const Text port = FormatTwoChars(data.Byte<6>(), data.Byte<7>(), portScratch);
  const Text bay = FormatBayLocation(data.TextAt(9), data, bayScratch);
  if (module == 0) {
    out.Format(kStorageEnclosureFan, side, fan, location, box, port, bay);
  } else if (fan == 0) {
    out.Format(kStorageEnclosureFanModule, side, module, location, box, port, bay);
  } else {
    out.Format(kStorageEnclosureFanAndModule, side, fan, module, location, box, port, bay);
  }
}

}  // namespace

// Codes 8, 9 and 10 are 2, 3 and 1 with a supplementary text, which is written for an unknown
// chassis type too.
void DescribeEnvironmentEvent(std::uint16_t code, EventData data, TextSink& out) {
  switch (code) {
    case 1:
      return DescribeOverheating(data, out);
    case 2:
    case 4:
    case 5:
      return DescribeFan(code, data, out);
    case 3:
      return DescribeSidePanel(data, out);
    case 6:
      return FormatForChassis(kFansNotRedundant, kFansNotRedundant.textOffset, data, out,
                              {GetLocationName(data.Byte<3>())});
    case 7:
      return out.Format(kSharedFansNotRedundant, GetLocationName(data.Byte<4>()));
    case 8:
      DescribeFan(2, data, out);
      return AppendSupplement(kFanTextOffset, data, out);
    case 9:
      DescribeSidePanel(data, out);
      return AppendSupplement(kSidePanel.textOffset, data, out);
    case 10:
      DescribeOverheating(data, out);
      return AppendSupplement(kOverheating.textOffset, data, out);
    case 11:
    case 12:
      return DescribeStorageEnclosure(code, data, out);
    case 13:
      return DescribeStorageEnclosureFan(data, out);
    case 14:
      return DescribeThresholdExceeded(data, out);
    default:
      return;
  }
}

void ListEnvironmentTables(TableEntries& entries) {
  AddChassisRow(kOverheating, entries);
  AddChassisRow(kThresholdExceeded, entries);
  AddChassisRows(kFanRows, entries);
  AddChassisRow(kSidePanel, entries);
  AddChassisRow(kFansNotRedundant, entries);
  entries.Add(kSharedFansNotRedundant);
  entries.Add(kStorageEnclosureRows);
  entries.Add(kStorageEnclosureFanAndModule);
  entries.Add(kStorageEnclosureFanModule);
  entries.Add(kStorageEnclosureFan);
  entries.Add(kSupplement);
}

}  // namespace qvl
