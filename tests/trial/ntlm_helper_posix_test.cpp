#include "trial/ntlm_helper.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/files/file_fixtures.h"

namespace qvl {
namespace {

using testing::TemporaryFile;

WireBytes Bytes(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

/// A program in the place of Samba's: a shell script.
class NtlmHelperTest : public ::testing::Test {
 protected:
  std::unique_ptr<NtlmLogon> Logon(const std::string& script) {
    program_.Write("#!/bin/sh\n[ \"$1\" = --helper-protocol=squid-2.5-ntlmssp ] || exit 9\n" +
                   script);
    std::filesystem::permissions(program_.path(), std::filesystem::perms::owner_all);
    return MakeNtlmLogon(program_.path());
  }

  bool Challenge(NtlmLogon& logon) { return logon.Challenge(Bytes("negotiate"), challenge_); }
  bool Verify(NtlmLogon& logon) { return logon.Verify(Bytes("authenticate"), who_); }

  TemporaryFile program_{".sh"};
  std::vector<std::uint8_t> challenge_;
  std::string who_;
};

TEST_F(NtlmHelperTest, PassesBothStepsOnAndBack) {
  const auto logon = Logon(
      "read -r command token && [ \"$command $token\" = 'YR bmVnb3RpYXRl' ] || exit\n"
      "echo TT Y2hhbGxlbmdl\n"
      "read -r command token && [ \"$command $token\" = 'KK YXV0aGVudGljYXRl' ] || exit\n"
      "printf '%s\\n' 'AF TRIAL\\ada'\n");
  ASSERT_TRUE(Challenge(*logon));
  EXPECT_EQ(std::string(challenge_.begin(), challenge_.end()), "challenge");
  ASSERT_TRUE(Verify(*logon));
  EXPECT_EQ(who_, "TRIAL\\ada");
}

TEST_F(NtlmHelperTest, ARefusalProvesNobody) {
  const auto logon =
      Logon("read -r x; echo TT AAAA; read -r x; echo NA NT_STATUS_WRONG_PASSWORD\n");
  ASSERT_TRUE(Challenge(*logon));
  EXPECT_FALSE(Verify(*logon));
  EXPECT_TRUE(who_.empty());
  // The logon is decided; its process is gone.
  EXPECT_FALSE(Verify(*logon));
}

TEST_F(NtlmHelperTest, AnythingElseProvesNobody) {
  for (const char* const script :
       {"exit 1\n", "read -r x; exit 1\n", "read -r x; echo BH not now\n",
        "read -r x; echo TT ***\n", "read -r x; printf 'TT AAAA'\n", "head -c 100000 /dev/zero\n",
        "echo\n"}) {
    const auto logon = Logon(script);
    EXPECT_FALSE(Challenge(*logon)) << script;
    EXPECT_FALSE(Verify(*logon)) << script;
  }
}

TEST_F(NtlmHelperTest, AMissingProgramProvesNobody) {
  const auto logon = MakeNtlmLogon(program_.path() + ".missing");
  EXPECT_FALSE(Challenge(*logon));
}

TEST_F(NtlmHelperTest, ALogonThatIsDroppedWaitsForNothing) {
  auto logon = Logon("read -r x; echo TT AAAA; exec sleep 3600\n");
  ASSERT_TRUE(Challenge(*logon));
  logon.reset();
}

}  // namespace
}  // namespace qvl
