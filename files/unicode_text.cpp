#include "files/unicode_text.h"

#include <array>
#include <cstdint>

namespace qvl {
namespace {

// Bytes 0x80 to 0x9F of Windows-1252:
// https://www.unicode.org/Public/MAPPINGS/VENDORS/MICSFT/WindowsBestFit/bestfit1252.txt
constexpr std::array<char16_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// The length of the well-formed sequence at `at`, or 0.
std::size_t SequenceLength(std::string_view at) {
  const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(at[i]); };
  const auto continues = [&](std::size_t i) { return i < at.size() && (byte(i) & 0xC0U) == 0x80U; };
  const std::uint8_t first = byte(0);
  if (first < 0x80) return 1;
  if (first >= 0xC2 && first <= 0xDF) return continues(1) ? 2 : 0;
  if (first >= 0xE0 && first <= 0xEF) {
    if (!continues(1) || !continues(2)) return 0;
    if (first == 0xE0 && byte(1) < 0xA0) return 0;
    if (first == 0xED && byte(1) > 0x9F) return 0;
    return 3;
  }
  if (first >= 0xF0 && first <= 0xF4) {
    if (!continues(1) || !continues(2) || !continues(3)) return 0;
    if (first == 0xF0 && byte(1) < 0x90) return 0;
    if (first == 0xF4 && byte(1) > 0x8F) return 0;
    return 4;
  }
  return 0;
}

void AppendCodePoint(char16_t point, std::string& out) {
  if (point < 0x80) {
    out += static_cast<char>(point);
  } else if (point < 0x800) {
    out += static_cast<char>(0xC0 | point >> 6U);
    out += static_cast<char>(0x80 | (point & 0x3F));
  } else {
    out += static_cast<char>(0xE0 | point >> 12U);
    out += static_cast<char>(0x80 | (point >> 6U & 0x3F));
    out += static_cast<char>(0x80 | (point & 0x3F));
  }
}

}  // namespace

bool IsUtf8(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t length = SequenceLength(bytes);
    if (length == 0) return false;
    bytes.remove_prefix(length);
  }
  return true;
}

std::string Utf8FromText(std::string_view bytes) {
  if (IsUtf8(bytes)) return std::string(bytes);
  std::string out;
  out.reserve(bytes.size() + bytes.size() / 2);
  for (const char c : bytes) {
    const auto byte = static_cast<std::uint8_t>(c);
    const bool upperControl = byte >= 0x80 && byte < 0xA0;
    AppendCodePoint(upperControl ? kUpperControls[byte - 0x80U] : byte, out);
  }
  return out;
}

}  // namespace qvl
