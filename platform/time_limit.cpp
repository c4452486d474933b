#include "platform/time_limit.h"

#include <charconv>
#include <cstdlib>
#include <cstring>

namespace qvl {

using std::chrono::milliseconds;

milliseconds TimeLimit(const char* variable, milliseconds standard) {
  constexpr int kLongest = 3'600'000;
  const char* const text = std::getenv(variable);  // NOLINT(concurrency-mt-unsafe): only read
  if (text == nullptr) return standard;
  int value = 0;
  const char* const end = text + std::strlen(text);
  const auto parsed = std::from_chars(text, end, value);
  const bool valid =
      parsed.ec == std::errc() && parsed.ptr == end && value > 0 && value <= kLongest;
  return valid ? milliseconds(value) : standard;
}

}  // namespace qvl
