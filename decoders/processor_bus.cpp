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

constexpr TextMessage<1> kCacheParityError = "Accelerator Cache Memory Parity Error (Socket %s)";

constexpr Row<TextMessage<2>> kProcessorRows[] = {
    {1, "Processor Correctable error threshold exceeded (Board %s, Processor %s)"},
    {2, "Processor Uncorrectable internal error (Board %s, Processor %s)"        },
};
static_assert(StrictlyAscending(kProcessorRows));

constexpr Row<TextMessage<3>> kTrayProcessorRows[] = {
    {4, "Processor Correctable error threshold exceeded (Proc %s (%s Tray, Processor %s))"},
    {5, "Processor Uncorrectable internal error (Proc %s (%s Tray, Processor %s))"        },
};
static_assert(StrictlyAscending(kTrayProcessorRows));

// clang-format would break these texts in two; whole, they are found by a search.
// clang-format off
constexpr NumberMessage<10> kMachineCheck =
    "Uncorrectable Machine Check Exception (Board %u, Processor %u, APIC ID 0x%08X, Bank 0x%08X, Status 0x%08X'%08X, Address 0x%08X'%08X, Misc 0x%08X'%08X)";
constexpr Message<Number, Text, Number, Number, Number, Number, Number, Number, Number, Number,
                  Number>
    kTrayMachineCheck =
        "Uncorrectable Machine Check Exception (Proc %u (%s Tray, Processor %u), APIC ID 0x%08X, Bank 0x%08X, Status 0x%08X'%08X, Address 0x%08X'%08X, Misc 0x%08X'%08X)";
// clang-format on

constexpr FixedMessage kHostBusParityErrors[] = {
    "Unrecoverable Host Bus Address Parity error",
    "Unrecoverable Host Bus Data Parity error",
};
constexpr TextMessage<1> kIntermoduleBusError =
    "Unrecoverable Intermodule Bus error (Error code %s)";
// clang-format off
constexpr Row<TextMessage<2>> kHostBusStatusRows[] = {
    {3, "Uncorrectable QuickPath Interconnect Error (Local interface error status %s, Protocol error status %s)"},
    {4, "Uncorrectable Chipset Error (Error status 1 %s, Error status 2 %s)"},
};
// clang-format on
static_assert(StrictlyAscending(kHostBusStatusRows));

constexpr Row<TextMessage<1>> kEisaSlotRows[] = {
    {1, "EISA Expansion Bus Master Timeout (Slot %s)"},
    {3, "EISA Expansion Board Error (Slot %s)"       },
};
static_assert(StrictlyAscending(kEisaSlotRows));
constexpr Row<FixedMessage> kEisaFixedRows[] = {
    {2, "EISA Expansion Bus Slave Timeout"    },
    {4, "EISA Expansion Bus Arbitration Error"},
};
static_assert(StrictlyAscending(kEisaFixedRows));

constexpr TextMessage<4> kPciBusError = "PCI Bus Error (Slot %s, Bus %s, Device %s, Function %s)";
constexpr TextMessage<5> kPciBusErrorInChassis =
    "PCI Bus Error (Chassis %s, Slot %s, Bus %s, Device %s, Function %s)";
constexpr Message<Text, Number, Number, Number, Text> kPciExpressError =
    "Uncorrectable PCI Express Error (%s, Bus %d, Device %d, Function %d, Error status %s)";
constexpr Name kEmbeddedDevice = "Embedded device";

struct SlotRow {
  std::uint16_t code;
  TextMessage<1> withoutChassis;
  TextMessage<2> withChassis;
};

// clang-format off
constexpr SlotRow kSlotRows[] = {
    {1, "Slot Release Lever Opened (Slot %s)",     "Slot Release Lever Opened (Chassis %s, Slot %s)"},
    {2, "Slot Release Lever Closed (Slot %s)",     "Slot Release Lever Closed (Chassis %s, Slot %s)"},
    {3, "Slot Power On (Slot %s)",                 "Slot Power On (Chassis %s, Slot %s)"},
    {4, "Slot Power Off (Slot %s)",                "Slot Power Off (Chassis %s, Slot %s)"},
    {5, "Slot Power Fault (Slot %s)",              "Slot Power Fault (Chassis %s, Slot %s)"},
    {6, "Slot Power Up Fault (Slot %s)",           "Slot Power Up Fault (Chassis %s, Slot %s)"},
    {7, "Unexpected Slot Power Loss (Slot %s)",    "Unexpected Slot Power Loss (Chassis %s, Slot %s)"},
    {8, "Adapter Initialization Failure (Slot %s)", "Adapter Initialization Failure (Chassis %s, Slot %s)"},
    {9, "Adapter Failure (Slot %s)",               "Adapter Failure (Chassis %s, Slot %s)"},
};
// clang-format on
static_assert(StrictlyAscending(kSlotRows));

constexpr TextMessage<1> kPostError = "POST Error: %s";

// Both machine checks have assumed layouts: docs/formats/record.md. The 64-bit values are printed
// by halves, the high one first.
void DescribeMachineCheck(EventData data, TextSink& out) {
  out.Format(kMachineCheck, data.Byte<1>(), data.Byte<0>(), data.Le32<4>(), data.Le32<8>(),
             data.Le32<16>(), data.Le32<12>(), data.Le32<24>(), data.Le32<20>(), data.Le32<32>(),
             data.Le32<28>());
}

