#ifndef QVL_ENTRIES_ENTRY_LIST_H_
#define QVL_ENTRIES_ENTRY_LIST_H_

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <type_traits>
#include <vector>

#include "entries/event_log_entry.h"
#include "entries/log_time.h"
#include "platform/memory.h"

namespace qvl {

/// The position of an entry in its list: the order in which it was read.
using EntryIndex = std::uint32_t;

/// What filters and the default order ask of every entry, beside the records: walking a million of
/// these takes a thirtieth of the memory that the records fill.
struct EntryHead {
  std::uint8_t classIndex;  ///< the class, or kEventClassEnd for all higher ones
  std::uint8_t severity;
  LogTime updateTime;
};
static_assert(sizeof(EntryHead) == 8);

/// Owns the entries of a log in the order read. Entries never move while the list grows, and cost
/// their record and their head: they stand in blocks, not in one allocation each.
class EntryList {
 public:
  static constexpr std::size_t kBlockEntries = kLargePageSize / sizeof(CEventLogEntry);

  std::size_t size() const { return size_; }
  bool empty() const { return size_ == 0; }

  const CEventLogEntry& operator[](std::size_t index) const {
    return blocks_[index / kBlockEntries].entries.get()[index % kBlockEntries];
  }
  const EntryHead& Head(std::size_t index) const {
    return blocks_[index / kBlockEntries].heads[index % kBlockEntries];
  }

  /// True while every entry number is above the one before it, as in a log read from a machine.
  bool numbersRise() const { return numbersRise_; }

  void Append(const RawLogEntry& raw) {
    Room().front().SetRawEntry(raw);
    Grow(1);
  }

  /// Replaces a record, after its entry was read again from its machine.
  void Replace(std::size_t index, const RawLogEntry& raw);

  /// Unused entries at the end, at least one, to be filled in place and then counted by `Grow`.
  std::span<CEventLogEntry> Room();
  void Grow(std::size_t count);

  void Clear();

 private:
  struct FreeEntries {
    void operator()(CEventLogEntry* entries) const { FreeBlock(entries); }
  };
  struct Block {
    std::unique_ptr<CEventLogEntry, FreeEntries> entries;
    std::unique_ptr<EntryHead[]> heads;
  };
  static_assert(std::is_trivially_copyable_v<CEventLogEntry> &&
                std::is_trivially_destructible_v<CEventLogEntry>);

  void SetHead(std::size_t index);
  void CheckNumber(std::size_t index);

  std::vector<Block> blocks_;
  std::size_t size_ = 0;
  bool numbersRise_ = true;
};

}  // namespace qvl

#endif  // QVL_ENTRIES_ENTRY_LIST_H_
