#include "access/remote_call_helper/call_status.h"

#include <gtest/gtest.h>

namespace qvl {
namespace {

TEST(CallStatusTest, AFaultIsWhatACallerOnWindowsGets) {
  EXPECT_EQ(StatusOfFault(0x1C010002), kProcedureOutOfRange);
  EXPECT_EQ(StatusOfFault(0x1C010003), kUnknownInterface);
  EXPECT_EQ(StatusOfFault(0x1C010014), 1723U);
  EXPECT_EQ(StatusOfFault(0x1C00001D), kAccessDenied);
  EXPECT_EQ(StatusOfFault(5), kAccessDenied);
  EXPECT_EQ(StatusOfFault(1783), kBadStubData);
}

TEST(CallStatusTest, AServicesOwnFaultStaysAsItIs) {
  EXPECT_EQ(StatusOfFault(RM_E_NO_DRIVER), RM_E_NO_DRIVER);
  EXPECT_EQ(StatusOfFault(0x12345678), 0x12345678U);
}

TEST(CallStatusTest, ARefusedLogonIsARefusedCall) {
  for (const std::uint32_t failure : {0xC0000022U, 0xC000006DU, 0xC0000064U, 0xC0000072U,
                                      0xC0000234U, 0xC0000193U, 0xC00000CAU}) {
    EXPECT_EQ(StatusOfFailedConnect(failure), kAccessDenied) << std::hex << failure;
  }
}

TEST(CallStatusTest, ARefusedInterfaceIsAnotherVersionOfTheService) {
  EXPECT_TRUE(IsRefusedSyntax(0xC0020026));
  EXPECT_EQ(StatusOfFailedConnect(0xC0020026), kUnknownInterface);
}

TEST(CallStatusTest, AnythingElseBeforeTheFirstCallIsNoService) {
  // No server (which Samba tells as lack of memory), silence, no pipe, nobody behind the pipe.
  for (const std::uint32_t failure :
       {0xC0000017U, 0xC00000B5U, 0xC0000034U, 0xC000000FU, 0xC0000236U, 0xC000020CU}) {
    EXPECT_FALSE(IsRefusedSyntax(failure));
    EXPECT_EQ(StatusOfFailedConnect(failure), kServerUnavailable) << std::hex << failure;
  }
}

TEST(CallStatusTest, ALostConnectionFailsTheCall) {
  EXPECT_EQ(StatusOfFailedCall(0xC000020C), kCallFailed);
  EXPECT_EQ(StatusOfFailedCall(0xC00000B5), kCallFailed);
  EXPECT_EQ(StatusOfFailedCall(0xC0000022), kAccessDenied);
}

}  // namespace
}  // namespace qvl
