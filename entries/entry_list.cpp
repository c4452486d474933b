#include "entries/entry_list.h"

#include <algorithm>

#include "entries/event_class.h"

namespace qvl {

std::span<CEventLogEntry> EntryList::Room() {
  const std::size_t used = size_ % kBlockEntries;
  if (size_ == blocks_.size() * kBlockEntries) {
    // The first block takes ordinary pages: most logs are small and touch only a few of them.
    const bool preferLarge = !blocks_.empty();
    Block block;
    block.entries.reset(static_cast<CEventLogEntry*>(AllocateBlock(preferLarge)));
    block.heads = std::make_unique_for_overwrite<EntryHead[]>(kBlockEntries);
    blocks_.push_back(std::move(block));
  }
  return {blocks_.back().entries.get() + used, kBlockEntries - used};
}

void EntryList::Grow(std::size_t count) {
  for (; count > 0; --count) {
    SetHead(size_);
    CheckNumber(size_);
    ++size_;
  }
}

void EntryList::Replace(std::size_t index, const RawLogEntry& raw) {
  blocks_[index / kBlockEntries].entries.get()[index % kBlockEntries].SetRawEntry(raw);
  SetHead(index);
  CheckNumber(index);
  if (index + 1 < size_) CheckNumber(index + 1);
}

void EntryList::Clear() {
  blocks_.clear();
  size_ = 0;
  numbersRise_ = true;
}

void EntryList::SetHead(std::size_t index) {
  const RawLogEntry& raw = (*this)[index].raw();
  blocks_[index / kBlockEntries].heads[index % kBlockEntries] = {
      static_cast<std::uint8_t>(std::min<std::size_t>(raw.eventClass, kEventClassEnd)),
      raw.severity, raw.updateTime};
}

void EntryList::CheckNumber(std::size_t index) {
  if (index == 0) return;
  const bool rises = (*this)[index - 1].GetEntryNumber() < (*this)[index].GetEntryNumber();
  numbersRise_ = numbersRise_ && rises;
}

}  // namespace qvl
