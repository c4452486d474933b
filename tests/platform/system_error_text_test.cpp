#include "platform/system_error_text.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace qvl {
namespace {

TEST(SystemErrorText, KnowsTheCodesOfARemoteCallWithoutTheirLineEnd) {
  for (const std::uint32_t code :
       {2U,    5U,    8U,    14U,   50U,   53U,   64U,   65U,   67U,   71U,   86U,   87U,
        109U,  121U,  231U,  233U,  1219U, 1311U, 1326U, 1327U, 1330U, 1331U, 1332U, 1355U,
        1396U, 1398U, 1702U, 1703U, 1707U, 1710U, 1715U, 1717U, 1721U, 1722U, 1723U, 1726U,
        1727U, 1728U, 1730U, 1734U, 1745U, 1747U, 1748U, 1753U, 1766U, 1783U, 1818U, 1825U}) {
    const std::string text = TextOfErrorCode(code);
    EXPECT_FALSE(text.empty()) << code;
    EXPECT_LT(text.size(), 260U) << code;
    EXPECT_EQ(text.find_first_of("\r\n"), std::string::npos) << code << ": " << text;
  }
}

TEST(SystemErrorText, IsEmptyForCodesWithoutAText) {
  EXPECT_EQ(TextOfErrorCode(0xE0000003), "");
  EXPECT_EQ(TextOfErrorCode(0xFFFFFFFF), "");
  EXPECT_EQ(TextOfErrorCode(0xFFFE), "");
}

#ifndef _WIN32

struct ErrorRow {
  std::uint32_t code;
  const char* text;
};

// Windows' own wording. It is not asked for under Wine, which words its texts differently.
constexpr ErrorRow kRows[] = {
    {5,    "Access is denied."                                     },
    {53,   "The network path was not found."                       },
    {87,   "The parameter is incorrect."                           },
    {1326, "The user name or password is incorrect."               },
    {1726, "The remote procedure call failed."                     },
    {1727, "The remote procedure call failed and did not execute." },
    {1728, "A remote procedure call (RPC) protocol error occurred."},
    {1745, "The procedure number is out of range."                 },
    {1747, "The authentication service is unknown."                },
    {1783, "The stub received bad data."                           },
    {1825, "A security package specific error occurred."           },
};

TEST(SystemErrorText, IsWindowsOwnWording) {
  for (const ErrorRow& row : kRows) EXPECT_EQ(TextOfErrorCode(row.code), row.text) << row.code;
}

#endif

}  // namespace
}  // namespace qvl
