#include "trial/base64.h"

namespace qvl {
namespace {

constexpr std::string_view kDigits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

}  // namespace

std::string ToBase64(WireBytes bytes) {
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const std::size_t count = bytes.size() - i < 3 ? bytes.size() - i : 3;
    std::uint32_t group = 0;
    for (std::size_t k = 0; k < 3; ++k) group = group << 8U | (k < count ? bytes[i + k] : 0U);
    for (std::size_t k = 0; k < 4; ++k) {
      text += k <= count ? kDigits[group >> (18U - 6U * k) & 63U] : '=';
    }
  }
  return text;
}

bool FromBase64(std::string_view text, std::vector<std::uint8_t>& bytes) {
  bytes.clear();
  if (text.size() % 4 != 0) return false;
  std::size_t padding = 0;
  while (padding < 2 && padding < text.size() && text[text.size() - 1 - padding] == '=') ++padding;
  std::vector<std::uint8_t> decoded;
  std::uint32_t group = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool pad = i >= text.size() - padding;
    const std::size_t digit = pad ? 0 : kDigits.find(text[i]);
    if (digit == std::string_view::npos) return false;
    group = group << 6U | static_cast<std::uint32_t>(digit);
    if (i % 4 != 3) continue;
    for (const unsigned shift : {16U, 8U, 0U}) {
      decoded.push_back(static_cast<std::uint8_t>(group >> shift & 255U));
    }
    group = 0;
  }
  decoded.resize(decoded.size() - padding);
  bytes = std::move(decoded);
  return true;
}

}  // namespace qvl
