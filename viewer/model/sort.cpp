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

// One number a row that orders like a column.
template <typename KeyOf>
Keys Collect(std::span<const EntryIndex> rows, KeyOf keyOf) {
  Keys keys(rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) keys[i] = keyOf(rows[i]);
  return keys;
}

// The same where the keys stand in the records.
template <typename KeyOf>
Keys CollectFromRecords(const EntryList& entries, std::span<const EntryIndex> rows, KeyOf keyOf) {
  Keys keys(rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    __builtin_prefetch(&entries[rows[std::min(i + kReadAhead, rows.size() - 1)]]);
    keys[i] = keyOf(entries[rows[i]]);
  }
  return keys;
}

Keys CollectDescriptions(const EntryList& entries, std::span<const EntryIndex> rows) {
  std::vector<std::uint32_t> numbers(rows.size());
  std::vector<std::uint32_t> ranks;
  {
    TextRanks texts;
    std::array<char, kDescriptionSize> buffer;
    for (std::size_t i = 0; i < rows.size(); ++i) {
      TextSink text(buffer);
      entries[rows[i]].GetColumnText(Column::kDescription, text);
      numbers[i] = texts.Add(text.view());
    }
    ranks = std::move(texts).Ranks();
  }
  Keys keys(rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) keys[i] = ranks[numbers[i]];
  return keys;
}

Keys CollectColumn(const EntryList& entries, std::span<const EntryIndex> rows, Column column) {
  switch (column) {
    case Column::kDescription:
      return CollectDescriptions(entries, rows);
    case Column::kClass:
      return Collect(rows, [&entries, ranks = ClassNameRanks()](EntryIndex row) {
        return std::uint64_t{ranks[entries.Head(row).classIndex]};
      });
    case Column::kSeverity:
      return Collect(rows, [&](EntryIndex row) { return entries.Head(row).severity; });
    case Column::kUpdateTime:
      return Collect(rows, [&](EntryIndex row) { return entries.Head(row).updateTime.Packed(); });
    case Column::kCount:
      return CollectFromRecords(entries, rows,
                                [](const CEventLogEntry& entry) { return entry.GetCount(); });
    case Column::kInitialTime:
      return CollectFromRecords(entries, rows, [](const CEventLogEntry& entry) {
        return entry.GetInitialTime().Packed();
      });
    case Column::kEntryNumber:
      break;
  }
  return Keys(rows.size());  // all equal: the tie-break orders
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

// Packs the keys, with the entry numbers behind them where these must break ties; false when they
// do not fit beside the row.
bool PackKeys(const EntryList& entries, std::span<const EntryIndex> rows, bool ascending,
              bool withNumbers, int rowBits, Keys& keys, int& keyBits) {
  const BitPacker packer(keys, ascending);
  Keys numbers;
  if (withNumbers) {
    numbers = CollectFromRecords(
        entries, rows, [](const CEventLogEntry& entry) { return entry.GetEntryNumber(); });
  }
  const BitPacker numberPacker(numbers, ascending);
  keyBits = packer.bits() + numberPacker.bits();
  if (keyBits + rowBits > 64) return false;
  for (std::size_t i = 0; i < keys.size(); ++i) {
    std::uint64_t key = packer.Pack(keys[i]);
    if (withNumbers) {
      key = key << static_cast<unsigned>(numberPacker.bits()) | numberPacker.Pack(numbers[i]);
    }
    keys[i] = key << static_cast<unsigned>(rowBits) | i;
  }
  return true;
}

}  // namespace

std::vector<EntryIndex> SortedRows(const EntryList& entries, std::span<const EntryIndex> rows,
                                   Column column, bool ascending) {
  if (rows.empty()) return {};
  Keys keys = CollectColumn(entries, rows, column);
  // Where the entry numbers rise from row to row, a stable sort breaks ties by itself; a
  // descending one when it takes the rows from the last to the first.
  const bool withNumbers = !entries.numbersRise();
  const bool backwards = !withNumbers && !ascending;
  if (backwards) std::reverse(keys.begin(), keys.end());

  const int rowBits = static_cast<int>(std::bit_width(rows.size()));
  int keyBits = 0;
  if (!PackKeys(entries, rows, ascending, withNumbers, rowBits, keys, keyBits)) {
    if (backwards) std::reverse(keys.begin(), keys.end());
    return SortByComparison(entries, rows, keys, ascending);
  }
  RadixSort(keys, rowBits, rowBits + keyBits);

  std::vector<EntryIndex> sorted(rows.size());
  const std::uint64_t rowMask = (std::uint64_t{1} << static_cast<unsigned>(rowBits)) - 1;
  for (std::size_t i = 0; i < keys.size(); ++i) {
    const std::uint64_t row = keys[i] & rowMask;
    sorted[i] = rows[backwards ? rows.size() - 1 - row : row];
  }
  return sorted;
}

}  // namespace qvl
