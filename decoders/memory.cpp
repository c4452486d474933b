#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <span>
#include <string_view>

#include "decoders/decoders.h"
#include "decoders/rows.h"
#include "entries/event_data.h"
#include "entries/field_formatters.h"
#include "entries/message.h"
#include "entries/text_sink.h"

namespace qvl {
namespace {

constexpr std::uint8_t kUnknownNumber = 255;
constexpr std::size_t kMaxCandidates = 4;
constexpr std::size_t kMaxSerialNumberLength = 79;

/// One wording, for a module without and with a serial number.
template <std::size_t N>
struct Form {
  TextMessage<N> plain;
  TextMessage<N + 1> withSerial;
};

/// The wordings for one module, by what is known of its position.
struct ModuleForms {
  Form<0> unknown;
  Form<0> systemMemory;
  Form<1> systemModule;
  Form<2> boardModule;
};

// clang-format would break the longest texts in two; whole, they are found by a search.
// clang-format off
constexpr ModuleForms kCorrectedForms = {
    {"Corrected Memory Error threshold exceeded (Memory Module Unknown)",
     "Corrected Memory Error threshold exceeded (Memory Module Unknown, Serial Number %s)"},
    {"Corrected Memory Error threshold exceeded (System Memory)",
     "Corrected Memory Error threshold exceeded (System Memory, Serial Number %s)"},
    {"Corrected Memory Error threshold exceeded (System Memory, Memory Module %s)",
     "Corrected Memory Error threshold exceeded (System Memory, Memory Module %s, Serial Number %s)"},
    {"Corrected Memory Error threshold exceeded (Board %s, Memory Module %s)",
     "Corrected Memory Error threshold exceeded (Board %s, Memory Module %s, Serial Number %s)"},
};

// "Module Unknown" here, "Memory Module Unknown" above: two wordings, kept apart on purpose.
constexpr ModuleForms kUncorrectableForms = {
    {"Uncorrectable Memory Error (Module Unknown)",
     "Uncorrectable Memory Error (Module Unknown, Serial Number %s)"},
    {"Uncorrectable Memory Error (System Memory)",
     "Uncorrectable Memory Error (System Memory, Serial Number %s)"},
    {"Uncorrectable Memory Error (System Memory, Memory Module %s)",
     "Uncorrectable Memory Error (System Memory, Memory Module %s, Serial Number %s)"},
    {"Uncorrectable Memory Error (Board %s, Memory Module %s)",
     "Uncorrectable Memory Error (Board %s, Memory Module %s, Serial Number %s)"},
};

constexpr ModuleForms kRomValidationForms = {
    {"Uncorrectable Memory Error found by ROM-based memory validation (Module Unknown)",
     "Uncorrectable Memory Error found by ROM-based memory validation (Module Unknown, Serial Number %s)"},
    {"Uncorrectable Memory Error found by ROM-based memory validation (System Memory)",
     "Uncorrectable Memory Error found by ROM-based memory validation (System Memory, Serial Number %s)"},
    {"Uncorrectable Memory Error found by ROM-based memory validation (System Memory, Memory Module %s)",
     "Uncorrectable Memory Error found by ROM-based memory validation (System Memory, Memory Module %s, Serial Number %s)"},
    {"Uncorrectable Memory Error found by ROM-based memory validation (Board %s, Memory Module %s)",
     "Uncorrectable Memory Error found by ROM-based memory validation (Board %s, Memory Module %s, Serial Number %s)"},
};

// Corrected and uncorrectable errors share these, so that a further unknown module reads "Module
// Unknown" even behind a first one that reads "Memory Module Unknown".
constexpr ModuleForms kFurtherCandidateForms = {
    {" or (Module Unknown)",
     " or (Module Unknown, Serial Number %s)"},
    {" or (System Memory)",
     " or (System Memory, Serial Number %s)"},
    {" or (System Memory, Memory Module %s)",
     " or (System Memory, Memory Module %s, Serial Number %s)"},
    {" or (Board %s, Memory Module %s)",
     " or (Board %s, Memory Module %s, Serial Number %s)"},
};

constexpr ModuleForms kCorrectedBankForms = {
    {"Corrected Memory Error threshold exceeded (Bank Unknown)",
     "Corrected Memory Error threshold exceeded (Bank Unknown, Serial Number %s)"},
    {"Corrected Memory Error threshold exceeded (System Memory)",
     "Corrected Memory Error threshold exceeded (System Memory, Serial Number %s)"},
    {"Corrected Memory Error threshold exceeded (System Memory, Bank %s)",
     "Corrected Memory Error threshold exceeded (System Memory, Bank %s, Serial Number %s)"},
    {"Corrected Memory Error threshold exceeded (Board %s, Bank %s)",
     "Corrected Memory Error threshold exceeded (Board %s, Bank %s, Serial Number %s)"},
};
// clang-format on

/// A list of candidates: the opening, the items with a joint between them, the closing.
struct ListRow {
  std::uint16_t code;
  FixedMessage opening;
  TextMessage<3> item;
};

// Opening and item each bring a parenthesis: that the result has them doubled is intended.
// clang-format off
constexpr ListRow kListRows[] = {
    {20, "Corrected Memory Error threshold exceeded (",
         "(Processor %s, Memory Module %s%s)"},
    {23, "Uncorrectable Memory Error (",
         "(Processor %s, Memory Module %s%s)"},
    {24, "Mirrored Memory Engaged by Uncorrectable Memory Error (",
         "(Board %s, Memory Module %s%s)"},
    {25, "Mirrored Memory Engaged by Uncorrectable Memory Error (",
         "(Processor %s, Memory Module %s%s)"},
};
// clang-format on
static_assert(StrictlyAscending(kListRows));
constexpr FixedMessage kListJoint = ", or ";
constexpr FixedMessage kListClosing = ")";

constexpr TextMessage<1> kBoardActions[] = {
    "Memory Board Removed (Slot %s)",
    "Memory Board Inserted (Slot %s)",
};
constexpr TextMessage<1> kCartridgeActions[] = {
    "Memory Cartridge Removed (Slot %s)",
    "Memory Cartridge Inserted (Slot %s)",
    "Memory Cartridge Unlocked (Slot %s)",
    "Memory Cartridge Locked (Slot %s)",
};
constexpr TextMessage<1> kCartridgeStates[] = {
    "Memory Cartridge Bus Fault (Slot %s)",
    "Memory Cartridge Power Fault (Slot %s)",
    "Memory Cartridge Not Redundant (Slot %s)",
    "Memory Cartridge Online (Slot %s)",
};
constexpr TextMessage<2> kConfigurationErrors[] = {
    "Memory Board Configuration Error (Slot %s, Memory Module %s)",
    "Memory Cartridge Configuration Error (Slot %s, Memory Module %s)",
};
constexpr TextMessage<1> kBoardFailure = "Memory Board Failure (Board %s)";

constexpr TextMessage<1> kMemoryAdded = "Memory Added (Size %s MB)";
constexpr FixedMessage kMemoryRemoved = "Memory Successfully Removed";

/// A faulty module whose work other memory takes over, by module number.
struct FaultyModuleRow {
  std::uint16_t code;
  TextMessage<1> systemMemory;
  TextMessage<2> board;
};

// clang-format off
constexpr FaultyModuleRow kFaultyModuleRows[] = {
    {8, "Online Spare Memory Copy Process Started for Faulty Module (System Memory, Memory Module %s)",
        "Online Spare Memory Copy Process Started for Faulty Module (Board %s, Memory Module %s)"},
    {9, "Mirrored Memory Engaged for Faulty Module (System Memory, Memory Module %s)",
        "Mirrored Memory Engaged for Faulty Module (Board %s, Memory Module %s)"},
};
// clang-format on
static_assert(StrictlyAscending(kFaultyModuleRows));

/// The same by bank letter.
struct FaultyBankRow {
  std::uint16_t code;
  FixedMessage unknown;
  TextMessage<2> board;
  TextMessage<1> systemMemory;
};

// clang-format off
constexpr FaultyBankRow kFaultyBankRows[] = {
    {11, "Online Spare Memory Copy Process Started for Faulty Module (Module Unknown)",
         "Online Spare Memory Copy Process Started for Faulty Module (Board %s, Bank %s)",
         "Online Spare Memory Copy Process Started for Faulty Module (System Memory, Bank %s)"},
    {12, "Mirrored Memory Engaged for Faulty Module (Module Unknown)",
         "Mirrored Memory Engaged for Faulty Module (Board %s, Bank %s)",
         "Mirrored Memory Engaged for Faulty Module (System Memory, Bank %s)"},
};
// clang-format on
static_assert(StrictlyAscending(kFaultyBankRows));

// clang-format off
constexpr Row<TextMessage<3>> kProcessorModuleRows[] = {
    {21, "Online Spare Memory Copy Process Started for Faulty Module (Processor %s, Memory Module %s%s)"},
    {22, "Mirrored Memory Engaged for Faulty Module (Processor %s, Memory Module %s%s)"},
};
// clang-format on
static_assert(StrictlyAscending(kProcessorModuleRows));

constexpr Row<FixedMessage> kFixedRows[] = {
    {13, "Loss of Mirroring in Memory Subsystem"  },
    {14, "Online Spare Memory Disabled"           },
    {15, "Memory Subsystem Not In RAID Mode"      },
    {16, "Online Spare Memory Switchover Complete"},
    {32, "No system memory found"                 },
    {45, "Unknown memory warning"                 },
};
static_assert(StrictlyAscending(kFixedRows));

// The warnings of the power-on self test know no "Unknown": 255 is printed as a number.
// clang-format off
constexpr Row<NumberMessage<2>> kPostModuleRows[] = {
    {33, "Incompatible memory module (Board %d, Memory Module %d)"},
    {34, "Lockstep memory module pair not same type and size (Board %d, Memory Module %d)"},
    {35, "Rank disabled to allow memory operation (Board %d, Memory Module %d)"},
    {36, "Memory module failure prevented bus training (Board %d, Memory Module %d)"},
    {37, "Memory module not supported (Board %d, Memory Module %d)"},
    {38, "Memory module not populated correctly (Board %d, Memory Module %d)"},
    {39, "Memory module calibration failed (Board %d, Memory Module %d)"},
    {42, "Memory module thermal throttling not sufficient for installed module (Board %d, Memory Module %d)"},
};
// clang-format on
static_assert(StrictlyAscending(kPostModuleRows));

constexpr Row<NumberMessage<1>> kPostBoardRows[] = {
    {40, "Memory module distribution not supported in current interleave mode (Board %d)"},
    {41, "Quad memory module loading order violated (Board %d)"                          },
    {43, "SMI lane failover detected, spare SMI lane in use (Board %d)"                  },
    {44, "Memory module bus termination fault (Board %d)"                                },
    {46, "SMI link training failed (Board %d)"                                           },
    {47, "Memory built-in self test failed (Board %d)"                                   },
    {48, "Memory module rank not found (Board %d)"                                       },
    {49, "SMBus access fault (Board %d)"                                                 },
    {50, "Memory board configuration through SMI link failed (Board %d)"                 },
    {51, "Memory bus training failed (Board %d)"                                         },
    {52, "Memory Board reset failed (Board %d)"                                          },
};
static_assert(StrictlyAscending(kPostBoardRows));

template <std::size_t N, typename... Fields>
void FormatForm(const Form<N>& form, std::string_view serialNumber, TextSink& out,
                const Fields&... fields) {
  if (serialNumber.empty()) {
    out.Format(form.plain, fields...);
  } else {
    out.Format(form.withSerial, fields..., serialNumber);
  }
}

/// Board and module (or bank) of one module, and the text of the latter.
struct ModulePosition {
  std::uint8_t board;
  std::uint8_t module;
  Text moduleText;
};

void FormatModule(const ModuleForms& forms, const ModulePosition& position,
                  std::string_view serialNumber, TextSink& out) {
  if (position.board == kUnknownNumber && position.module == kUnknownNumber) {
    FormatForm(forms.unknown, serialNumber, out);
  } else if (position.board == 0 && position.module == kUnknownNumber) {
    FormatForm(forms.systemMemory, serialNumber, out);
  } else if (position.board == 0) {
    FormatForm(forms.systemModule, serialNumber, out, position.moduleText);
  } else {
    FormatForm(forms.boardModule, serialNumber, out, FormatByteOrUnknown(position.board),
               position.moduleText);
  }
}

void DescribeModule(const ModuleForms& forms, EventData data, TextSink& out) {
  const std::uint8_t module = data.Byte<1>();
  FormatModule(forms, {data.Byte<0>(), module, FormatByteOrUnknown(module)}, data.TextAt(2), out);
}

void DescribeBank(const ModuleForms& forms, EventData data, TextSink& out) {
  const std::uint8_t bank = data.Byte<1>();
  FormatModule(forms, {data.Byte<0>(), bank, FormatCharOrUnknown(bank)}, data.TextAt(2), out);
}

/// The serial numbers of a list, separated by commas, taken one by one.
class SerialNumbers {
 public:
  explicit SerialNumbers(std::string_view list) : rest_(list) {}

