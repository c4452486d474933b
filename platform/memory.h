#ifndef QVL_PLATFORM_MEMORY_H_
#define QVL_PLATFORM_MEMORY_H_

#include <cstddef>

namespace qvl {

/// The size and alignment of the system's large pages on x86-64.
inline constexpr std::size_t kLargePageSize = std::size_t{2} << 20U;

/// Takes one large page's worth of memory from the system, zeroed; aligned to it where the
/// system has large pages to give.
/// preferLarge  asks for one large page instead of 512 small ones: a log of a million records is
///              then walked with hundreds of address translations instead of ten thousands. Only
///              a hint; nothing changes where the system has none to give.
/// Throws std::bad_alloc. To be given back with `FreeBlock`.
void* AllocateBlock(bool preferLarge);
void FreeBlock(void* block);

}  // namespace qvl

#endif  // QVL_PLATFORM_MEMORY_H_
