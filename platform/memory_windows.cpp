#include "platform/memory.h"

#include <windows.h>

#include <new>

namespace qvl {

// Large pages need a privilege there that users do not have, so the hint stays without effect.
void* AllocateBlock(bool /*preferLarge*/) {
  void* const memory =
      ::VirtualAlloc(nullptr, kLargePageSize, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void FreeBlock(void* block) {
  if (block != nullptr) ::VirtualFree(block, 0, MEM_RELEASE);
}

}  // namespace qvl
