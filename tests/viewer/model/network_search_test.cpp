#include "viewer/model/network_search.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace qvl {
namespace {

using Names = std::vector<std::string>;

TEST(MachineOfAvahiLine, TakesTheHostOfAServiceThatAnswered) {
  EXPECT_EQ(MachineOfAvahiLine("=;eth0;IPv4;SRV1\\032files;_smb._tcp;local;srv1.local;192.0.2.7;"
                               "445;\"a=b;c\""),
            "srv1.local");
  EXPECT_EQ(MachineOfAvahiLine("=;eth0;IPv4;x;_smb._tcp;local;rack\\04512.local;192.0.2.7;445;"),
            "rack-12.local");
}

TEST(MachineOfAvahiLine, LeavesOutServicesThatCameAndWentAndLinesThatAreCut) {
  for (const char* const line :
       {"", "+;eth0;IPv4;SRV1;_smb._tcp;local", "-;eth0;IPv4;SRV1;_smb._tcp;local", "=",
        "=;eth0;IPv4;SRV1;_smb._tcp;local", "Failed to create client object"}) {
    EXPECT_EQ(MachineOfAvahiLine(line), "") << line;
  }
}

TEST(MachineOfAvahiLine, KeepsABackslashThatBeginsNoByte) {
  EXPECT_EQ(MachineOfAvahiLine("=;e;4;n;t;d;a\\12;"), "a\\12");
  EXPECT_EQ(MachineOfAvahiLine("=;e;4;n;t;d;a\\999;"), "a\\999");
  EXPECT_EQ(MachineOfAvahiLine("=;e;4;n;t;d;a\\"), "a\\");
}

TEST(MachineOfTreeLine, TakesServersAndNeitherGroupsNorShares) {
  EXPECT_EQ(MachineOfTreeLine("\t\\\\SRV1           \t\tFirst server"), "SRV1");
  EXPECT_EQ(MachineOfTreeLine("\t\\\\SRV2"), "SRV2");
  for (const char* const line :
       {"", "WORKGROUP", "\t\t\\\\SRV1\\public          \tFiles", "\t", "\\SRV1", "\t\\\\"}) {
    EXPECT_EQ(MachineOfTreeLine(line), "") << line;
  }
}

TEST(SearchOutput, JoinsLinesThatComeInPieces) {
  SearchOutput output(MachineOfTreeLine);
  EXPECT_EQ(output.Add("WORKGROUP\n\t\\\\SR"), Names());
  EXPECT_EQ(output.Add("V1 \tFirst\r\n\t\\\\SRV2\n\t\\\\SRV3"), (Names{"SRV1", "SRV2"}));
  EXPECT_EQ(output.Add(""), Names());
  EXPECT_EQ(output.End(), Names{"SRV3"});
  EXPECT_EQ(output.End(), Names());
}

TEST(SearchOutput, LeavesOutNamesThatNoMachineHas) {
  SearchOutput output(MachineOfAvahiLine);
  const auto named = [&output](const std::string& host) {
    return output.Add("=;e;4;n;t;d;" + host + ";\n");
  };
  EXPECT_EQ(named(std::string(253, 'a')), Names{std::string(253, 'a')});
  EXPECT_EQ(named("b\xC3\xBC"
                  "ro.local"),
            Names{"b\xC3\xBC"
                  "ro.local"});
  for (const std::string& host :
       {std::string(), std::string(254, 'a'), std::string("a\\032b"), std::string("a\\010b"),
        std::string("a\\000b"), std::string("a/b"), std::string("a\\255b"), std::string("a\x7F")}) {
    EXPECT_EQ(named(host), Names()) << host;
  }
}

TEST(SearchOutput, DropsALineThatDoesNotEndAndTakesTheNextOne) {
  SearchOutput output(MachineOfTreeLine);
  const std::string piece = "\\\\" + std::string(1000, 'x');
  for (int i = 0; i < 1000; ++i) EXPECT_EQ(output.Add(piece), Names());
  EXPECT_EQ(output.Add("\n\\\\SRV1\n"), Names{"SRV1"});
}

TEST(SearchPrograms, AreAskedForWhatTheirReadersUnderstand) {
  ASSERT_EQ(SearchPrograms().size(), 3U);
  for (const SearchProgram& program : SearchPrograms()) {
    const std::string command(program.command);
    const bool isAvahi = command.starts_with("avahi-browse -prtk ");
    EXPECT_EQ(program.machineOf, isAvahi ? MachineOfAvahiLine : MachineOfTreeLine) << command;
  }
}

}  // namespace
}  // namespace qvl
