#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <fstream>
#include <map>
#include <set>
#include <string>

#include "decoders/decoders.h"
#include "decoders/rows.h"
#include "entries/event_description.h"
#include "entries/field_formatters.h"
#include "entries/text_sink.h"
#include "tests/support/golden.h"

namespace qvl {
namespace {

using testing::GoldenDescription;

class GoldenDescriptions : public ::testing::TestWithParam<std::string> {};

TEST_P(GoldenDescriptions, ReadAsWritten) {
  const std::vector<GoldenDescription> goldens = testing::ReadGoldenDescriptions(GetParam());
  ASSERT_FALSE(goldens.empty());
  for (const GoldenDescription& golden : goldens) {
    std::array<char, kDescriptionSize> out;
    out.fill('x');
    const int result = FormatEventDescription(golden.eventClass, golden.code,
                                              EventData(golden.data), out.data(), out.size());
    EXPECT_STREQ(out.data(), golden.text.c_str()) << golden.where;
    EXPECT_EQ(result, golden.result) << golden.where;
  }
}

INSTANTIATE_TEST_SUITE_P(Families, GoldenDescriptions,
                         ::testing::ValuesIn(testing::GoldenDescriptionFiles()),
                         [](const ::testing::TestParamInfo<std::string>& file) {
                           return file.param.substr(0, file.param.find('.'));
                         });

// Not a test of the program: writes the golden files anew where scripts/update_goldens asks for
// it, and without that checks that the rewriting keeps the files as they are.
TEST(GoldenUpdate, RewritesWhatTheDecodersSay) {
  const char* const folder = std::getenv("QVL_GOLDEN_OUT");
  for (const std::string& file : testing::GoldenDescriptionFiles()) {
    const std::string rewritten = testing::RewrittenGoldenDescriptions(
        file, [](const GoldenDescription& golden, int& result) {
          std::array<char, kDescriptionSize> out;
          result = FormatEventDescription(golden.eventClass, golden.code, EventData(golden.data),
                                          out.data(), out.size());
          return std::string(out.data());
        });
    if (folder == nullptr) {
      EXPECT_EQ(rewritten, testing::ReadTestFile("golden/descriptions/" + file));
    } else {
      std::ofstream(std::string(folder) + "/" + file, std::ios::binary) << rewritten;
    }
  }
}

class ReachedRows : public RowObserver {
 public:
  void Reached(const void* row) override { rows_.insert(row); }
  bool Has(const void* row) const { return rows_.contains(row); }

 private:
  std::set<const void*> rows_;
};

// Every message and every name of every table must be what some golden description shows.
TEST(GoldenCoverage, ReachesEveryRowOfEveryTable) {
  std::map<std::uint16_t, Decoder> decoders;
  for (const ClassDecoder& decoder : ClassDecoders()) {
    decoders[decoder.eventClass] = decoder.describe;
  }
  ReachedRows reached;
  for (const std::string& file : testing::GoldenDescriptionFiles()) {
    for (const GoldenDescription& golden : testing::ReadGoldenDescriptions(file)) {
      const auto decoder = decoders.find(golden.eventClass);
      if (decoder == decoders.end()) continue;
      std::array<char, kDescriptionSize> out;
      TextSink sink(out.data(), out.size(), &reached);
      decoder->second(golden.code, EventData(golden.data), sink);
    }
  }
  TableEntries entries;
  ListEnvironmentTables(entries);
  ListMemoryTables(entries);
  ListProcessorBusTables(entries);
  ListPowerTables(entries);
  ListSystemTables(entries);
  ListInfrastructureTables(entries);
  ListNodeControllerTables(entries);
  entries.Add(LocationNames());
  entries.Add(UpperLowerNames());
  entries.Add(StorageEnclosureSides());
  EXPECT_GT(entries.all().size(), 500U);
  for (const TableEntry& entry : entries.all()) {
    EXPECT_TRUE(reached.Has(entry.row)) << "no golden description shows: " << entry.text;
  }
}

}  // namespace
}  // namespace qvl
