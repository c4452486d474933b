#include "viewer/model/start_up.h"

#include <charconv>
#include <cstdint>
#include <optional>

#include "entries/ascii_case.h"

namespace qvl {
namespace {

constexpr std::string_view kScheme = "file:";
constexpr std::string_view kLocalHost = "localhost";

std::optional<std::string> DecodeEscapes(std::string_view text) {
  std::string decoded;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '%') {
      decoded += text[i];
      continue;
    }
    std::uint8_t byte = 0;
    const std::string_view digits = text.substr(i + 1, 2);
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, byte, 16);
    if (digits.size() < 2 || error != std::errc() || stop != end || byte == 0) return std::nullopt;
    decoded += static_cast<char>(byte);
    i += 2;
  }
  return decoded;
}

bool IsDrive(std::string_view path) {
  if (path.size() < 3 || path[0] != '/' || path[2] != ':') return false;
  const char letter = ToAsciiLower(path[1]);
  return letter >= 'a' && letter <= 'z';
}

}  // namespace

std::string PathOfArgument(std::string_view argument) {
  if (!BeginsIgnoringCase(argument, kScheme)) return std::string(argument);
  std::string_view rest = argument.substr(kScheme.size());
  if (rest.starts_with("//")) {
    const std::size_t slash = rest.find('/', 2);
    if (slash == std::string_view::npos) return {};
    const std::string_view host = rest.substr(2, slash - 2);
    if (!host.empty() && !EqualsIgnoringCase(host, kLocalHost)) return {};
    rest.remove_prefix(slash);
  }
  const std::optional<std::string> path = DecodeEscapes(rest);
  if (!path) return {};
  return IsDrive(*path) ? path->substr(1) : *path;
}

}  // namespace qvl
