#include "access/guarded_call_windows.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <rpc.h>

#include <cstdint>
#include <cstdlib>

namespace qvl {
namespace {

std::uint32_t Raise(std::uint32_t code, std::uint32_t flags = 0) {
  ::RaiseException(code, flags, 0, nullptr);
  return 0;
}

// Not inlined, and with registers to keep: what an exception passes on its way out.
[[gnu::noinline]] std::uint32_t RaiseFromWithin(int depth, std::uint32_t code) {
  volatile std::uint32_t kept = code;
  if (depth > 0) return RaiseFromWithin(depth - 1, code) + kept;
  return Raise(code) + kept;
}

TEST(GuardedCall, HandsOnWhatTheCallReturns) {
  EXPECT_EQ(CallGuarded([] { return std::uint32_t{0}; }), 0U);
  EXPECT_EQ(CallGuarded([] { return 0xE0000002U; }), 0xE0000002U);
}

TEST(GuardedCall, ReturnsTheCodeOfARaisedStatus) {
  EXPECT_EQ(CallGuarded([] { return Raise(1722); }), 1722U);
  EXPECT_EQ(CallGuarded([] { return Raise(1); }), 1U);
  EXPECT_EQ(CallGuarded([] { return Raise(0x7FFFFFFF); }), 0x7FFFFFFFU);
}

TEST(GuardedCall, ReturnsWhatTheRemoteCallRunTimeRaises) {
  EXPECT_EQ(CallGuarded([]() -> std::uint32_t {
              ::RpcRaiseException(RPC_S_CALL_FAILED);
              return 0;
            }),
            1726U);
}

TEST(GuardedCall, ComesBackFromDeepBelowWithItsVariablesAsTheyWere) {
  int before = 41;
  std::uint32_t status = 0;
  for (std::uint32_t code = 1700; code < 1800; ++code) {
    status = CallGuarded([&] {
      ++before;
      return RaiseFromWithin(20, code);
    });
    ASSERT_EQ(status, code);
  }
  EXPECT_EQ(before, 141);
}

TEST(GuardedCall, TheInnermostGuardCatches) {
  std::uint32_t inner = 0;
  const std::uint32_t outer = CallGuarded([&] {
    inner = CallGuarded([] { return Raise(1722); });
    return Raise(1726);
  });
  EXPECT_EQ(inner, 1722U);
  EXPECT_EQ(outer, 1726U);
}

TEST(GuardedCall, ReturnsANegativeStatusThatTheRunTimeHandsOn) {
  EXPECT_EQ(CallGuarded([] { return Raise(0xE0000002, EXCEPTION_NONCONTINUABLE); }), 0xE0000002U);
}

// A fault of this program must end it. The exit status of a process that an exception ends is the
// exception's code on Windows; a filter of the whole process stands for that.
LONG WINAPI ExitWithTheLowByte(EXCEPTION_POINTERS* exception) {
  std::_Exit(static_cast<int>(exception->ExceptionRecord->ExceptionCode & 0xFFU));
}

void CallGuardedAndFault(std::uint32_t (*call)(void*)) {
  ::SetUnhandledExceptionFilter(ExitWithTheLowByte);
  CallGuarded(call, nullptr);
}

TEST(GuardedCallDeathTest, LetsAFaultOfTheProgramPass) {
  EXPECT_EXIT(CallGuardedAndFault([](void*) { return Raise(0xC0000005); }),
              ::testing::ExitedWithCode(0x05), "");
  EXPECT_EXIT(CallGuardedAndFault(
                  [](void* nothing) { return *static_cast<volatile std::uint32_t*>(nothing); }),
              ::testing::ExitedWithCode(0x05), "");
}

}  // namespace
}  // namespace qvl
