#include <gtest/gtest.h>

#include "files/log_file.h"
#include "tests/files/file_fixtures.h"

namespace qvl {
namespace {

// The device takes no byte, as a full disk does.
TEST(SaveLogFile, ReportsAFullDisk) {
  EntryList list;
  for (const std::size_t count : {0U, 1U, 5000U}) {
    while (list.size() < count) list.Append(testing::Record(1, 2, 3));
    const Status status = SaveLogFile("/dev/full", list);
    EXPECT_FALSE(status.ok()) << count << " entries";
    EXPECT_NE(status.message().find("/dev/full"), std::string::npos) << status.message();
  }
}

}  // namespace
}  // namespace qvl
