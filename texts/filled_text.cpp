#include "texts/filled_text.h"

namespace qvl {

std::string FilledText(StringId id, std::initializer_list<std::string_view> arguments) {
  std::string_view format = GetString(id);
  std::string text;
  for (const std::string_view argument : arguments) {
    const std::size_t at = format.find('%');
    if (at == std::string_view::npos || at + 1 == format.size()) break;
    text += format.substr(0, at);
    text += argument;
    format.remove_prefix(at + 2);
  }
  text += format;
  return text;
}

}  // namespace qvl
