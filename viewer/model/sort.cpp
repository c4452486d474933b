#include "viewer/model/sort.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <memory>
#include <numeric>
#include <string_view>

#include "entries/event_class.h"
#include "entries/event_description.h"
#include "entries/text_sink.h"
#include "texts/strings.h"
#include "viewer/model/text_ranks.h"

namespace qvl {
namespace {

using Keys = std::vector<std::uint64_t>;

// A record lies beyond what the processor fetches by itself.
constexpr std::size_t kReadAhead = 16;

// The rank of each class's display name; classes without a name rank together, last.
std::array<std::uint8_t, kEventClassEnd + 1> ClassNameRanks() {
  std::array<std::string_view, kEventClassEnd + 1> names;
  for (std::size_t i = 0; i < kEventClassEnd; ++i) {
    names[i] = EventClassName(static_cast<std::uint16_t>(i), CurrentLanguage());
  }
  std::array<std::uint8_t, kEventClassEnd + 1> ranks{};
  for (std::size_t i = 0; i < names.size(); ++i) {
    ranks[i] = static_cast<std::uint8_t>(
        std::count_if(names.begin(), names.end(),
                      [&](std::string_view name) { return CompareTexts(name, names[i]) < 0; }));
  }
  return ranks;
}

// One number a row that orders like a column, and whether the rows' entry numbers rise (or fall,
// for a descending order) already: then a stable sort breaks ties by itself.
struct ColumnKeys {
  Keys keys;
  bool numbersInOrder = true;
};

// Collects keys in one walk over the records, which costs more than sorting the keys does.
template <typename KeyOf>
ColumnKeys Collect(const EntryList& entries, std::span<const EntryIndex> rows, bool ascending,
                   KeyOf keyOf) {
  ColumnKeys collected{Keys(rows.size())};
  const std::uint32_t turn = ascending ? 0 : 0xFFFFFFFF;
  std::uint32_t previous = 0;
  bool inOrder = true;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    __builtin_prefetch(&entries[rows[std::min(i + kReadAhead, rows.size() - 1)]]);
    const CEventLogEntry& entry = entries[rows[i]];
    const std::uint32_t number = entry.GetEntryNumber() ^ turn;
    inOrder = inOrder && previous <= number;
    previous = number;
    collected.keys[i] = keyOf(entry);
  }
  collected.numbersInOrder = inOrder;
  return collected;
}

ColumnKeys CollectDescriptions(const EntryList& entries, std::span<const EntryIndex> rows,
                               bool ascending) {
  TextRanks texts;
  std::array<char, kDescriptionSize> buffer;
  ColumnKeys collected =
      Collect(entries, rows, ascending, [&](const CEventLogEntry& entry) -> std::uint64_t {
        TextSink text(buffer);
        entry.GetColumnText(Column::kDescription, text);
        return texts.Add(text.view());
      });
  const std::vector<std::uint32_t> ranks = std::move(texts).Ranks();
  for (std::uint64_t& key : collected.keys) key = ranks[key];
  return collected;
}

ColumnKeys CollectColumn(const EntryList& entries, std::span<const EntryIndex> rows, Column column,
                         bool ascending) {
  switch (column) {
    case Column::kDescription:
      return CollectDescriptions(entries, rows, ascending);
    case Column::kClass:
      return Collect(entries, rows, ascending,
                     [ranks = ClassNameRanks()](const CEventLogEntry& entry) -> std::uint64_t {
                       return ranks[std::min<std::size_t>(entry.raw().eventClass, kEventClassEnd)];
                     });
    case Column::kSeverity:
      return Collect(entries, rows, ascending,
                     [](const CEventLogEntry& entry) { return entry.GetSeverity(); });
    case Column::kCount:
      return Collect(entries, rows, ascending,
                     [](const CEventLogEntry& entry) { return entry.GetCount(); });
    case Column::kUpdateTime:
      return Collect(entries, rows, ascending,
                     [](const CEventLogEntry& entry) { return entry.GetUpdateTime().Packed(); });
    case Column::kInitialTime:
      return Collect(entries, rows, ascending,
                     [](const CEventLogEntry& entry) { return entry.GetInitialTime().Packed(); });
    case Column::kEntryNumber:
      break;
  }
  // All keys equal: the tie-break orders.
  return Collect(entries, rows, ascending, [](const CEventLogEntry&) { return 0U; });
}

// Keys in fewer bits: each byte loses the leading bits that all rows have in common.
class BitPacker {
 public:
  BitPacker(const Keys& keys, bool ascending) {
    std::uint64_t varying = 0;
    for (const std::uint64_t key : keys) varying |= key ^ keys.front();
    for (unsigned shift = 64; shift > 0;) {
      shift -= 8;
      const auto width = static_cast<unsigned>(std::bit_width(varying >> shift & 0xFFU));
      if (width == 0) continue;
      const std::uint64_t mask = (std::uint64_t{1} << width) - 1;
      pieces_[count_++] = {shift, width, mask, ascending ? 0 : mask};
      bits_ += static_cast<int>(width);
    }
  }

