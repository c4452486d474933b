#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string_view>

#include "decoders/decoders.h"
#include "decoders/rows.h"
#include "entries/event_data.h"
#include "entries/field_formatters.h"
#include "entries/message.h"
#include "entries/text_sink.h"

namespace qvl {
namespace {

// Automatic server recovery.

constexpr Row<FixedMessage> kAsrRows[] = {
    {1, "ASR Detected by System ROM"            },
    {3, "ASR Reset Limit Detected by System ROM"},
};
static_assert(StrictlyAscending(kAsrRows));

constexpr TextMessage<1> kAsrLockup = "ASR Lockup Detected: %s";

// Operating system.

constexpr Row<FixedMessage> kNmiSwitchRows[] = {
    {4, "User Initiated NMI Switch"         },
    {6, "User Remotely Initiated NMI Switch"},
};
static_assert(StrictlyAscending(kNmiSwitchRows));

constexpr TextMessage<1> kOsFailure = "Operating System failure (%s)";
constexpr TextMessage<2> kFatalException = "Fatal Exception (Number %s, Cause %s)";

// By data byte 0. 135 has no text of its own, although the abort texts around it suggest one.
constexpr Row<FixedMessage> kShutdownRows[] = {
    {1,   "Automatic Operating System Shutdown Initiated Due to Fan Failure"                   },
    {2,   "Automatic Operating System Shutdown Initiated Due to Overheat Condition"            },
    {3,   "Automatic Operating System Shutdown Initiated Due to VRM Failure"                   },
    {4,   "Automatic Operating System Shutdown Initiated Due to Power Supply Failure"          },
    {129, "Automatic Operating System Shutdown Aborted"                                        },
    {130, "Automatic Operating System Shutdown Due to Fan Failure Aborted"                     },
    {131, "Automatic Operating System Shutdown Due to Overheat Aborted"                        },
    {132, "Automatic Operating System Shutdown Due to VRM Failure Aborted"                     },
    {133, "Automatic Operating System Shutdown Initiated by a Soft Power Down"                 },
    {134, "Automatic Operating System Shutdown Initiated by Software Automatic Server Recovery"},
    {136, "Automatic Operating System Shutdown Due to Power Supply Failure Aborted"            },
};
static_assert(StrictlyAscending(kShutdownRows));

constexpr FixedMessage kPlainShutdown = "Automatic Operating System Shutdown";

// By the component kind in data byte 4.
constexpr Row<TextMessage<1>> kPowerSoftwareRows[] = {
    {13,
     "Server Blade Enclosure Network Component Shutdown Via Power Management Software (Slot %s)"},
    {14, "Server Blade Enclosure Blade Shutdown Via Power Management Software (Slot %s)"        },
};
static_assert(StrictlyAscending(kPowerSoftwareRows));

// Network adapter.

constexpr Row<TextMessage<2>> kNetworkRows[] = {
    {1, "Network Adapter Fault (Slot %s, Port %s)"               },
    {2, "Network Adapter Link Down (Slot %s, Port %s)"           },
    {3, "Network Adapter Transmit Timeout (Slot %s, Port %s)"    },
    {4, "Network Adapters No Longer Redundant (Slot %s, Port %s)"},
    {5, "Network Adapters Redundancy Reduced (Slot %s, Port %s)" },
    {6, "Network Adapter Link Down (Slot %s, Port %s)"           },
    {7, "Network Adapters Redundancy Reduced (Slot %s, Port %s)" },
};
static_assert(StrictlyAscending(kNetworkRows));

constexpr Row<TextMessage<3>> kNetworkChassisRows[] = {
    {1, "Network Adapter Fault (Chassis %s, Slot %s, Port %s)"               },
    {2, "Network Adapter Link Down (Chassis %s, Slot %s, Port %s)"           },
    {3, "Network Adapter Transmit Timeout (Chassis %s, Slot %s, Port %s)"    },
    {4, "Network Adapters No Longer Redundant (Chassis %s, Slot %s, Port %s)"},
    {5, "Network Adapters Redundancy Reduced (Chassis %s, Slot %s, Port %s)" },
    {6, "Network Adapter Link Down (Chassis %s, Slot %s, Port %s)"           },
    {7, "Network Adapters Redundancy Reduced (Chassis %s, Slot %s, Port %s)" },
};
static_assert(StrictlyAscending(kNetworkChassisRows));
static_assert(std::size(kNetworkRows) == std::size(kNetworkChassisRows));

constexpr std::uint16_t kFirstSupplementedNetworkCode = 6;
constexpr TextMessage<1> kSupplement = ", %s";

// SCSI.

constexpr TextMessage<1> kScsiController = "SCSI Controller Failure (Slot %s)";
constexpr TextMessage<2> kScsiChassisController = "SCSI Controller Failure (Chassis %s, Slot %s)";
constexpr TextMessage<4> kScsiDevice = "SCSI Device Failure (%sSlot %s, Bus %s, Bay %s)";
constexpr FixedMessage kScsiRedundancy = "SCSI Controllers No Longer Redundant";
constexpr TextMessage<1> kScsiChassisRedundancy =
    "SCSI Controllers No Longer Redundant (Chassis %s)";

// Drive array.

constexpr TextMessage<1> kArrayController = "Drive Array Controller Failure (Slot %s)";
constexpr TextMessage<2> kArrayChassisController =
    "Drive Array Controller Failure (Chassis %s, Slot %s)";
constexpr TextMessage<4> kArrayDevice = "Drive Array Device Failure (%sSlot %s, Bus %s, Bay %s)";
constexpr TextMessage<2> kArrayBattery =
    "Drive Array Accelerator Battery Failure (Bus %s, Slot %s)";
constexpr TextMessage<3> kArrayChassisBattery =
    "Drive Array Accelerator Battery Failure (Chassis %s, Bus %s, Slot %s)";
constexpr FixedMessage kArrayRedundancy = "Drive Array Controllers No Longer Redundant";
constexpr TextMessage<1> kArrayChassisRedundancy =
    "Drive Array Controllers No Longer Redundant (Chassis %s)";

constexpr Message<Text, Number, Number, Text, Text> kStorageDevice =
    "%s Storage Enclosure Device Failure (Bay %u, Box %u, Port %s, %s)";
constexpr Message<Text, Number, Number, Number, Text, Text> kStoragePhy =
    "%s Storage Enclosure PHY Link Error (PHY %u, Expander %u, Box %u, Port %s, %s)";
constexpr TextMessage<1> kStorageRedundancy = "Drive Array Controllers No Longer Redundant (%s)";
constexpr Message<Text, Text, Number, Text, Text> kStorageLink =
    "%s Storage Enclosure PHY Link Error (%s, Box %u, Port %s, %s)";
constexpr Message<Text, Number, Text, Text> kStorageProcessor =
    "%s SAS Array Storage Enclosure Processor Failure (Box %u, Port %s, %s)";

constexpr Name kLinkPaths[] = {
    "Error path unknown",
    "Storage controller to external storage box",
    "Storage controller to internal device",
    "Storage controller to onboard expander",
    "Onboard expander to external storage box",
    "Onboard expander to internal device",
    "Storage box to storage box",
    "Storage box to bay in storage box",
    "Storage controller to switch expander",
    "Switch expander to storage box",
};

// Unrecoverable system error.

constexpr Row<FixedMessage> kSystemErrorRows[] = {
    {1, "An Unrecoverable System Error (NMI) has occurred"  },
    {2, "An Unrecoverable System Error (BINIT) has occurred"},
};
static_assert(StrictlyAscending(kSystemErrorRows));

constexpr Row<TextMessage<2>> kSystemErrorDetailRows[] = {
    {3, "An Unrecoverable System Error (NMI) has occurred (System error code %s, %s)"},
    {4, "Uncorrectable Chipset Error (Error status 1 %s, Error status 2 %s)"         },
};
static_assert(StrictlyAscending(kSystemErrorDetailRows));

// System revision and maintenance.

constexpr TextMessage<1> kRomFlashed = "ROM flashed (%s)";

constexpr Row<TextMessage<1>> kMaintenanceRows[] = {
    {1, "QVX Cleared (%s)"    },
    {2, "Maintenance note: %s"},
};
static_assert(StrictlyAscending(kMaintenanceRows));

// The fields that the adapter and controller classes share.

Text FormatByte1(EventData data) {
  return FormatByteOrUnknown(data.Byte<1>());
}
Text FormatByte2(EventData data) {
  return FormatByteOrUnknown(data.Byte<2>());
}
Text FormatByte3(EventData data) {
  return FormatByteOrUnknown(data.Byte<3>());
}

bool IsInServer(EventData data) {
  return data.Byte<1>() == 0;
}

Text FormatChassis(EventData data, std::size_t textOffset) {
  return FormatNameOrNumber(data.Byte<1>(), data.TextAt(textOffset));
}

template <std::size_t Offset>
Text FormatPort(EventData data, Scratch& scratch) {
  return FormatTwoChars(data.Byte<Offset>(), data.Byte<Offset + 1>(), scratch);
}

void DescribeController(const TextMessage<1>& inServer, const TextMessage<2>& inChassis,
                        EventData data, TextSink& out) {
  if (IsInServer(data)) {
    out.Format(inServer, FormatByte3(data));
  } else {
    out.Format(inChassis, FormatChassis(data, 4), FormatByte3(data));
  }
}

void DescribeDevice(const TextMessage<4>& message, EventData data, TextSink& out) {
  Scratch chassis;
  out.Format(message, FormatChassisPrefix(data.TextAt(4), chassis), FormatByte1(data),
             FormatByte2(data), FormatByte3(data));
}

void DescribeRedundancy(const FixedMessage& inServer, const TextMessage<1>& inChassis,
                        EventData data, TextSink& out) {
  if (IsInServer(data)) {
    out.Format(inServer);
  } else {
    out.Format(inChassis, FormatChassis(data, 3));
  }
}

void DescribeArrayBattery(EventData data, TextSink& out) {
  if (IsInServer(data)) {
    out.Format(kArrayBattery, FormatByte2(data), FormatByte3(data));
  } else {
    out.Format(kArrayChassisBattery, FormatChassis(data, 4), FormatByte2(data), FormatByte3(data));
  }
}

// The storage enclosures behind a drive array.

void DescribeStorageDevice(EventData data, TextSink& out) {
  Scratch port;
  Scratch bay;
  out.Format(kStorageDevice, GetStorageEnclosureSide(data), data.Byte<3>(), data.Byte<6>(),
             FormatPort<4>(data, port), FormatBayLocation(data.TextAt(7), data, bay));
}

void DescribeStoragePhy(EventData data, TextSink& out) {
  Scratch port;
  Scratch bay;
  out.Format(kStoragePhy, GetStorageEnclosureSide(data), data.Byte<7>(), data.Byte<6>(),
             data.Byte<5>(), FormatPort<3>(data, port),
             FormatBayLocation(data.TextAt(8), data, bay));
}

void DescribeStorageRedundancy(EventData data, TextSink& out) {
  Scratch bay;
  out.Format(kStorageRedundancy, FormatBayLocation(data.TextAt(3), data, bay));
}

void DescribeStorageLink(EventData data, TextSink& out) {
  Scratch port;
  Scratch bay;
  out.Format(kStorageLink, GetStorageEnclosureSide(data),
             NameAt(kLinkPaths, data.Byte<6>(), kLinkPaths[0]), data.Byte<5>(),
             FormatPort<3>(data, port), FormatBayLocation(data.TextAt(7), data, bay));
}

void DescribeStorageProcessor(EventData data, TextSink& out) {
  Scratch port;
  Scratch bay;
  out.Format(kStorageProcessor, GetStorageEnclosureSide(data), data.Byte<5>(),
             FormatPort<3>(data, port), FormatBayLocation(data.TextAt(6), data, bay));
}

// Operating-system events.

void DescribeShutdown(EventData data, TextSink& out) {
  const auto* const row = Find(kShutdownRows, data.Byte<0>());
  out.Format(row == nullptr ? kPlainShutdown : row->message);
}

void DescribePowerSoftwareShutdown(EventData data, TextSink& out) {
  const auto* const row = Find(kPowerSoftwareRows, data.Byte<4>());
  if (row != nullptr) out.Format(row->message, FormatByte3(data));
}

}  // namespace

void DescribeAsrEvent(std::uint16_t code, EventData data, TextSink& out) {
  if (code == 2) {
    out.Format(kAsrLockup, data.TextAt(0));
  } else if (const auto* const row = Find(kAsrRows, code)) {
    out.Format(row->message);
  }
}

void DescribeOsEvent(std::uint16_t code, EventData data, TextSink& out) {
  switch (code) {
    case 1:
      return out.Format(kOsFailure, data.TextAt(0));
    case 2:
      return DescribeShutdown(data, out);
    case 3:
      return out.Format(kFatalException, FormatByteOrUnknown(data.Byte<0>()), data.TextAt(1));
    case 5:
      return DescribePowerSoftwareShutdown(data, out);
    default:
      if (const auto* const row = Find(kNmiSwitchRows, code)) out.Format(row->message);
  }
}

void DescribeNetworkEvent(std::uint16_t code, EventData data, TextSink& out) {
  if (IsInServer(data)) {
    const auto* const row = Find(kNetworkRows, code);
    if (row == nullptr) return;
    out.Format(row->message, FormatByte3(data), FormatByte2(data));
  } else {
    const auto* const row = Find(kNetworkChassisRows, code);
    if (row == nullptr) return;
    out.Format(row->message, FormatChassis(data, 4), FormatByte3(data), FormatByte2(data));
  }
  if (code < kFirstSupplementedNetworkCode) return;
  const std::string_view supplement = data.TextAfter(data.TextAt(4));
  if (!supplement.empty()) out.Format(kSupplement, supplement);
}

void DescribeScsiEvent(std::uint16_t code, EventData data, TextSink& out) {
  switch (code) {
    case 1:
      return DescribeController(kScsiController, kScsiChassisController, data, out);
    case 2:
      return DescribeDevice(kScsiDevice, data, out);
    case 3:
      return DescribeRedundancy(kScsiRedundancy, kScsiChassisRedundancy, data, out);
    default:
      return;
  }
}

void DescribeArrayEvent(std::uint16_t code, EventData data, TextSink& out) {
  switch (code) {
    case 1:
      return DescribeController(kArrayController, kArrayChassisController, data, out);
    case 2:
      return DescribeDevice(kArrayDevice, data, out);
    case 3:
      return DescribeArrayBattery(data, out);
    case 4:
      return DescribeRedundancy(kArrayRedundancy, kArrayChassisRedundancy, data, out);
    case 7:
      return DescribeStorageDevice(data, out);
    case 8:
      return DescribeStoragePhy(data, out);
    case 9:
      return DescribeStorageRedundancy(data, out);
    case 10:
      return DescribeStorageLink(data, out);
    case 11:
      return DescribeStorageProcessor(data, out);
    default:
      return;
  }
}

void DescribeSystemErrorEvent(std::uint16_t code, EventData data, TextSink& out) {
  if (const auto* const row = Find(kSystemErrorRows, code)) return out.Format(row->message);
  const auto* const row = Find(kSystemErrorDetailRows, code);
  if (row == nullptr) return;
  Scratch first;
  Scratch second;
  out.Format(row->message, FormatHex32(data.Le32<0>(), first), FormatHex32(data.Le32<4>(), second));
}

void DescribeRevisionEvent(std::uint16_t code, EventData data, TextSink& out) {
  if (code == 1) out.Format(kRomFlashed, data.TextAt(0));
}

void DescribeMaintenanceEvent(std::uint16_t code, EventData data, TextSink& out) {
  const auto* const row = Find(kMaintenanceRows, code);
  if (row != nullptr) out.Format(row->message, data.TextAt(0));
}

void ListSystemTables(TableEntries& entries) {
  entries.Add(kAsrRows);
  entries.Add(kAsrLockup);
  entries.Add(kNmiSwitchRows);
  entries.Add(kOsFailure);
  entries.Add(kFatalException);
  entries.Add(kShutdownRows);
  entries.Add(kPlainShutdown);
  entries.Add(kPowerSoftwareRows);
  entries.Add(kNetworkRows);
  entries.Add(kNetworkChassisRows);
  entries.Add(kSupplement);
  entries.Add(kScsiController);
  entries.Add(kScsiChassisController);
  entries.Add(kScsiDevice);
  entries.Add(kScsiRedundancy);
  entries.Add(kScsiChassisRedundancy);
  entries.Add(kArrayController);
  entries.Add(kArrayChassisController);
  entries.Add(kArrayDevice);
  entries.Add(kArrayBattery);
  entries.Add(kArrayChassisBattery);
  entries.Add(kArrayRedundancy);
  entries.Add(kArrayChassisRedundancy);
  entries.Add(kStorageDevice);
  entries.Add(kStoragePhy);
  entries.Add(kStorageRedundancy);
  entries.Add(kStorageLink);
  entries.Add(kStorageProcessor);
  entries.Add(kLinkPaths);
  entries.Add(kSystemErrorRows);
  entries.Add(kSystemErrorDetailRows);
  entries.Add(kRomFlashed);
  entries.Add(kMaintenanceRows);
}

}  // namespace qvl
