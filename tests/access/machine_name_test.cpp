#include "access/machine_name.h"

#include <gtest/gtest.h>

#include <string>

namespace qvl {
namespace {

TEST(MachineName, LosesLeadingBackslashes) {
  EXPECT_EQ(NormaliseMachineName("\\\\server", "HERE"), "SERVER");
  EXPECT_EQ(NormaliseMachineName("\\server", "HERE"), "SERVER");
}

TEST(MachineName, IsUpperCase) {
  EXPECT_EQ(NormaliseMachineName("Server-9.example.com", "HERE"), "SERVER-9.EXAMPLE.COM");
  EXPECT_EQ(NormaliseMachineName("azAZ@[`{", "HERE"), "AZAZ@[`{");
}

TEST(MachineName, LosesBlanksAtBothEnds) {
  EXPECT_EQ(NormaliseMachineName("  server   ", "HERE"), "SERVER");
  EXPECT_EQ(NormaliseMachineName("\\\\ server \\", "HERE"), "SERVER");
}

TEST(MachineName, KeepsABlankInPlaceOfABackslashInside) {
  EXPECT_EQ(NormaliseMachineName("\\\\server\\share", "HERE"), "SERVER SHARE");
  EXPECT_EQ(NormaliseMachineName("a \\ b", "HERE"), "A   B");
}

TEST(MachineName, OtherWhiteSpaceIsPartOfTheName) {
  EXPECT_EQ(NormaliseMachineName("\tserver\n", "HERE"), "\tSERVER\n");
}

TEST(MachineName, ADotIsThisComputer) {
  EXPECT_EQ(NormaliseMachineName(".", "workstation7"), "WORKSTATION7");
  EXPECT_EQ(NormaliseMachineName("\\\\.", "workstation7"), "WORKSTATION7");
  EXPECT_EQ(NormaliseMachineName(" . ", "workstation7"), "WORKSTATION7");
  EXPECT_EQ(NormaliseMachineName(".", ""), "");
  EXPECT_EQ(NormaliseMachineName("..", "workstation7"), "..");
  EXPECT_EQ(NormaliseMachineName(".a", "workstation7"), ".A");
}

TEST(MachineName, NothingLeftIsEmpty) {
  for (const char* const name : {"", " ", "\\", "\\\\", " \\ \\ "}) {
    EXPECT_EQ(NormaliseMachineName(name, "HERE"), "") << '\'' << name << '\'';
  }
}

TEST(MachineName, BytesBeyondAsciiStay) {
  EXPECT_EQ(NormaliseMachineName("b\xC3\xBCro", "HERE"), "B\xC3\xBCRO");
  EXPECT_EQ(NormaliseMachineName("b\xFCro", "HERE"), "B\xFCRO");
}

TEST(MachineName, KeepsAZeroInside) {
  EXPECT_EQ(NormaliseMachineName(std::string_view("a\0b", 3), "HERE"), std::string("A\0B", 3));
}

}  // namespace
}  // namespace qvl
