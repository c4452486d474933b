#ifndef QVL_TESTS_TRIAL_HANDSHAKE_DATA_H_
#define QVL_TESTS_TRIAL_HANDSHAKE_DATA_H_

#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <string>
#include <vector>

namespace qvl::testing {

/// What a smbd of Samba 4.17 sent for its user TRIALHOST\root.
inline std::vector<std::uint8_t> RealRequest() {
  std::ifstream file(QVL_TEST_DATA_DIR "/handshake_level7.hex");
  std::vector<std::uint8_t> bytes;
  std::string line;
  while (std::getline(file, line)) {
    for (std::size_t i = 0; i + 1 < line.size(); i += 2) {
      bytes.push_back(static_cast<std::uint8_t>(std::stoi(line.substr(i, 2), nullptr, 16)));
    }
  }
  EXPECT_EQ(bytes.size(), 741U);
  return bytes;
}

}  // namespace qvl::testing

#endif  // QVL_TESTS_TRIAL_HANDSHAKE_DATA_H_