void DescribeTrayMachineCheck(EventData data, TextSink& out) {
  out.Format(kTrayMachineCheck, data.Byte<3>(), GetUpperLowerName(data.Byte<1>()), data.Byte<0>(),
             data.Le32<4>(), data.Le32<8>(), data.Le32<16>(), data.Le32<12>(), data.Le32<24>(),
             data.Le32<20>(), data.Le32<32>(), data.Le32<28>());
}

void DescribePciBusError(EventData data, TextSink& out) {
  const Text slot = FormatByteOrUnknown(data.Byte<3>());
  const Text bus = FormatByteOrUnknown(data.Byte<4>());
  const Text device = FormatByteOrUnknown(data.Byte<5>());
  const Text function = FormatByteOrUnknown(data.Byte<6>());
  if (data.Byte<1>() == 0) {
    out.Format(kPciBusError, slot, bus, device, function);
  } else {
    out.Format(kPciBusErrorInChassis, FormatByteOrUnknown(data.Byte<1>()), slot, bus, device,
               function);
  }
}

/// "Slot 3", or for slot 0 a device without a slot.
Text FormatPciLocation(std::uint8_t slot, Scratch& scratch) {
  if (slot == 0) return kEmbeddedDevice;
  TextSink out(scratch);
  out.Append(std::string_view("Slot "));
  out.Append(FormatByteOrUnknown(slot));
  return out.view();
}

void DescribePciExpressError(EventData data, TextSink& out) {
  Scratch location;
  Scratch status;
  // Bus, device and function know no "Unknown" here: 255 is printed as a number.
  out.Format(kPciExpressError, FormatPciLocation(data.Byte<0>(), location), data.Byte<1>(),
             data.Byte<2>(), data.Byte<3>(), FormatHex32(data.Le32<4>(), status));
}

}  // namespace

void DescribeCacheEvent(std::uint16_t code, EventData data, TextSink& out) {
  if (code == 1) out.Format(kCacheParityError, FormatByteOrUnknown(data.Byte<0>()));
}

void DescribeProcessorEvent(std::uint16_t code, EventData data, TextSink& out) {
  // The board comes first in the text, but lies behind the processor in the data.
  if (const auto* row = Find(kProcessorRows, code)) {
    out.Format(row->message, FormatByteOrUnknown(data.Byte<1>()),
               FormatByteOrUnknown(data.Byte<0>()));
  } else if (const auto* trayRow = Find(kTrayProcessorRows, code)) {
    out.Format(trayRow->message, FormatByteOrUnknown(data.Byte<3>()),
               GetUpperLowerName(data.Byte<1>()), FormatByteOrUnknown(data.Byte<0>()));
  } else if (code == 3) {
    DescribeMachineCheck(data, out);
  } else if (code == 6) {
    DescribeTrayMachineCheck(data, out);
  }
}

void DescribeHostBusEvent(std::uint16_t code, EventData data, TextSink& out) {
  Scratch first;
  Scratch second;
  if (code == 1) {
    const std::size_t kind = data.Byte<0>();
    if (kind < std::size(kHostBusParityErrors)) out.Format(kHostBusParityErrors[kind]);
  } else if (code == 2) {
    out.Format(kIntermoduleBusError, FormatHex32(data.Le32<0>(), first));
  } else if (const auto* row = Find(kHostBusStatusRows, code)) {
    out.Format(row->message, FormatHex32(data.Le32<0>(), first),
               FormatHex32(data.Le32<4>(), second));
  }
}

void DescribeEisaEvent(std::uint16_t code, EventData data, TextSink& out) {
  if (const auto* slotRow = Find(kEisaSlotRows, code)) {
    out.Format(slotRow->message, FormatByteOrUnknown(data.Byte<0>()));
  } else if (const auto* fixedRow = Find(kEisaFixedRows, code)) {
    out.Format(fixedRow->message);
  }
}

void DescribePciEvent(std::uint16_t code, EventData data, TextSink& out) {
  if (code == 1) {
    DescribePciBusError(data, out);
  } else if (code == 2) {
    DescribePciExpressError(data, out);
  }
}

void DescribeSlotEvent(std::uint16_t code, EventData data, TextSink& out) {
  const SlotRow* const row = Find(kSlotRows, code);
  if (row == nullptr) return;
  const Text slot = FormatByteOrUnknown(data.Byte<3>());
  if (data.Byte<1>() == 0) {
    out.Format(row->withoutChassis, slot);
  } else {
    out.Format(row->withChassis, FormatByteOrUnknown(data.Byte<1>()), slot);
  }
}

void DescribePostEvent(std::uint16_t code, EventData data, TextSink& out) {
  if (code != 1) return;
  Scratch scratch;
  out.Format(kPostError, CollapseWhitespace(data.TextAt(1), scratch));
}

void ListProcessorBusTables(TableEntries& entries) {
  entries.Add(kCacheParityError);
  entries.Add(kProcessorRows);
  entries.Add(kTrayProcessorRows);
  entries.Add(kMachineCheck);
  entries.Add(kTrayMachineCheck);
  entries.Add(kHostBusParityErrors);
  entries.Add(kIntermoduleBusError);
  entries.Add(kHostBusStatusRows);
  entries.Add(kEisaSlotRows);
  entries.Add(kEisaFixedRows);
  entries.Add(kPciBusError);
  entries.Add(kPciBusErrorInChassis);
  entries.Add(kPciExpressError);
  entries.Add(kEmbeddedDevice);
  for (const SlotRow& row : kSlotRows) {
    entries.Add(row.withoutChassis);
    entries.Add(row.withChassis);
  }
  entries.Add(kPostError);
}

}  // namespace qvl
