#include "tools/qvlog/visible_text.h"

#include <cstdint>

#include "files/unicode_text.h"

namespace qvl {
namespace {

void AppendHexEscape(std::uint8_t byte, std::string& out) {
  static constexpr std::string_view kDigits = "0123456789ABCDEF";
  out += "\\x";
  out += kDigits[byte >> 4U];
  out += kDigits[byte & 15U];
}

bool NeedsCare(std::string_view text) {
  for (const char c : text) {
    const auto byte = static_cast<std::uint8_t>(c);
    if (byte < 0x20 || byte >= 0x7F) return true;
  }
  return false;
}

}  // namespace

std::string VisibleText(std::string_view text) {
  if (!NeedsCare(text)) return std::string(text);
  const std::string utf8 = Utf8FromText(text);
  std::string out;
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    const auto byte = static_cast<std::uint8_t>(utf8[i]);
    const auto next = static_cast<std::uint8_t>(i + 1 < utf8.size() ? utf8[i + 1] : 0);
    if (byte == '\n') {
      out += "\\n";
    } else if (byte == '\t') {
      out += "\\t";
    } else if (byte < 0x20 || byte == 0x7F) {
      AppendHexEscape(byte, out);
    } else if (byte == 0xC2 && next >= 0x80 && next < 0xA0) {
      // The second set of control characters, two bytes each.
      AppendHexEscape(next, out);
      ++i;
    } else {
      out += utf8[i];
    }
  }
  return out;
}

std::string EscapedBytes(std::string_view text) {
  std::string out;
  for (const char c : text) {
    if (c == '\n') {
      out += "\\n";
    } else if (c == '\\') {
      out += "\\\\";
    } else {
      out += c;
    }
  }
  return out;
}

}  // namespace qvl