  /// The next serial number, tidied; empty when the list has no more.
  std::string_view Next(Scratch& scratch) {
    const std::size_t comma = std::min(rest_.find(','), rest_.size());
    const std::string_view token = rest_.substr(0, comma);
    rest_.remove_prefix(std::min(comma + 1, rest_.size()));
    return CollapseWhitespace(token, scratch).view().substr(0, kMaxSerialNumberLength);
  }

 private:
  std::string_view rest_;
};

/// The numbers of up to four candidates, module first, then board or processor.
class Candidates {
 public:
  explicit Candidates(EventData data)
      : numbers_(data.Bytes(1, 1 + 2 * kMaxCandidates)),
        count_(std::clamp<std::size_t>(data.Byte<0>(), 1, kMaxCandidates)) {}

  /// At least one: the first candidate is printed even where the list claims to be empty.
  std::size_t count() const { return count_; }
  std::uint8_t Module(std::size_t i) const { return numbers_[2 * i]; }
  std::uint8_t BoardOrProcessor(std::size_t i) const { return numbers_[2 * i + 1]; }

 private:
  std::span<const std::uint8_t> numbers_;
  std::size_t count_;
};

constexpr std::size_t kListSerialNumbers = 9;

void DescribeModuleList(const ModuleForms& first, EventData data, TextSink& out) {
  const Candidates candidates(data);
  SerialNumbers serialNumbers(data.TextAt(kListSerialNumbers));
  for (std::size_t i = 0; i < candidates.count(); ++i) {
    Scratch scratch;
    const std::uint8_t module = candidates.Module(i);
    FormatModule(i == 0 ? first : kFurtherCandidateForms,
                 {candidates.BoardOrProcessor(i), module, FormatByteOrUnknown(module)},
                 serialNumbers.Next(scratch), out);
  }
}

/// ", Serial Number X", or an empty text for an empty serial number.
Text FormatSerialSuffix(std::string_view serialNumber, Scratch& scratch) {
  if (serialNumber.empty()) return std::string_view();
  TextSink suffix(scratch);
  suffix.Append(std::string_view(", Serial Number "));
  suffix.Append(serialNumber);
  return suffix.view();
}

void DescribeList(const ListRow& row, EventData data, TextSink& out) {
  const Candidates candidates(data);
  // A list that claims to be empty has a first candidate all the same, but no serial number.
  SerialNumbers serialNumbers(data.Byte<0>() == 0 ? std::string_view()
                                                  : data.TextAt(kListSerialNumbers));
  out.Format(row.opening);
  for (std::size_t i = 0; i < candidates.count(); ++i) {
    Scratch serialScratch;
    Scratch suffixScratch;
    if (i > 0) out.Format(kListJoint);
    out.Format(row.item, FormatByteOrUnknown(candidates.BoardOrProcessor(i)),
               FormatByteOrUnknown(candidates.Module(i)),
               FormatSerialSuffix(serialNumbers.Next(serialScratch), suffixScratch));
  }
  out.Format(kListClosing);
}

void DescribeProcessorModule(const TextMessage<3>& message, EventData data, TextSink& out) {
  Scratch scratch;
  out.Format(message, FormatByteOrUnknown(data.Byte<0>()), FormatByteOrUnknown(data.Byte<1>()),
             FormatSerialSuffix(data.TextAt(2), scratch));
}

void DescribeBoardAction(EventData data, TextSink& out) {
  const std::size_t action = data.Byte<1>();
  const std::uint8_t kind = data.Byte<2>();
  const Text slot = FormatByteOrUnknown(data.Byte<0>());
  // Only cartridges lock: those actions do not look at the kind.
  const bool locks = action >= std::size(kBoardActions);
  if (action >= std::size(kCartridgeActions) || (!locks && kind > 1)) return;
  out.Format(locks || kind == 1 ? kCartridgeActions[action] : kBoardActions[action], slot);
}

void DescribeCartridgeState(EventData data, TextSink& out) {
  const std::size_t state = data.Byte<1>();
  if (state >= std::size(kCartridgeStates)) return;
  out.Format(kCartridgeStates[state], FormatByteOrUnknown(data.Byte<0>()));
}

void DescribeConfigurationError(EventData data, TextSink& out) {
  const std::size_t kind = data.Byte<2>();
  if (kind >= std::size(kConfigurationErrors)) return;
  out.Format(kConfigurationErrors[kind], FormatByteOrUnknown(data.Byte<0>()),
             FormatByteOrUnknown(data.Byte<1>()));
}

void DescribeSizeChange(EventData data, TextSink& out) {
  if (data.Byte<1>() == 0) {
    Scratch scratch;
    out.Format(kMemoryAdded, FormatDwordOrUnknown(data.Le32<2>(), scratch));
  } else if (data.Byte<1>() == 1) {
    out.Format(kMemoryRemoved);
  }
}

void DescribeFaultyModule(const FaultyModuleRow& row, EventData data, TextSink& out) {
  const Text module = FormatByteOrUnknown(data.Byte<1>());
  if (data.Byte<0>() == 0) {
    out.Format(row.systemMemory, module);
  } else {
    out.Format(row.board, FormatByteOrUnknown(data.Byte<0>()), module);
  }
}

void DescribeFaultyBank(const FaultyBankRow& row, EventData data, TextSink& out) {
  const std::uint8_t board = data.Byte<0>();
  const std::uint8_t bank = data.Byte<1>();
  if (board == kUnknownNumber && bank == kUnknownNumber) {
    out.Format(row.unknown);
  } else if (board == 0) {
    out.Format(row.systemMemory, FormatCharOrUnknown(bank));
  } else {
    out.Format(row.board, FormatByteOrUnknown(board), FormatCharOrUnknown(bank));
  }
}

/// The codes whose messages lie in tables by code.
void DescribeByRow(std::uint16_t code, EventData data, TextSink& out) {
  if (const auto* fixed = Find(kFixedRows, code)) {
    out.Format(fixed->message);
  } else if (const auto* postModule = Find(kPostModuleRows, code)) {
    out.Format(postModule->message, data.Byte<0>(), data.Byte<1>());
  } else if (const auto* postBoard = Find(kPostBoardRows, code)) {
    out.Format(postBoard->message, data.Byte<0>());
  } else if (const auto* list = Find(kListRows, code)) {
    DescribeList(*list, data, out);
  } else if (const auto* faultyModule = Find(kFaultyModuleRows, code)) {
    DescribeFaultyModule(*faultyModule, data, out);
  } else if (const auto* faultyBank = Find(kFaultyBankRows, code)) {
    DescribeFaultyBank(*faultyBank, data, out);
  } else if (const auto* processorModule = Find(kProcessorModuleRows, code)) {
    DescribeProcessorModule(processorModule->message, data, out);
  }
}

template <std::size_t N>
void AddForm(const Form<N>& form, TableEntries& entries) {
  entries.Add(form.plain);
  entries.Add(form.withSerial);
}

void AddForms(const ModuleForms& forms, TableEntries& entries) {
  AddForm(forms.unknown, entries);
  AddForm(forms.systemMemory, entries);
  AddForm(forms.systemModule, entries);
  AddForm(forms.boardModule, entries);
}

}  // namespace

void DescribeMemoryEvent(std::uint16_t code, EventData data, TextSink& out) {
  switch (code) {
    case 1:
      return DescribeModule(kCorrectedForms, data, out);
    case 2:
      return DescribeModule(kUncorrectableForms, data, out);
    case 3:
      return DescribeModuleList(kUncorrectableForms, data, out);
    case 4:
      return DescribeBoardAction(data, out);
    case 5:
      return DescribeCartridgeState(data, out);
    case 6:
      return DescribeConfigurationError(data, out);
    case 7:
      return DescribeSizeChange(data, out);
    case 10:
      return DescribeBank(kCorrectedBankForms, data, out);
    case 17:
      return out.Format(kBoardFailure, FormatByteOrUnknown(data.Byte<0>()));
    case 18:  // an assumed layout: docs/formats/record.md
      return DescribeModule(kRomValidationForms, data, out);
    case 19:
      return DescribeModuleList(kCorrectedForms, data, out);
    default:
      return DescribeByRow(code, data, out);
  }
}

void ListMemoryTables(TableEntries& entries) {
  AddForms(kCorrectedForms, entries);
  AddForms(kUncorrectableForms, entries);
  AddForms(kRomValidationForms, entries);
  AddForms(kFurtherCandidateForms, entries);
  AddForms(kCorrectedBankForms, entries);
  for (const ListRow& row : kListRows) {
    entries.Add(row.opening);
    entries.Add(row.item);
  }
  entries.Add(kListJoint);
  entries.Add(kListClosing);
  entries.Add(kBoardActions);
  entries.Add(kCartridgeActions);
  entries.Add(kCartridgeStates);
  entries.Add(kConfigurationErrors);
  entries.Add(kBoardFailure);
  entries.Add(kMemoryAdded);
  entries.Add(kMemoryRemoved);
  for (const FaultyModuleRow& row : kFaultyModuleRows) {
    entries.Add(row.systemMemory);
    entries.Add(row.board);
  }
  for (const FaultyBankRow& row : kFaultyBankRows) {
    entries.Add(row.unknown);
    entries.Add(row.board);
    entries.Add(row.systemMemory);
  }
  entries.Add(kProcessorModuleRows);
  entries.Add(kFixedRows);
  entries.Add(kPostModuleRows);
  entries.Add(kPostBoardRows);
}

}  // namespace qvl
