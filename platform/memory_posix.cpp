#include "platform/memory.h"

#include <sys/mman.h>

#include <cstdint>
#include <new>

namespace qvl {

void* AllocateBlock(bool preferLarge) {
  // The system aligns to small pages only: twice as much is asked for, and the ends given back.
  constexpr std::size_t kSize = 2 * kLargePageSize;
  void* const memory =
      ::mmap(nullptr, kSize, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED) throw std::bad_alloc();
  auto* const begin = static_cast<char*>(memory);
  const std::size_t before =
      (kLargePageSize - reinterpret_cast<std::uintptr_t>(begin) % kLargePageSize) % kLargePageSize;
  char* const block = begin + before;
  if (before > 0) ::munmap(begin, before);
  if (before < kLargePageSize) ::munmap(block + kLargePageSize, kLargePageSize - before);
  if (preferLarge) static_cast<void>(::madvise(block, kLargePageSize, MADV_HUGEPAGE));
  return block;
}

void FreeBlock(void* block) {
  if (block != nullptr) ::munmap(block, kLargePageSize);
}

}  // namespace qvl
