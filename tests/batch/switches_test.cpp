#include "batch/switches.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "batch/batch_runner.h"

namespace qvl {
namespace {

struct Case {
  std::string_view argument;
  SwitchKind kind;
  std::string_view value;
};

TEST(ParseSwitch, ReadsEverySwitchWithEitherPrefix) {
  constexpr Case kCases[] = {
      {"f:log",     SwitchKind::kRunLog,    "log"   },
      {"m:server",  SwitchKind::kMachine,   "server"},
      {"save:a",    SwitchKind::kSave,      "a"     },
      {"export:b",  SwitchKind::kExport,    "b"     },
      {"p",         SwitchKind::kPrint,     ""      },
      {"p:c",       SwitchKind::kReport,    "c"     },
      {"clear",     SwitchKind::kClear,     ""      },
      {"ackalerts", SwitchKind::kAckAlerts, ""      },
      {"note:text", SwitchKind::kNote,      "text"  },
  };
  for (const Case& each : kCases) {
    for (const char prefix : {'/', '-'}) {
      const std::string argument = prefix + std::string(each.argument);
      const Switch found = ParseSwitch(argument);
      EXPECT_EQ(found.kind, each.kind) << argument;
      EXPECT_EQ(found.value, each.value) << argument;
    }
  }
}

TEST(ParseSwitch, ComparesKeywordsInAnyCase) {
  constexpr Case kCases[] = {
      {"/SAVE:x",       SwitchKind::kSave,      "x"         },
      {"-Save:x",       SwitchKind::kSave,      "x"         },
      {"/EXPORT:X",     SwitchKind::kExport,    "X"         },
      {"-P",            SwitchKind::kPrint,     ""          },
      {"/P:Report.TXT", SwitchKind::kReport,    "Report.TXT"},
      {"/CLEAR",        SwitchKind::kClear,     ""          },
      {"-AckAlerts",    SwitchKind::kAckAlerts, ""          },
      {"/Note:Hello",   SwitchKind::kNote,      "Hello"     },
      {"/F:L",          SwitchKind::kRunLog,    "L"         },
      {"-M:Srv",        SwitchKind::kMachine,   "Srv"       },
  };
  for (const Case& each : kCases) {
    const Switch found = ParseSwitch(each.argument);
    EXPECT_EQ(found.kind, each.kind) << each.argument;
    EXPECT_EQ(found.value, each.value) << each.argument;
  }
}

// What a user types after the keyword is not looked at: /clearall has always cleared.
TEST(ParseSwitch, TakesAnythingBehindClearAndAckAlerts) {
  EXPECT_EQ(ParseSwitch("/clearall").kind, SwitchKind::kClear);
  EXPECT_EQ(ParseSwitch("/clear:").kind, SwitchKind::kClear);
  EXPECT_EQ(ParseSwitch("-clear the log").kind, SwitchKind::kClear);
  EXPECT_EQ(ParseSwitch("/ackalertsnow").kind, SwitchKind::kAckAlerts);
  EXPECT_EQ(ParseSwitch("/ackalerts:1").kind, SwitchKind::kAckAlerts);
}

TEST(ParseSwitch, ValuesRunToTheEndOfTheArgument) {
  EXPECT_EQ(ParseSwitch("/save:/home/ada/a b:c").value, "/home/ada/a b:c");
  EXPECT_EQ(ParseSwitch("/note: leading blank").value, " leading blank");
  EXPECT_EQ(ParseSwitch("/m:\\\\server").value, "\\\\server");
  EXPECT_EQ(ParseSwitch("/p:/p").value, "/p");
  EXPECT_EQ(ParseSwitch("/f::").value, ":");
}

TEST(ParseSwitch, RefusesWhatIsNoSwitch) {
  for (const std::string_view argument :
       {"",      "/",       "-",       "f:log",   "save:x",     "clear",     "+clear",
        "/f",    "/f:",     "/m",      "/m:",     "/save",      "/save:",    "/export:",
        "/p:",   "/px",     "/p x",    "/note",   "/note:",     "/clea",     "/ackalert",
        "//p",   "--clear", "/ p",     "/sav:x",  "/saved:",    "/savex:a",  "/notes:a",
        "/help", "/?",      " /clear", "\\clear", "/machine:x", "/exports:a"}) {
    EXPECT_EQ(ParseSwitch(argument).kind, SwitchKind::kUnknown) << argument;
  }
}

// Lower-casing is that of ASCII: a Turkish or Greek letter is no letter of a keyword.
TEST(ParseSwitch, KnowsNoLettersBeyondAscii) {
  EXPECT_EQ(ParseSwitch("/\xC4\xB1\xC4\xB1").kind, SwitchKind::kUnknown);
  EXPECT_EQ(ParseSwitch("/\xD3lear").kind, SwitchKind::kUnknown);
  EXPECT_EQ(ParseSwitch("/save:\xE3\x83\xAD\xE3\x82\xB0").value, "\xE3\x83\xAD\xE3\x82\xB0");
}

TEST(WithExtension, AppendsOnlyWhereThereIsNoPointAnywhere) {
  EXPECT_EQ(WithExtension("out", ".qvx"), "out.qvx");
  EXPECT_EQ(WithExtension("log.v1", ".qvx"), "log.v1");
  EXPECT_EQ(WithExtension(".", ".qvx"), ".");
  EXPECT_EQ(WithExtension("ends.", ".qvx"), "ends.");
  EXPECT_EQ(WithExtension("../out", ".csv"), "../out");
  EXPECT_EQ(WithExtension("/srv/logs.d/out", ".csv"), "/srv/logs.d/out");
  EXPECT_EQ(WithExtension("/srv/logs/out", ".csv"), "/srv/logs/out.csv");
}

TEST(IsBatchCommandLine, LooksAtTheFirstCharacterOfTheFirstArgument) {
  EXPECT_TRUE(IsBatchCommandLine({"/m:server"}));
  EXPECT_TRUE(IsBatchCommandLine({"-"}));
  EXPECT_TRUE(IsBatchCommandLine({"/nonsense", "x"}));
  EXPECT_TRUE(IsBatchCommandLine({"/home/ada/a.qvx"}));
  EXPECT_FALSE(IsBatchCommandLine({}));
  EXPECT_FALSE(IsBatchCommandLine({""}));
  EXPECT_FALSE(IsBatchCommandLine({"a.qvx", "/clear"}));
  EXPECT_FALSE(IsBatchCommandLine({" /clear"}));
}

}  // namespace
}  // namespace qvl
