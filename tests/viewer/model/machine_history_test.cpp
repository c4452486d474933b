#include "viewer/model/machine_history.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace qvl {
namespace {

using Names = std::vector<std::string>;

Names After(const Names& names, const std::string& name) {
  MachineHistory history;
  history.Assign(names);
  history.Add(name);
  return history.names();
}

Names Ten() {
  Names names;
  for (char c = 'a'; c < 'a' + 10; ++c) names.emplace_back(1, c);
  return names;
}

TEST(MachineHistory, PutsTheNewestFirst) {
  EXPECT_EQ(After({}, "A"), Names{"A"});
  EXPECT_EQ(After({"A", "B"}, "C"), (Names{"C", "A", "B"}));
}

TEST(MachineHistory, MovesAKnownNameToTheHeadWhateverItsCase) {
  EXPECT_EQ(After({"A", "srv", "C"}, "SRV"), (Names{"SRV", "A", "C"}));
}

// A prefix search on purpose: the first name that begins with the new one goes.
TEST(MachineHistory, TakesOutTheFirstNameThatBeginsWithTheNewOne) {
  EXPECT_EQ(After({"A", "srv12", "SRV1", "C"}, "SRV1"), (Names{"SRV1", "A", "SRV1", "C"}));
  EXPECT_EQ(After({"SRV"}, "SRV1"), (Names{"SRV1", "SRV"}));
}

TEST(MachineHistory, DropsTheTenthNameOnlyWhereNoneMadeRoom) {
  Names expected = Ten();
  expected.pop_back();
  expected.insert(expected.begin(), "NEW");
  EXPECT_EQ(After(Ten(), "NEW"), expected);

  expected = Ten();
  expected.erase(expected.begin() + 2);
  expected.insert(expected.begin(), "C");
  EXPECT_EQ(After(Ten(), "C"), expected);
}

TEST(MachineHistory, HoldsNoMoreThanTen) {
  Names many = Ten();
  many.emplace_back("k");
  many.emplace_back("l");
  MachineHistory history;
  history.Assign(many);
  EXPECT_EQ(history.names(), Ten());
}

}  // namespace
}  // namespace qvl
