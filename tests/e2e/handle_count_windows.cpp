#include "tests/e2e/handle_count_windows.h"

#include <windows.h>
// After windows.h, which it needs.
#include <winternl.h>

#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

namespace qvl::test {
namespace {

constexpr NTSTATUS kTooSmall = static_cast<NTSTATUS>(0xC0000004);  // STATUS_INFO_LENGTH_MISMATCH
constexpr std::size_t kFirstTry = std::size_t{1} << 16U;
constexpr std::size_t kLargest = std::size_t{1} << 28U;

}  // namespace

unsigned long HandlesOf(unsigned long process) {
  for (std::size_t size = kFirstTry; size <= kLargest; size *= 2) {
    std::vector<SYSTEM_HANDLE_INFORMATION> answer(size / sizeof(SYSTEM_HANDLE_INFORMATION));
    const NTSTATUS status = ::NtQuerySystemInformation(
        SystemHandleInformation, answer.data(),
        static_cast<ULONG>(answer.size() * sizeof(SYSTEM_HANDLE_INFORMATION)), nullptr);
    if (status == kTooSmall) continue;
    if (status != 0) return 0;
    const std::span handles(&answer.front().Handle[0], answer.front().Count);
    return static_cast<unsigned long>(std::count_if(
        handles.begin(), handles.end(),
        [process](const SYSTEM_HANDLE_ENTRY& handle) { return handle.OwnerPid == process; }));
  }
  return 0;
}

}  // namespace qvl::test
