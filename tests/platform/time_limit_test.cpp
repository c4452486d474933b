#include "platform/time_limit.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace qvl {
namespace {

using std::chrono::milliseconds;

constexpr const char* kVariable = "QVL_TEST_LIMIT_MS";

milliseconds LimitOf(const char* text) {
#ifdef _WIN32
  _putenv_s(kVariable, text);
#else
  ::setenv(kVariable, text, 1);
#endif
  return TimeLimit(kVariable, milliseconds(77));
}

TEST(TimeLimit, IsTheVariablesNumberOfMilliseconds) {
  EXPECT_EQ(LimitOf("1"), milliseconds(1));
  EXPECT_EQ(LimitOf("3600000"), milliseconds(3600000));
}

TEST(TimeLimit, IsTheStandardForAnythingElse) {
  for (const char* const text : {"", "0", "-1", "2x", " 2", "3600001", "99999999999"}) {
    EXPECT_EQ(LimitOf(text), milliseconds(77)) << text;
  }
  EXPECT_EQ(TimeLimit("QVL_NO_SUCH_VARIABLE", milliseconds(77)), milliseconds(77));
}

}  // namespace
}  // namespace qvl
