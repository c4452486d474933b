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

struct Range {
  char32_t first;
  char32_t last;
};

// Coarser than the table where it says the same of what is assigned.
constexpr Range kWide[] = {
    {0x1100,  0x115F },
    {0x2E80,  0x303E },
    {0x3041,  0x33FF },
    {0x3400,  0x4DBF },
    {0x4E00,  0xA4CF },
    {0xA960,  0xA97F },
    {0xAC00,  0xD7A3 },
    {0xF900,  0xFAFF },
    {0xFE10,  0xFE19 },
    {0xFE30,  0xFE6F },
    {0xFF01,  0xFF60 },
    {0xFFE0,  0xFFE6 },
    {0x1F300, 0x1F64F},
    {0x1F900, 0x1F9FF},
    {0x20000, 0x3FFFD},
};

bool IsWide(char32_t point) {
  for (const Range& range : kWide) {
    if (point >= range.first && point <= range.last) return true;
  }
  return false;
}

char32_t CodePoint(std::string_view sequence) {
  constexpr std::array<unsigned, 5> kFirstBits = {0, 0x7F, 0x1F, 0x0F, 0x07};
  char32_t point = static_cast<std::uint8_t>(sequence[0]) & kFirstBits[sequence.size()];
  for (const char c : sequence.substr(1)) {
    point = point << 6U | (static_cast<std::uint8_t>(c) & 0x3FU);
  }
  return point;
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

std::size_t TextColumns(std::string_view bytes) {
  const std::string text = Utf8FromText(bytes);
  std::size_t columns = 0;
  for (std::string_view rest = text; !rest.empty();) {
    const std::string_view sequence = rest.substr(0, SequenceLength(rest));
    columns += IsWide(CodePoint(sequence)) ? 2U : 1U;
    rest.remove_prefix(sequence.size());
  }
  return columns;
}

}  // namespace qvl
