#include <gtest/gtest.h>
#include <unistd.h>

#include <string>

#include "tests/batch/batch_fixture.h"

namespace qvl {
namespace {

using testing::BatchTest;
using testing::ReadFile;

class BatchPosixTest : public BatchTest {};

// The device takes no byte, as a full disk does.
TEST_F(BatchPosixTest, OnAFullDiskNothingCountsAsWrittenAndNothingIsCleared) {
  ASSERT_EQ(::symlink("/dev/full", "full.disk"), 0);
  EXPECT_EQ(Lines({"/save:full.disk", "/export:full.disk", "/p:full.disk", "/clear"},
                  kBatchExitSwitchFailed),
            "   Failure saving QVX data to file full.disk\n"
            "   Failure exporting QVX data to file full.disk\n"
            "   Couldn't write file 'full.disk'.\n"
            "   Unable to clear the log - attempt(s) to save the log first have failed\n"
            "   Finished!\n"
            "  \n");
  EXPECT_TRUE(machine_.clearedBy.empty());
}

TEST_F(BatchPosixTest, ARunLogOnAFullDiskShowsInTheExitStatus) {
  ASSERT_EQ(::symlink("/dev/full", "full.disk"), 0);
  EXPECT_EQ(Run({"/f:full.disk", "/ackalerts"}), kBatchExitSwitchFailed);
  EXPECT_EQ(Run({"/f:full.disk", "/unknown"}), kBatchExitDidNothing);
}

// Only the first character of an argument is a switch's.
TEST_F(BatchPosixTest, PathsMayBeginWithASlashAndHoldAnyBytes) {
  const std::string path = std::filesystem::current_path().string() + "/odd \xFF name.qvx";
  EXPECT_EQ(Lines({"/save:" + path}, kBatchExitFinished),
            "   Successfully saved QVX data to file " + path + "\n" + kEnd);
  EXPECT_EQ(ReadFile(path).size(), 19U + 3 * 512);
}

}  // namespace
}  // namespace qvl