  int bits() const { return bits_; }

  std::uint64_t Pack(std::uint64_t key) const {
    std::uint64_t packed = 0;
    for (std::size_t i = 0; i < count_; ++i) {
      const Piece& piece = pieces_[i];
      packed = packed << piece.width | ((key >> piece.shift & piece.mask) ^ piece.turn);
    }
    return packed;
  }

 private:
  struct Piece {
    unsigned shift;
    unsigned width;
    std::uint64_t mask;
    std::uint64_t turn;  // turns a digit round for a descending order
  };

  std::array<Piece, 8> pieces_{};
  std::size_t count_ = 0;
  int bits_ = 0;
};

// Least significant digit first, over the bits from `firstBit` up to `lastBit`; stable.
void RadixSort(Keys& keys, int firstBit, int lastBit) {
  constexpr int kDigitBits = 11;
  constexpr std::size_t kDigits = std::size_t{1} << static_cast<unsigned>(kDigitBits);
  const std::unique_ptr<std::uint64_t[]> scratch =
      std::make_unique_for_overwrite<std::uint64_t[]>(keys.size());
  std::uint64_t* from = keys.data();
  std::uint64_t* to = scratch.get();
  for (int bit = firstBit; bit < lastBit; bit += kDigitBits) {
    const int width = std::min(kDigitBits, lastBit - bit);
    const std::uint64_t mask = (std::uint64_t{1} << static_cast<unsigned>(width)) - 1;
    const auto shift = static_cast<unsigned>(bit);
    std::array<std::uint32_t, kDigits> places{};
    for (std::size_t i = 0; i < keys.size(); ++i) ++places[from[i] >> shift & mask];
    std::exclusive_scan(places.begin(), places.end(), places.begin(), std::uint32_t{0});
    for (std::size_t i = 0; i < keys.size(); ++i) to[places[from[i] >> shift & mask]++] = from[i];
    std::swap(from, to);
  }
  if (from != keys.data()) std::memcpy(keys.data(), from, keys.size() * sizeof(std::uint64_t));
}

// For keys too wide to share a number with their tie-break and their row.
std::vector<EntryIndex> SortByComparison(const EntryList& entries, std::span<const EntryIndex> rows,
                                         const Keys& keys, bool ascending) {
  std::vector<EntryIndex> order(rows.size());
  std::iota(order.begin(), order.end(), 0U);
  std::stable_sort(order.begin(), order.end(), [&](EntryIndex a, EntryIndex b) {
    if (!ascending) std::swap(a, b);
    if (keys[a] != keys[b]) return keys[a] < keys[b];
    return entries[rows[a]].GetEntryNumber() < entries[rows[b]].GetEntryNumber();
  });
  for (EntryIndex& place : order) place = rows[place];
  return order;
}

// Appends the entry numbers to the packed keys; false when they do not fit beside the row.
bool AppendEntryNumbers(const EntryList& entries, std::span<const EntryIndex> rows, int rowBits,
                        bool ascending, const BitPacker& packer, int& keyBits, Keys& keys) {
  const Keys numbers = Collect(entries, rows, ascending, [](const CEventLogEntry& entry) {
                         return entry.GetEntryNumber();
                       }).keys;
  const BitPacker numberPacker(numbers, ascending);
  keyBits = packer.bits() + numberPacker.bits();
  if (keyBits + rowBits > 64) return false;
  for (std::size_t i = 0; i < keys.size(); ++i) {
    keys[i] = packer.Pack(keys[i]) << static_cast<unsigned>(numberPacker.bits()) |
              numberPacker.Pack(numbers[i]);
  }
  return true;
}

}  // namespace

std::vector<EntryIndex> SortedRows(const EntryList& entries, std::span<const EntryIndex> rows,
                                   Column column, bool ascending) {
  if (rows.empty()) return {};
  auto [keys, numbersInOrder] = CollectColumn(entries, rows, column, ascending);
  const BitPacker packer(keys, ascending);
  const int rowBits = static_cast<int>(std::bit_width(rows.size()));
  int keyBits = packer.bits();
  if (!numbersInOrder) {
    if (!AppendEntryNumbers(entries, rows, rowBits, ascending, packer, keyBits, keys)) {
      return SortByComparison(entries, rows, keys, ascending);
    }
  } else if (keyBits + rowBits > 64) {
    return SortByComparison(entries, rows, keys, ascending);
  } else {
    for (std::uint64_t& key : keys) key = packer.Pack(key);
  }
  for (std::size_t i = 0; i < keys.size(); ++i) {
    keys[i] = keys[i] << static_cast<unsigned>(rowBits) | i;
  }
  RadixSort(keys, rowBits, rowBits + keyBits);

  std::vector<EntryIndex> sorted(rows.size());
  const std::uint64_t rowMask = (std::uint64_t{1} << static_cast<unsigned>(rowBits)) - 1;
  for (std::size_t i = 0; i < keys.size(); ++i) sorted[i] = rows[keys[i] & rowMask];
  return sorted;
}

}  // namespace qvl
