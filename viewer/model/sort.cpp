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

template <typename KeyOf>
void FillKeys(const EntryList& entries, std::span<const EntryIndex> rows, Keys& keys, KeyOf keyOf) {
  for (std::size_t i = 0; i < rows.size(); ++i) keys[i] = keyOf(entries[rows[i]]);
}

void FillDescriptionKeys(const EntryList& entries, std::span<const EntryIndex> rows, Keys& keys) {
  TextRanks texts;
  std::array<char, kDescriptionSize> buffer;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    TextSink text(buffer);
    entries[rows[i]].GetColumnText(Column::kDescription, text);
    keys[i] = texts.Add(text.view());
  }
  const std::vector<std::uint32_t> ranks = texts.Ranks();
  for (std::uint64_t& key : keys) key = ranks[key];
}

// One number a row that orders like the column.
Keys ColumnKeys(const EntryList& entries, std::span<const EntryIndex> rows, Column column) {
  Keys keys(rows.size());
  switch (column) {
    case Column::kDescription:
      FillDescriptionKeys(entries, rows, keys);
      break;
    case Column::kClass:
      FillKeys(entries, rows, keys,
               [ranks = ClassNameRanks()](const CEventLogEntry& entry) -> std::uint64_t {
                 return ranks[std::min<std::size_t>(entry.raw().eventClass, kEventClassEnd)];
               });
      break;
    case Column::kSeverity:
      FillKeys(entries, rows, keys,
               [](const CEventLogEntry& entry) { return entry.GetSeverity(); });
      break;
    case Column::kCount:
      FillKeys(entries, rows, keys, [](const CEventLogEntry& entry) { return entry.GetCount(); });
      break;
    case Column::kUpdateTime:
      FillKeys(entries, rows, keys,
               [](const CEventLogEntry& entry) { return entry.GetUpdateTime().Packed(); });
      break;
    case Column::kInitialTime:
      FillKeys(entries, rows, keys,
               [](const CEventLogEntry& entry) { return entry.GetInitialTime().Packed(); });
      break;
    case Column::kEntryNumber:
      break;  // all keys equal: the tie-break orders
  }
  return keys;
}

// Keys in fewer bits: each byte loses what all rows have in common.
class BitPacker {
 public:
  BitPacker(const Keys& keys, bool ascending) : ascending_(ascending) {
    low_.fill(255);
    high_.fill(0);
    for (const std::uint64_t key : keys) {
      for (std::size_t byte = 0; byte < low_.size(); ++byte) {
        const auto value = static_cast<std::uint8_t>(key >> (8 * byte));
        low_[byte] = std::min(low_[byte], value);
        high_[byte] = std::max(high_[byte], value);
      }
    }
    for (std::size_t byte = 0; byte < low_.size(); ++byte) {
      widths_[byte] =
          keys.empty() ? 0 : static_cast<int>(std::bit_width(unsigned{high_[byte]} - low_[byte]));
      bits_ += widths_[byte];
    }
  }

  int bits() const { return bits_; }

  std::uint64_t Pack(std::uint64_t key) const {
    std::uint64_t packed = 0;
    for (std::size_t byte = low_.size(); byte > 0; --byte) {
      const std::size_t at = byte - 1;
      if (widths_[at] == 0) continue;
      const auto value = static_cast<std::uint8_t>(key >> (8 * at));
      const unsigned digit = ascending_ ? unsigned{value} - low_[at] : unsigned{high_[at]} - value;
      packed = packed << static_cast<unsigned>(widths_[at]) | digit;
    }
    return packed;
  }

 private:
  bool ascending_;
  std::array<std::uint8_t, 8> low_{};
  std::array<std::uint8_t, 8> high_{};
  std::array<int, 8> widths_{};
  int bits_ = 0;
};

bool OrderedByEntryNumber(const EntryList& entries, std::span<const EntryIndex> rows,
                          bool ascending) {
  for (std::size_t i = 1; i < rows.size(); ++i) {
    const std::uint32_t previous = entries[rows[i - 1]].GetEntryNumber();
    const std::uint32_t current = entries[rows[i]].GetEntryNumber();
    if (ascending ? previous > current : previous < current) return false;
  }
  return true;
}

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
  std::vector<std::uint32_t> order(rows.size());
  std::iota(order.begin(), order.end(), 0U);
  std::stable_sort(order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) {
    if (!ascending) std::swap(a, b);
    if (keys[a] != keys[b]) return keys[a] < keys[b];
    return entries[rows[a]].GetEntryNumber() < entries[rows[b]].GetEntryNumber();
  });
  for (std::uint32_t& place : order) place = rows[place];
  return order;
}

}  // namespace

std::vector<EntryIndex> SortedRows(const EntryList& entries, std::span<const EntryIndex> rows,
                                   Column column, bool ascending) {
  Keys keys = ColumnKeys(entries, rows, column);
  const BitPacker packer(keys, ascending);
  const int rowBits = static_cast<int>(std::bit_width(rows.size()));

  // A log is mostly read in the order of its entry numbers; then a stable sort breaks ties by
  // itself.
  const bool numbered = !OrderedByEntryNumber(entries, rows, ascending);
  Keys numbers;
  if (numbered) {
    numbers.resize(rows.size());
    FillKeys(entries, rows, numbers,
             [](const CEventLogEntry& entry) { return entry.GetEntryNumber(); });
  }
  const BitPacker numberPacker(numbers, ascending);
  const int keyBits = packer.bits() + numberPacker.bits();
  if (keyBits + rowBits > 64) return SortByComparison(entries, rows, keys, ascending);

  for (std::size_t i = 0; i < keys.size(); ++i) {
    std::uint64_t key = packer.Pack(keys[i]);
    if (numbered) {
      key = key << static_cast<unsigned>(numberPacker.bits()) | numberPacker.Pack(numbers[i]);
    }
    keys[i] = key << static_cast<unsigned>(rowBits) | i;
  }
  numbers = Keys();
  RadixSort(keys, rowBits, rowBits + keyBits);

  std::vector<EntryIndex> sorted(rows.size());
  const std::uint64_t rowMask = (std::uint64_t{1} << static_cast<unsigned>(rowBits)) - 1;
  for (std::size_t i = 0; i < keys.size(); ++i) sorted[i] = rows[keys[i] & rowMask];
  return sorted;
}

}  // namespace qvl
