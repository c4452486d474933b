#ifndef QVL_ENTRIES_ENTRY_LIST_H_
#define QVL_ENTRIES_ENTRY_LIST_H_

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "entries/event_log_entry.h"

namespace qvl {

/// The position of an entry in its list: the order in which it was read.
using EntryIndex = std::uint32_t;

/// Owns the entries of a log in the order read. Entries never move while the list grows, and cost
/// nothing beside their record: they stand in blocks, not in one allocation each.
class EntryList {
 public:
  static constexpr std::size_t kBlockEntries = 4096;

  std::size_t size() const { return size_; }
  bool empty() const { return size_ == 0; }

  const CEventLogEntry& operator[](std::size_t index) const {
    return blocks_[index / kBlockEntries][index % kBlockEntries];
  }
  CEventLogEntry& operator[](std::size_t index) {
    return blocks_[index / kBlockEntries][index % kBlockEntries];
  }

  void Append(const RawLogEntry& raw) {
    Room().front().SetRawEntry(raw);
    ++size_;
  }

  /// Unused entries at the end, at least one, to be filled in place and then counted by `Grow`.
  std::span<CEventLogEntry> Room() {
    const std::size_t used = size_ % kBlockEntries;
    if (size_ == blocks_.size() * kBlockEntries) {
      blocks_.push_back(std::make_unique_for_overwrite<CEventLogEntry[]>(kBlockEntries));
    }
    return {blocks_.back().get() + used, kBlockEntries - used};
  }
  void Grow(std::size_t count) { size_ += count; }

  void Clear() {
    blocks_.clear();
    size_ = 0;
  }

 private:
  std::vector<std::unique_ptr<CEventLogEntry[]>> blocks_;
  std::size_t size_ = 0;
};

}  // namespace qvl

#endif  // QVL_ENTRIES_ENTRY_LIST_H_
