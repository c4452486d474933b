#ifndef QVL_TESTS_SUPPORT_GOLDEN_H_
#define QVL_TESTS_SUPPORT_GOLDEN_H_

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "entries/event_data.h"

namespace qvl::testing {

/// One case of a file of golden descriptions: a record's class, code and data, and what it reads.
/// The notation is told in tests/golden/README.md.
struct GoldenDescription {
  std::string where;  // file and line, for messages
  std::uint16_t eventClass = 0;
  std::uint16_t code = 0;
  std::array<std::uint8_t, EventData::kSize> data{};
  std::string text;
  int result = 1;
};

/// The names of all files of golden descriptions.
std::vector<std::string> GoldenDescriptionFiles();

/// Reads one file; a mistake in its notation is a test failure.
std::vector<GoldenDescription> ReadGoldenDescriptions(const std::string& file);

/// The text of one file with every expected line written anew from `describe`, which gives a
/// record's description; comments and records stay as they are. For scripts/update_goldens.
std::string RewrittenGoldenDescriptions(
    const std::string& file,
    const std::function<std::string(const GoldenDescription&, int& result)>& describe);

/// A file of the tests' data, whole. Missing files are a test failure.
std::string ReadTestFile(const std::string& pathBelowTests);

}  // namespace qvl::testing

#endif  // QVL_TESTS_SUPPORT_GOLDEN_H_
