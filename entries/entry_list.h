#ifndef QVL_ENTRIES_ENTRY_LIST_H_
#define QVL_ENTRIES_ENTRY_LIST_H_

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <type_traits>
#include <vector>

#include "entries/event_log_entry.h"
#include "platform/memory.h"

namespace qvl {

/// The position of an entry in its list: the order in which it was read.
using EntryIndex = std::uint32_t;

/// Owns the entries of a log in the order read. Entries never move while the list grows, and cost
/// nothing beside their record: they stand in blocks, not in one allocation each.
class EntryList {
 public:
  static constexpr std::size_t kBlockEntries = kLargePageSize / sizeof(CEventLogEntry);

  std::size_t size() const { return size_; }
  bool empty() const { return size_ == 0; }

  const CEventLogEntry& operator[](std::size_t index) const {
    return blocks_[index / kBlockEntries].get()[index % kBlockEntries];
  }
  CEventLogEntry& operator[](std::size_t index) {
    return blocks_[index / kBlockEntries].get()[index % kBlockEntries];
  }

  void Append(const RawLogEntry& raw) {
    Room().front().SetRawEntry(raw);
    ++size_;
  }

  /// Unused entries at the end, at least one, to be filled in place and then counted by `Grow`.
  std::span<CEventLogEntry> Room() {
    const std::size_t used = size_ % kBlockEntries;
    if (size_ == blocks_.size() * kBlockEntries) blocks_.push_back(NewBlock(!blocks_.empty()));
    return {blocks_.back().get() + used, kBlockEntries - used};
  }
  void Grow(std::size_t count) { size_ += count; }

  void Clear() {
    blocks_.clear();
    size_ = 0;
  }

 private:
  struct Free {
    void operator()(CEventLogEntry* block) const { FreeBlock(block); }
  };
  using Block = std::unique_ptr<CEventLogEntry, Free>;
  static_assert(std::is_trivially_copyable_v<CEventLogEntry> &&
                std::is_trivially_destructible_v<CEventLogEntry>);

  // The first block takes ordinary pages: most logs are small and touch only a few of them.
  static Block NewBlock(bool large) {
    return Block(static_cast<CEventLogEntry*>(AllocateBlock(large)));
  }

  std::vector<Block> blocks_;
  std::size_t size_ = 0;
};

}  // namespace qvl

#endif  // QVL_ENTRIES_ENTRY_LIST_H_
