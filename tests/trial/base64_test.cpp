#include "trial/base64.h"

#include <gtest/gtest.h>

namespace qvl {
namespace {

WireBytes Bytes(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

struct Pair {
  std::string_view plain;
  std::string_view encoded;
};

// RFC 4648, section 10, and the two digits that are no letters.
constexpr Pair kPairs[] = {
    {"",       ""        },
    {"f",      "Zg=="    },
    {"fo",     "Zm8="    },
    {"foo",    "Zm9v"    },
    {"foob",   "Zm9vYg=="},
    {"fooba",  "Zm9vYmE="},
    {"foobar", "Zm9vYmFy"},
    {"~~?~?>", "fn4/fj8+"},
};

TEST(Base64Test, WritesAndReadsTheSame) {
  for (const Pair& pair : kPairs) {
    EXPECT_EQ(ToBase64(Bytes(pair.plain)), pair.encoded);
    std::vector<std::uint8_t> decoded;
    EXPECT_TRUE(FromBase64(pair.encoded, decoded));
    EXPECT_EQ(std::string(decoded.begin(), decoded.end()), pair.plain);
  }
}

TEST(Base64Test, RefusesWhatNoEncoderWrites) {
  for (const std::string_view text :
       {"Z", "Zg=", "Zg", "Z===", "====", "Zg==Zg==", "Zm\n8", "Zm-8"}) {
    std::vector<std::uint8_t> decoded = {1};
    EXPECT_FALSE(FromBase64(text, decoded)) << text;
    EXPECT_TRUE(decoded.empty());
  }
}

}  // namespace
}  // namespace qvl
