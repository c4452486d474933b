#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "decoders/decoders.h"
#include "decoders/rows.h"
#include "entries/event_data.h"
#include "entries/field_formatters.h"
#include "entries/message.h"
#include "entries/text_sink.h"

namespace qvl {
namespace {

// The board whose service processor reported the event, as an index of the tables below.
enum class Board : std::uint8_t { kUpper, kLower, kNeither };

constexpr std::uint8_t kUpperBoardId = 0x8A;
constexpr std::uint8_t kLowerBoardId = 0x8C;

constexpr Name kReporters[] = {"upper", "lower", "unknown"};
constexpr Name kBoards[] = {"Upper", "Lower", "Unknown"};

// The reporter alone. The last two end in a line feed, which belongs to their texts.
constexpr Row<TextMessage<1>> kReporterRows[] = {
    {52,  "System initialization failure reported by %s KTB board service processor"},
    {81,  "Events from %s KTB board server processor were dropped"                  },
    {131, "Unexpected %s KTB board service processor FPGA Reconfiguration\n"        },
    {132, "KTB %s board service processor is not available\n"                       },
};
static_assert(StrictlyAscending(kReporterRows));

// The other board and the reporter.
constexpr Row<TextMessage<2>> kAssemblyRows[] = {
    {9,
     "KTB Cube Assembly failure.  %s KTB board service processor response timeout reported by %s "
     "KTB board service processor"                                                                },
    {10, "KTB Cube Assembly failure.  %s KTB board not detected by %s KTB board service processor"},
};
static_assert(StrictlyAscending(kAssemblyRows));

// The reporter and data byte 1.
constexpr Row<Message<Text, Number>> kDetailRows[] = {
    {128, "Power fault occurred on %s KTB board. Details: 0x%02X"               },
    {129, "Reset occurred on %s KTB board service processor. Details: 0x%02X"   },
    {130, "%s KTB board service processor initialization fault. Details: 0x%02X"},
};
static_assert(StrictlyAscending(kDetailRows));

// Board and chip, before a list of bytes.
constexpr Row<Message<Text, Number>> kChipErrorRows[] = {
    {192, "Uncorrectable error detected on %s KTB Board, KTB %d. Details:"},
    {193, "Correctable error detected on %s KTB Board, KTB %d. Details:"  },
};
static_assert(StrictlyAscending(kChipErrorRows));

// Board, chip and link, before a list of bytes.
constexpr Row<Message<Text, Number, Number>> kFabricErrorRows[] = {
    {196, "Uncorrectable fabric error detected on %s KTB Board, KTB %d, link %d. Details:"},
    {197, "Correctable fabric error detected on %s KTB Board, KTB %d, link %d. Details:"  },
};
static_assert(StrictlyAscending(kFabricErrorRows));

constexpr NumberMessage<1> kListedByte = " 0x%02x";

constexpr NumberMessage<1> kUnknownEvent = "Unknown KTB event occurred, Code 0x%02X";

constexpr Message<Number, Text, Number, Text, Number, Number, Number, Number> kSideBandFailure =
    "Proc %d (%s Tray, Processor %d) side-band access failure reported by %s KTB board service "
    "processor.  Details: 0x%02X 0x%08X 0x%02X 0x%08X";

constexpr Message<Text, Text, Number, Number, Number, Number> kAccessFailure =
    "%s access failure reported by %s KTB board service processor.  Details: 0x%02X 0x%08X%08X "
    "0x%02X";

// A chip of the reporting board itself: the boards' order, two chips each.
constexpr Name kOwnChips[] = {
    "Upper KTB Board, KTB 1",
    "Upper KTB Board, KTB 2",
    "Lower KTB Board, KTB 1",
    "Lower KTB Board, KTB 2",
};

constexpr std::uint32_t kOwnChipComponent = 0;
constexpr NameRow kComponents[] = {
    {0x0100, "Main IO"                         },
    {0x0101, "LP (Low Profile) IO"             },
    {0x0300, "Sub IO"                          },
    {0x0400, "Proc 1 (Upper Tray, Processor 1)"},
    {0x0401, "Proc 5 (Lower Tray, Processor 4)"},
    {0x0500, "Proc 2 (Upper Tray, Processor 2)"},
    {0x0501, "Proc 6 (Lower Tray, Processor 3)"},
    {0x0600, "Proc 3 (Upper Tray, Processor 3)"},
    {0x0601, "Proc 7 (Lower Tray, Processor 2)"},
    {0x0700, "Proc 4 (Upper Tray, Processor 4)"},
    {0x0701, "Proc 8 (Lower Tray, Processor 1)"},
};
static_assert(StrictlyAscending(kComponents));

// The fields of a processor mask carry their own leading blanks, so the output has double ones.
constexpr Name kUpperTray = "Upper Tray, Processor(s)";
constexpr Name kLowerTray = "Lower Tray, Processor(s)";
constexpr Name kMaskDigits[] = {" 1", " 2", " 3", " 4"};

constexpr Name kMismatched = "Mismatched";
constexpr Name kUnsupported = "Unsupported";
constexpr Message<Text, Text, Text, Text, Text, Text, Text, Text, Text, Text, Text, Text, Number,
                  Number, Number>
    kConfiguration =
        "%s processor configuration: %s %s %s %s %s %s %s %s %s %s - reported by %s KTB board "
        "service processor.  Details: 0x%02X 0x%04X 0x%04X";

constexpr Message<Text, Text, Text, Text, Text, Text, Text, Text, Text, Text, Text, Number, Number,
                  Number, Number, Number>
    kDisabledProcessors =
        "%s %s %s %s %s %s %s %s %s %s disabled by %s KTB board service processor.  Details: "
        "0x%02X 0x%02X 0x%02X 0x%02X 0x%02X";

// Here and in the two link messages the tray's processor is negative for data that counts beyond
// the lower tray's four.
constexpr Message<Number, Text, Number, Text> kInitializationFailure =
    "Proc %d (%s Tray, Processor %d) initialization failure reported by %s KTB board service "
    "processor";

// By data byte 3.
constexpr Row<Message<Number, Text, Number, Text, Text, Number>> kProcessorLinkRows[] = {
    {2,
     "QPI Link between Proc %d (%s Tray, Processor %d) and %s trained in reduced-width mode "
     "reported by %s KTB board service processor, link status 0x%02X"},
    {3,
     "QPI Link training failure between Proc %d (%s Tray, Processor %d) and %s reported by %s KTB "
     "board service processor, link status 0x%02X"                   },
    {4,
     "QPI Link training failure between Proc %d (%s Tray, Processor %d) and %s reported by %s KTB "
     "board service processor, link status 0x%02X"                   },
};
static_assert(StrictlyAscending(kProcessorLinkRows));

constexpr NumberMessage<1> kOtherLinkStatus = "KTB event %d occurred";

// Four links of each processor. The one parenthesis that never closes and the partner "TB" are
// intended.
constexpr std::size_t kLinksPerProcessor = 4;
constexpr Name kLinkPartners[] = {
    // Upper tray, processor 1.
    "Upper KTB Board, KTB 1",
    "MainIO",
    "Upper KTB Board, KTB 2",
    "Proc 2 (Upper Tray, Processor 2)",
    // Upper tray, processor 2.
    "Proc 1 (Upper Tray, Processor 1)",
    "Upper KTB Board, KTB 1",
    "MainIO",
    "Upper KTB Board, KTB 2",
    // Upper tray, processor 3.
    "Upper KTB Board, KTB 1",
    "SubIO",
    "Upper KTB Board, KTB 2",
    "Proc 4 (Upper Tray, Processor 4",
    // Upper tray, processor 4.
    "Upper KTB Board, KTB 2",
    "Proc 3 (Upper Tray, Processor 3)",
    "Upper KTB Board, KTB 1",
    "SubIO",
    // Lower tray, processor 1.
    "Lower KTB Board, KTB 1",
    "TB",
    "Lower KTB Board, KTB 2",
    "Proc 7 (Lower Tray, Processor 2)",
    // Lower tray, processor 2.
    "Proc 8 (Lower Tray, Processor 1)",
    "Lower KTB Board, KTB 2",
    "TB",
    "Lower KTB Board, KTB 1",
    // Lower tray, processor 3.
    "Lower KTB Board, KTB 2",
    "LP IO",
    "Lower KTB Board, KTB 1",
    "Proc 5 (Lower Tray, Processor 4)",
    // Lower tray, processor 4.
    "Lower KTB Board, KTB 1",
    "Proc 6 (Lower Tray, Processor 3)",
    "Lower KTB Board, KTB 2",
    "LP IO",
};

// A port of a chip, by its key without the reporting board in the low byte: both boards are wired
// alike.
struct PortRow {
  std::uint16_t code;
  Name kind;
  Name thisPort;
  Name otherPort;
};

constexpr PortRow kPorts[] = {
    {0x10, "External", "Port 4", "Port 1"},
    {0x11, "External", "Port 3", "Port 2"},
    {0x12, "Internal", "",       ""      },
    {0x13, "Internal", "",       ""      },
    {0x14, "External", "Port 2", "Port 3"},
    {0x15, "External", "Port 1", "Port 4"},
    {0x20, "External", "Port 5", "Port 8"},
    {0x21, "External", "Port 8", "Port 5"},
    {0x22, "External", "Port 6", "Port 7"},
    {0x23, "External", "Port 7", "Port 6"},
    {0x24, "Internal", "",       ""      },
    {0x25, "Internal", "",       ""      },
};
static_assert(StrictlyAscending(kPorts));

constexpr std::uint8_t kChipLinkFailed = 3;
constexpr Message<Text, Text, Number, Text, Text, Number, Text, Text, Number> kChipLinkFailure =
    "%s link training failure between %s KTB Board, KTB %d %s and %s KTB Board, KTB %d %s "
    "reported by %s KTB board service processor.  Details: 0x%02X";
constexpr Message<Text, Text, Number, Text, Text, Number, Text, Text, Number> kChipLinkReduced =
    "%s link with reduced bandwidth between %s KTB Board, KTB %d %s and %s KTB Board, KTB %d %s "
    "reported by %s KTB board service processor.  Details: 0x%02X";
constexpr Message<Text, Number, Number, Number> kUnknownPort =
    "Link training failure reported by %s KTB board service processor.  Details: 0x%02X 0x%02X "
    "0x%02X";

constexpr TextMessage<1> kNoProcessors =
    "Invalid processor configuration.  No enabled or installed processors reported by %s KTB "
    "board service processor";
constexpr Message<Number, Text> kDegradedProcessors =
    "Processor configuration degraded to %d sockets reported by %s KTB board service processor";

constexpr Name kIoBoards[] = {"Main IO", "Sub IO", "Low Profile (LP) IO"};
constexpr Name kUnrecognizedIoBoard = "Unrecognized IO Board";
constexpr Message<Text, Text, Number, Number, Number> kDisabledIoBoard =
    "%s disabled by %s KTB board service processor. Details: 0x%02X 0x%02X 0x%02X";

Board ReportingBoard(EventData data) {
  switch (data.Byte<0>()) {
    case kUpperBoardId:
      return Board::kUpper;
    case kLowerBoardId:
      return Board::kLower;
    default:
      return Board::kNeither;
  }
}

Board OppositeOf(Board board) {
  switch (board) {
    case Board::kUpper:
      return Board::kLower;
    case Board::kLower:
      return Board::kUpper;
    default:
      return Board::kNeither;
  }
}

const Name& BoardName(Board board) {
  return kBoards[static_cast<std::size_t>(board)];
}

const Name& ThisBoard(EventData data) {
  return BoardName(ReportingBoard(data));
}

const Name& OtherBoard(EventData data) {
  return BoardName(OppositeOf(ReportingBoard(data)));
}

const Name& Reporter(EventData data) {
  return kReporters[static_cast<std::size_t>(ReportingBoard(data))];
}

// A processor by its number in the machine and in its tray.
struct Processor {
  Number number;
  Number inTray;  // below zero as a two's complement
};

// The upper tray counts up from Proc 1, the lower one down to Proc 5.
Processor UpperProcessor(std::uint8_t index) {
  return {index + 1U, index + 1U};
}
Processor LowerProcessor(std::uint8_t index) {
  return {index + 5U, 4U - index};
}

using MaskFields = std::array<Text, 10>;

MaskFields FormatMask(std::uint8_t mask) {
  MaskFields fields;
  if ((mask & 0x0FU) != 0) fields[0] = kUpperTray;
  if ((mask & 0xF0U) != 0) fields[5] = kLowerTray;
  for (std::size_t i = 0; i < 4; ++i) {
    if ((mask >> i & 1U) != 0) fields[1 + i] = kMaskDigits[i];
    if ((mask >> (4 + i) & 1U) != 0) fields[6 + i] = kMaskDigits[i];
  }
  return fields;
}

void DescribeSideBandFailure(EventData data, TextSink& out) {
  const bool isUpper = ReportingBoard(data) == Board::kUpper;
  const Number pair = data.Byte<1>() == 0 ? 1 : 3;
  const std::uint8_t firstOfPair = isUpper ? 0x30 : 0x31;  // the characters '0' and '1'
  const bool isFirst = data.Byte<2>() == firstOfPair;
  const Number inTray = isFirst ? pair : pair + 1;
  out.Format(kSideBandFailure, isUpper ? inTray : 9 - inTray, ThisBoard(data), inTray,
             Reporter(data), data.Byte<4>(), data.Be32<5>(), data.Byte<3>(), data.Be32<9>());
}

const Name& ComponentName(EventData data) {
  const std::uint32_t component = data.Be16<11>();
  if (component == kOwnChipComponent) {
    const std::size_t first = ReportingBoard(data) == Board::kUpper ? 0 : 2;
    return kOwnChips[(data.Byte<1>() & 0xF0U) == 0 ? first : first + 1];
  }
  const NameRow* const row = Find(kComponents, component);
  return row == nullptr ? kUnknown : row->name;
}

void DescribeAccessFailure(EventData data, TextSink& out) {
  out.Format(kAccessFailure, ComponentName(data), Reporter(data), data.Byte<1>(), data.Be32<3>(),
             data.Be32<7>(), data.Byte<2>());
}

void DescribeConfiguration(EventData data, TextSink& out) {
  const bool isMismatch = data.Byte<1>() == 0;
  const MaskFields mask = FormatMask(isMismatch ? data.Byte<2>() : data.Byte<1>());
  out.Format(kConfiguration, isMismatch ? kMismatched : kUnsupported, mask[0], mask[1], mask[2],
             mask[3], mask[4], mask[5], mask[6], mask[7], mask[8], mask[9], Reporter(data),
             data.Byte<2>(), data.Be16<3>(), data.Be16<5>());
}

// Unlike a link's, an unknown board's processor counts as one of the upper tray.
void DescribeInitializationFailure(EventData data, TextSink& out) {
  const Processor processor = ReportingBoard(data) == Board::kLower
                                  ? LowerProcessor(data.Byte<1>())
                                  : UpperProcessor(data.Byte<1>());
  out.Format(kInitializationFailure, processor.number, ThisBoard(data), processor.inTray,
             Reporter(data));
}

const Name& LinkPartner(std::size_t row, std::uint8_t link) {
  return NameAt(kLinkPartners, row * kLinksPerProcessor + (link & 3U), kUnknown);
}

void DescribeProcessorLink(std::uint16_t code, EventData data, TextSink& out) {
  const auto* const row = Find(kProcessorLinkRows, data.Byte<3>());
  if (row == nullptr) return out.Format(kOtherLinkStatus, code);
  const std::uint8_t index = data.Byte<1>();
  const bool isUpper = ReportingBoard(data) == Board::kUpper;
  const Processor processor = isUpper ? UpperProcessor(index) : LowerProcessor(index);
  const Name* partner = &kUnknown;
  if (isUpper) {
    partner = &LinkPartner(index, data.Byte<2>());
  } else if (index <= 7) {
    partner = &LinkPartner(7U - index, data.Byte<2>());
  }
  out.Format(row->message, processor.number, ThisBoard(data), processor.inTray, *partner,
             Reporter(data), data.Byte<3>());
}

// The port's key is the OR of its shifted parts, so data that overlaps in it still finds a port.
const PortRow* FindPort(EventData data) {
  if (ReportingBoard(data) == Board::kNeither) return nullptr;
  return Find(kPorts, (data.Byte<1>() + 1U) << 4U | data.Byte<2>());
}

void DescribeChipLink(EventData data, TextSink& out) {
  const PortRow* const port = FindPort(data);
  if (port == nullptr) {
    return out.Format(kUnknownPort, Reporter(data), data.Byte<1>(), data.Byte<2>(), data.Byte<3>());
  }
  const Number chip = data.Byte<1>() + 1U;
  out.Format(data.Byte<3>() == kChipLinkFailed ? kChipLinkFailure : kChipLinkReduced, port->kind,
             ThisBoard(data), chip, port->thisPort, OtherBoard(data), chip, port->otherPort,
             Reporter(data), data.Byte<3>());
}

void DescribeSockets(EventData data, TextSink& out) {
  if (data.Byte<1>() == 0) {
    out.Format(kNoProcessors, Reporter(data));
  } else {
    out.Format(kDegradedProcessors, data.Byte<1>(), Reporter(data));
  }
}

// The fifth detail repeats the fourth.
void DescribeDisabledProcessors(EventData data, TextSink& out) {
  const MaskFields mask = FormatMask(data.Byte<1>());
  out.Format(kDisabledProcessors, mask[0], mask[1], mask[2], mask[3], mask[4], mask[5], mask[6],
             mask[7], mask[8], mask[9], Reporter(data), data.Byte<2>(), data.Byte<3>(),
             data.Byte<4>(), data.Byte<5>(), data.Byte<5>());
}

void DescribeDisabledIoBoard(EventData data, TextSink& out) {
  out.Format(kDisabledIoBoard, NameAt(kIoBoards, data.Byte<1>(), kUnrecognizedIoBoard),
             Reporter(data), data.Byte<2>(), data.Byte<3>(), data.Byte<4>());
}

// The chip that an error was found on: here data byte 0 is a length and byte 1 names the chip.
const Name& ErrorBoard(EventData data) {
  return BoardName((data.Byte<1>() & 2U) != 0 ? Board::kLower : Board::kUpper);
}

Number ErrorChip(EventData data) {
  return (data.Byte<1>() & 1U) != 0 ? 2 : 1;
}

// Ends early once the text is full: a length byte of noise lists up to 226 bytes.
void ListBytes(std::size_t begin, EventData data, TextSink& out) {
  for (const std::uint8_t byte : data.Bytes(begin, data.Byte<0>())) {
    const std::size_t before = out.size();
    out.Format(kListedByte, byte);
    if (out.size() == before) return;
  }
}

void DescribeOwnShape(std::uint16_t code, EventData data, TextSink& out) {
  switch (code) {
    case 1:
      return DescribeSideBandFailure(data, out);
    case 2:
      return DescribeAccessFailure(data, out);
    case 4:
      return DescribeConfiguration(data, out);
    case 6:
      return DescribeInitializationFailure(data, out);
    case 7:
      return DescribeProcessorLink(code, data, out);
    case 8:
      return DescribeChipLink(data, out);
    case 53:
      return DescribeSockets(data, out);
    case 57:
      return DescribeDisabledProcessors(data, out);
    case 64:
      return DescribeDisabledIoBoard(data, out);
    default:
      return out.Format(kUnknownEvent, code);
  }
}

}  // namespace

void DescribeNodeControllerEvent(std::uint16_t code, EventData data, TextSink& out) {
  if (const auto* const reporterRow = Find(kReporterRows, code)) {
    out.Format(reporterRow->message, Reporter(data));
  } else if (const auto* const assemblyRow = Find(kAssemblyRows, code)) {
    out.Format(assemblyRow->message, OtherBoard(data), Reporter(data));
  } else if (const auto* const detailRow = Find(kDetailRows, code)) {
    out.Format(detailRow->message, Reporter(data), data.Byte<1>());
  } else if (const auto* const chipRow = Find(kChipErrorRows, code)) {
    out.Format(chipRow->message, ErrorBoard(data), ErrorChip(data));
    ListBytes(2, data, out);
  } else if (const auto* const fabricRow = Find(kFabricErrorRows, code)) {
    out.Format(fabricRow->message, ErrorBoard(data), ErrorChip(data), data.Byte<2>());
    ListBytes(3, data, out);
  } else {
    DescribeOwnShape(code, data, out);
  }
}

void ListNodeControllerTables(TableEntries& entries) {
  entries.Add(kReporters);
  entries.Add(kBoards);
  entries.Add(kReporterRows);
  entries.Add(kAssemblyRows);
  entries.Add(kDetailRows);
  entries.Add(kChipErrorRows);
  entries.Add(kFabricErrorRows);
  entries.Add(kListedByte);
  entries.Add(kUnknownEvent);
  entries.Add(kSideBandFailure);
  entries.Add(kAccessFailure);
  entries.Add(kOwnChips);
  entries.Add(kComponents);
  entries.Add(kUpperTray);
  entries.Add(kLowerTray);
  entries.Add(kMaskDigits);
  entries.Add(kMismatched);
  entries.Add(kUnsupported);
  entries.Add(kConfiguration);
  entries.Add(kDisabledProcessors);
  entries.Add(kInitializationFailure);
  entries.Add(kProcessorLinkRows);
  entries.Add(kOtherLinkStatus);
  entries.Add(kLinkPartners);
  for (const PortRow& port : kPorts) {
    entries.Add(port.kind);
    entries.Add(port.thisPort);
    entries.Add(port.otherPort);
  }
  entries.Add(kChipLinkFailure);
  entries.Add(kChipLinkReduced);
  entries.Add(kUnknownPort);
  entries.Add(kNoProcessors);
  entries.Add(kDegradedProcessors);
  entries.Add(kIoBoards);
  entries.Add(kUnrecognizedIoBoard);
  entries.Add(kDisabledIoBoard);
}

}  // namespace qvl
