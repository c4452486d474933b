#include <cstddef>
#include <cstdint>

#include "decoders/decoders.h"
#include "decoders/rows.h"
#include "entries/event_data.h"
#include "entries/field_formatters.h"
#include "entries/message.h"
#include "entries/text_sink.h"

namespace qvl {
namespace {

// What data byte 4 says about a component in an enclosure.
constexpr std::uint8_t kNetworkComponent = 13;
constexpr std::uint8_t kServerBlade = 14;

constexpr Name kServerBladeEnclosure = "Server Blade Enclosure";
constexpr Name kPowerEnclosure = "Power Enclosure";
constexpr Name kOtherEnclosure = "";

constexpr Name kFuseA = "A";
constexpr Name kFuseB = "B";

constexpr Name kPowerBusA = "Power Bus A";
constexpr Name kPowerBusB = "Power Bus B";

constexpr Name kPowerOnDenials[] = {
    "Lost Redundant Power",
    "Not Enough Power",
    "Denied By Server Enclosure Management Board",
    "Denied By Power Enclosure Management Board",
};

// A side beyond the table reads as the first one.
constexpr Name kSides[] = {"Unknown Location", "Left Side", "Right Side"};

constexpr Name kMisconfigurations[] = {
    "Unknown",
    "Load Balancing Wire Missing",
    "Too Many Power Enclosures",
    "Improperly Populated Power Bank",
    "DC-to-DC Configuration Invalid",
};

constexpr Name kPowerFeeds[] = {"Unknown Location", "Power Bus A", "Power Bus B"};

constexpr Name kSwitchErrors[] = {
    "Unknown",
    "Powering up",
    "Micro-controller fault",
    "Power fault",
    "Over-current fault",
    "Fan 1 failed or removed",
    "Temperature at caution level",
    "Temperature at critical level",
    "RJ45 module missing",
    "Fan 2 failed or removed",
};

constexpr Name kPowerRequestDenials[] = {
    "Unknown",
    "Not Enough Power",
    "Electronic Keying or I/O Configuration Error",
};

constexpr Name kFaultLocations[] = {
    "Chassis Slot 1",
    "Chassis Slot 2",
    "Chassis Slot 3",
    "Chassis Slot 4",
    "Chassis Slot 5",
    "Chassis Slot 6",
    "Chassis Slot 7",
    "Chassis Slot 8",
    "Server Blade Management Module",
    "Signal Backplane",
    "Power Backplane A",
    "Power Backplane B",
    "Interconnect Blade A",
    "Interconnect Blade B",
    "RJ45 10 East",
    "RJ45 10 West",
    "RJ45 6 East",
    "RJ45 6 West",
    "Unknown",
};

constexpr Name kFaultDevices[] = {
    "Vexo Management Controller",
    "FRU EEPROM",
    "Memory",
    "ICMB UART",
    "ROM",
    "LM75",
    "I2C Bus 0",
    "I2C Bus 1",
    "I2C Bus 2",
    "Software",
    "I2C Bus",
    "9544 Fuse Mux",
    "9555 Quick Switch",
    "9555 Sense",
    "9555 Enable",
    "9555 IO Expander",
    "9555 Mux",
};

constexpr Name kFaultKinds[] = {
    "I2C Error", "Interrupt Error", "Invalid FRU Data", "POST Failure",      "Backup ROM Booted",
    "Bus Error", "Stack Overflow",  "I2C Bus Timeout",  "Unknown I2C Error",
};

// Enclosure and its identity, which is at data byte 3.
constexpr Row<TextMessage<2>> kEnclosureRows[] = {
    {8,  "%s AC Facility Input Power Exceeded (%s)"},
    {12, "%s Unknown Power Consumption (%s)"       },
    {14, "%s Status Change (%s)"                   },
};
static_assert(StrictlyAscending(kEnclosureRows));

// Identity alone.
constexpr Row<TextMessage<1>> kChassisRows[] = {
    {9,  "Loss Of Chassis Connectivity (%s)"},
    {10, "New Chassis Connected (%s)"       },
};
static_assert(StrictlyAscending(kChassisRows));

// Enclosure, identity, and a slot or bus number.
constexpr Row<TextMessage<3>> kBladeRows[] = {
    {2, "%s Blade Manual Power On (%s, Slot %s)"},
    {4, "%s Blade I2C Bus Fault (%s, Bus %s)"   },
};
static_assert(StrictlyAscending(kBladeRows));

// Enclosure, number, side, identity: the side stands behind the word Blower.
constexpr Row<TextMessage<4>> kBlowerRows[] = {
    {15, "%s Blower Fault (%s, Blower %s, %s)"  },
    {16, "%s Blower Removed (%s, Blower %s, %s)"},
};
static_assert(StrictlyAscending(kBlowerRows));

constexpr TextMessage<4> kInadequatePower = "%s Inadequate Power To Power On: %s (%s, Slot %s)";
constexpr TextMessage<4> kPowerRequestDenied = "%s Power Request Denied: %s (%s, Slot %s)";

constexpr TextMessage<4> kNetworkComponentFuse =
    "%s Network Component Fuse or Breaker Tripped (%s, %s, Fuse %s)";
constexpr TextMessage<4> kBladeFuse = "%s Blade Fuse or Breaker Tripped (%s, Slot %s, Fuse %s)";

constexpr TextMessage<3> kBladeInserted = "%s Blade Inserted (%s, Slot %s)";
constexpr TextMessage<3> kBladeRemoved = "%s Blade Removed (%s, Slot %s)";

constexpr TextMessage<3> kPowerNotBalanced = "%s Power Not Balanced (%s, %s)";
constexpr Message<Text, Text, Text, Number> kDcPowerOutOfTolerance =
    "%s DC Power Out Of Tolerance (%s, %s, %d mV)";

// By data byte 3.
constexpr Row<TextMessage<2>> kSettingRows[] = {
    {1, "%s Rack Name Changed (%s)"     },
    {2, "%s Name Changed (%s)"          },
    {3, "%s Service Change (%s)"        },
    {4, "%s Rack Name Conflict (%s)"    },
    {5, "%s Rack Unique ID Changed (%s)"},
    {7, "%s LAN Settings Changed (%s)"  },
    {8, "%s UID LED State Changed (%s)" },
};
static_assert(StrictlyAscending(kSettingRows));

constexpr Message<Text, Text, Number> kOtherSetting =
    "%s Rack Infrastructure Changed (%s, Type 0x%02X)";

constexpr TextMessage<3> kMisconfigured = "%s Power Subsystem Misconfigured: %s (%s)";
constexpr TextMessage<4> kMisconfiguredSide = "%s Power Subsystem Misconfigured: %s (%s, %s)";

constexpr TextMessage<4> kSwitchError = "%s Ethernet Switch Error - %s (%s, %s)";
constexpr TextMessage<3> kPowerFeedMissing = "%s Power Feed Missing (%s, %s)";

// Enclosure, side, identity.
constexpr Row<TextMessage<3>> kNetworkComponentRows[] = {
    {19, "%s Network Component Inserted (%s, %s)"},
    {20, "%s Network Component Removed (%s, %s)" },
};
static_assert(StrictlyAscending(kNetworkComponentRows));

// Enclosure, slot, identity.
constexpr Row<TextMessage<3>> kServerBladeRows[] = {
    {19, "%s Server Blade Inserted (Slot %s, %s)"},
    {20, "%s Server Blade Removed (Slot %s, %s)" },
};
static_assert(StrictlyAscending(kServerBladeRows));

constexpr TextMessage<1> kInvalidTopology = "%s Invalid Topology - Check Cabling";
constexpr TextMessage<3> kInfrastructureFault = "Infrastructure Fault, %s at %s, %s";
constexpr Message<Text, Number, Number, Number, Number> kFirmwareRequired =
    "Chassis %s requires minimum firmware revision %02x.%02x. It is currently %02x.%02x.";

const Name& EnclosureWords(EventData data) {
  switch (data.Byte<0>()) {
    case 4:
      return kServerBladeEnclosure;
    case 5:
      return kPowerEnclosure;
    default:
      return kOtherEnclosure;
  }
}

Text FormatIdentity(EventData data, std::size_t serialOffset, Scratch& scratch) {
  return FormatEnclosureId(data.TextAt(serialOffset), data, scratch);
}

Text FormatByte3(EventData data) {
  return FormatByteOrUnknown(data.Byte<3>());
}

const Name& SideName(std::uint8_t side) {
  return NameAt(kSides, side, kSides[0]);
}

void DescribeEnclosure(const TextMessage<2>& message, EventData data, TextSink& out) {
  Scratch id;
  out.Format(message, EnclosureWords(data), FormatIdentity(data, 3, id));
}

void DescribeChassis(const TextMessage<1>& message, EventData data, TextSink& out) {
  Scratch id;
  out.Format(message, FormatIdentity(data, 5, id));
}

void DescribeBlade(const TextMessage<3>& message, std::size_t serialOffset, EventData data,
                   TextSink& out) {
  Scratch id;
  out.Format(message, EnclosureWords(data), FormatIdentity(data, serialOffset, id),
             FormatByte3(data));
}

void DescribeBlower(const TextMessage<4>& message, EventData data, TextSink& out) {
  Scratch id;
  out.Format(message, EnclosureWords(data), FormatByte3(data), SideName(data.Byte<4>()),
             FormatIdentity(data, 5, id));
}

void DescribeDenial(const TextMessage<4>& message, const Name& reason, EventData data,
                    TextSink& out) {
  Scratch id;
  out.Format(message, EnclosureWords(data), reason, FormatIdentity(data, 5, id), FormatByte3(data));
}

// Data byte 3 holds the slot or side in its low half and the fuse in bit 4.
void DescribeFuse(EventData data, TextSink& out) {
  const auto position = static_cast<std::uint8_t>(data.Byte<3>() & 0x0FU);
  const Name& fuse = (data.Byte<3>() & 0x10U) != 0 ? kFuseB : kFuseA;
  Scratch id;
  if (data.Byte<4>() == kNetworkComponent) {
    out.Format(kNetworkComponentFuse, EnclosureWords(data), FormatIdentity(data, 5, id),
               SideName(position), fuse);
  } else if (data.Byte<4>() == kServerBlade) {
    out.Format(kBladeFuse, EnclosureWords(data), FormatIdentity(data, 5, id),
               FormatByteOrUnknown(position), fuse);
  }
}

// The two bus events number the buses differently: here bus A is 1.
void DescribePowerNotBalanced(EventData data, TextSink& out) {
  Scratch id;
  out.Format(kPowerNotBalanced, EnclosureWords(data), FormatIdentity(data, 6, id),
             data.Byte<3>() == 1 ? kPowerBusA : kPowerBusB);
}

// And here bus A is 0.
void DescribeDcPower(EventData data, TextSink& out) {
  Scratch id;
  out.Format(kDcPowerOutOfTolerance, EnclosureWords(data), FormatIdentity(data, 6, id),
             data.Byte<3>() == 0 ? kPowerBusA : kPowerBusB, data.Le16<4>());
}

void DescribeSetting(EventData data, TextSink& out) {
  Scratch id;
  const auto* const row = Find(kSettingRows, data.Byte<3>());
  if (row == nullptr) {
    out.Format(kOtherSetting, EnclosureWords(data), FormatIdentity(data, 4, id), data.Byte<3>());
  } else {
    out.Format(row->message, EnclosureWords(data), FormatIdentity(data, 4, id));
  }
}

void DescribeMisconfiguration(EventData data, TextSink& out) {
  const Name& reason = NameAt(kMisconfigurations, data.Byte<3>(), kUnknown);
  Scratch id;
  if (data.Byte<4>() == 0) {
    out.Format(kMisconfigured, EnclosureWords(data), reason, FormatIdentity(data, 7, id));
  } else {
    out.Format(kMisconfiguredSide, EnclosureWords(data), reason, SideName(data.Byte<4>()),
               FormatIdentity(data, 7, id));
  }
}

void DescribeSwitchError(EventData data, TextSink& out) {
  Scratch id;
  out.Format(kSwitchError, EnclosureWords(data), NameAt(kSwitchErrors, data.Byte<3>(), kUnknown),
             SideName(data.Byte<4>()), FormatIdentity(data, 5, id));
}

void DescribePowerFeed(EventData data, TextSink& out) {
  Scratch id;
  out.Format(kPowerFeedMissing, EnclosureWords(data), NameAt(kPowerFeeds, data.Byte<3>(), kUnknown),
             FormatIdentity(data, 4, id));
}

void DescribeComponentChange(std::uint16_t code, EventData data, TextSink& out) {
  Scratch id;
  if (data.Byte<4>() == kNetworkComponent) {
    if (const auto* const row = Find(kNetworkComponentRows, code)) {
      out.Format(row->message, EnclosureWords(data), SideName(data.Byte<3>()),
                 FormatIdentity(data, 5, id));
    }
  } else if (data.Byte<4>() == kServerBlade) {
    if (const auto* const row = Find(kServerBladeRows, code)) {
      out.Format(row->message, EnclosureWords(data), FormatByte3(data),
                 FormatIdentity(data, 5, id));
    }
  }
}

void DescribeFault(EventData data, TextSink& out) {
  out.Format(kInfrastructureFault, NameAt(kFaultKinds, data.Byte<5>(), kUnknown),
             NameAt(kFaultLocations, data.Byte<3>(), kUnknown),
             NameAt(kFaultDevices, data.Byte<4>(), kUnknown));
}

void DescribeFirmware(EventData data, TextSink& out) {
  Scratch id;
  out.Format(kFirmwareRequired, FormatIdentity(data, 9, id), data.Byte<5>(), data.Byte<6>(),
             data.Byte<3>(), data.Byte<4>());
}

// The codes that share no message shape with another one.
void DescribeUnshared(std::uint16_t code, EventData data, TextSink& out) {
  switch (code) {
    case 1:
      return DescribeDenial(kInadequatePower, NameAt(kPowerOnDenials, data.Byte<4>(), kUnknown),
                            data, out);
    case 3:
      return DescribeFuse(data, out);
    case 5:
      return DescribeBlade(data.Byte<4>() != 0 ? kBladeInserted : kBladeRemoved, 5, data, out);
    case 6:
      return DescribePowerNotBalanced(data, out);
    case 7:
      return DescribeDcPower(data, out);
    case 11:
      return DescribeSetting(data, out);
    case 13:
      return DescribeMisconfiguration(data, out);
    case 17:
      return DescribeSwitchError(data, out);
    case 18:
      return DescribePowerFeed(data, out);
    case 21:
      return out.Format(kInvalidTopology, EnclosureWords(data));
    case 24:
      return DescribeFault(data, out);
    case 25:
      return DescribeFirmware(data, out);
    case 26:
      return DescribeDenial(kPowerRequestDenied,
                            NameAt(kPowerRequestDenials, data.Byte<4>(), kUnknown), data, out);
    default:
      return DescribeComponentChange(code, data, out);
  }
}

}  // namespace

void DescribeInfrastructureEvent(std::uint16_t code, EventData data, TextSink& out) {
  if (const auto* const row = Find(kEnclosureRows, code)) {
    DescribeEnclosure(row->message, data, out);
  } else if (const auto* const chassisRow = Find(kChassisRows, code)) {
    DescribeChassis(chassisRow->message, data, out);
  } else if (const auto* const bladeRow = Find(kBladeRows, code)) {
    DescribeBlade(bladeRow->message, 4, data, out);
  } else if (const auto* const blowerRow = Find(kBlowerRows, code)) {
    DescribeBlower(blowerRow->message, data, out);
  } else {
    DescribeUnshared(code, data, out);
  }
}

void ListInfrastructureTables(TableEntries& entries) {
  entries.Add(kServerBladeEnclosure);
  entries.Add(kPowerEnclosure);
  entries.Add(kOtherEnclosure);
  entries.Add(kFuseA);
  entries.Add(kFuseB);
  entries.Add(kPowerBusA);
  entries.Add(kPowerBusB);
  entries.Add(kPowerOnDenials);
  entries.Add(kSides);
  entries.Add(kMisconfigurations);
  entries.Add(kPowerFeeds);
  entries.Add(kSwitchErrors);
  entries.Add(kPowerRequestDenials);
  entries.Add(kFaultLocations);
  entries.Add(kFaultDevices);
  entries.Add(kFaultKinds);
  entries.Add(kEnclosureRows);
  entries.Add(kChassisRows);
  entries.Add(kBladeRows);
  entries.Add(kBlowerRows);
  entries.Add(kInadequatePower);
  entries.Add(kPowerRequestDenied);
  entries.Add(kNetworkComponentFuse);
  entries.Add(kBladeFuse);
  entries.Add(kBladeInserted);
  entries.Add(kBladeRemoved);
  entries.Add(kPowerNotBalanced);
  entries.Add(kDcPowerOutOfTolerance);
  entries.Add(kSettingRows);
  entries.Add(kOtherSetting);
  entries.Add(kMisconfigured);
  entries.Add(kMisconfiguredSide);
  entries.Add(kSwitchError);
  entries.Add(kPowerFeedMissing);
  entries.Add(kNetworkComponentRows);
  entries.Add(kServerBladeRows);
  entries.Add(kInvalidTopology);
  entries.Add(kInfrastructureFault);
  entries.Add(kFirmwareRequired);
}

}  // namespace qvl
