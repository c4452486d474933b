#include "trial/trial_options.h"

#include <gtest/gtest.h>

#include <iterator>
#include <sstream>

namespace qvl {
namespace {

struct Parsed {
  std::optional<int> ended;
  TrialOptions options;
  std::string text;
};

Parsed Parse(const std::vector<std::string>& arguments) {
  Parsed parsed;
  parsed.ended = ParseTrialOptions(arguments, parsed.options, parsed.text);
  return parsed;
}

std::vector<std::string> Words(const std::string& line) {
  std::istringstream stream(line);
  return {std::istream_iterator<std::string>(stream), {}};
}

TEST(TrialOptionsTest, ALogAloneMakesAHealthyService) {
  const Parsed parsed = Parse({"log.qvx"});
  ASSERT_FALSE(parsed.ended) << parsed.text;
  const TrialOptions& options = parsed.options;
  EXPECT_EQ(options.logPath, "log.qvx");
  EXPECT_FALSE(options.notAdministrator || options.noLog || options.noDriver);
  EXPECT_FALSE(options.refuseNote || options.refuseClear || options.refuseRepair);
  EXPECT_TRUE(options.failCalls.empty() && options.failEntries.empty());
  EXPECT_EQ(options.sparseStep, 1U);
  EXPECT_EQ(options.interfaceMajor, 2);
  EXPECT_EQ(options.interfaceMinor, 0);
  EXPECT_EQ(options.ntlmHelper, "ntlm_auth");
}

TEST(TrialOptionsTest, EverySwitchIsTaken) {
  const Parsed parsed = Parse(
      Words("--not-administrator --no-log --no-driver --refuse-note --refuse-clear --refuse-repair "
            "--fail-call 3=5 --fail-call 4=0xE0000002 --fail-entry 17=1726 --die-in-call 9 "
            "--delay 250 --sparse 10 --number-falls-back 6 --interface-version 3.1 "
            "--event-every 1000 --log-call calls --ready ready --end-with-input --socket /s "
            "--require-rpc-auth --ntlm-helper helper log.qvx"));
  ASSERT_FALSE(parsed.ended) << parsed.text;
  const TrialOptions& options = parsed.options;
  EXPECT_TRUE(options.notAdministrator && options.noLog && options.noDriver);
  EXPECT_TRUE(options.refuseNote && options.refuseClear && options.refuseRepair);
  const std::map<std::uint64_t, RemoteStatus> calls = {
      {3, 5             },
      {4, RM_E_NO_DRIVER}
  };
  EXPECT_EQ(options.failCalls, calls);
  const std::map<std::uint32_t, RemoteStatus> entries = {
      {17, 1726}
  };
  EXPECT_EQ(options.failEntries, entries);
  EXPECT_EQ(options.dieInCall, 9U);
  EXPECT_EQ(options.delay.count(), 250);
  EXPECT_EQ(options.sparseStep, 10U);
  EXPECT_EQ(options.numberFallsBackAt, 6U);
  EXPECT_EQ(options.interfaceMajor, 3);
  EXPECT_EQ(options.interfaceMinor, 1);
  EXPECT_EQ(options.eventEvery.count(), 1000);
  EXPECT_EQ(options.callLogPath, "calls");
  EXPECT_EQ(options.readyPath, "ready");
  EXPECT_TRUE(options.endWithInput && options.requireRpcAuth);
  EXPECT_EQ(options.socketPath, "/s");
  EXPECT_EQ(options.ntlmHelper, "helper");
  EXPECT_EQ(options.logPath, "log.qvx");
}

constexpr const char* kMistakes[] = {
    "",
    "--unknown log.qvx",
    "a.qvx b.qvx",
    "--fail-call 3 log.qvx",
    "--fail-call =5 log.qvx",
    "--fail-call 3= log.qvx",
    "--fail-call 3=0x log.qvx",
    "--fail-call 3=0x123456789 log.qvx",
    "--fail-call -1=5 log.qvx",
    "--fail-call 0=5 log.qvx",
    "--fail-call 1=5 --fail-call 0=5 log.qvx",
    "--fail-call 3=0 log.qvx",
    "--fail-entry 17=0x0 log.qvx",
    "--fail-entry 4294967296=5 log.qvx",
    "--die-in-call 0 log.qvx",
    "--delay 1s log.qvx",
    "--delay 99999999999 log.qvx",
    "--sparse 0 log.qvx",
    "--interface-version 2 log.qvx",
    "--interface-version 2.70000 log.qvx",
};

TEST(TrialOptionsTest, MistakesEndWithTheUsageStatusAndNameWhatIsWrong) {
  for (const char* const line : kMistakes) {
    const Parsed parsed = Parse(Words(line));
    ASSERT_TRUE(parsed.ended) << line;
    EXPECT_EQ(*parsed.ended, 2) << line;
    EXPECT_FALSE(parsed.text.empty());
  }
}

TEST(TrialOptionsTest, WhatWouldNeverFailIsRefused) {
  const std::string call = Parse(Words("--fail-call 0=5 log.qvx")).text;
  EXPECT_NE(call.find("'0=5': the first number is 1"), std::string::npos) << call;
  const std::string status = Parse(Words("--fail-call 3=0 log.qvx")).text;
  EXPECT_NE(status.find("'3=0': the status 0 is no failure"), std::string::npos) << status;
}

TEST(TrialOptionsTest, EntryZeroIsWhatTheFirstReadAsksFor) {
  const Parsed parsed = Parse(Words("--fail-entry 0=5 log.qvx"));
  ASSERT_FALSE(parsed.ended) << parsed.text;
  EXPECT_TRUE(parsed.options.failEntries.contains(0));
}

TEST(TrialOptionsTest, HelpAndVersionEndWithSuccess) {
  const Parsed help = Parse({"--help"});
  EXPECT_EQ(help.ended, 0);
  EXPECT_NE(help.text.find("--number-falls-back"), std::string::npos);
  const Parsed version = Parse({"--version"});
  EXPECT_EQ(version.ended, 0);
  EXPECT_TRUE(version.text.starts_with("zlkrcmc-trial ")) << version.text;
}

}  // namespace
}  // namespace qvl
