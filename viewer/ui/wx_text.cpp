#include "viewer/ui/wx_text.h"

#include "files/unicode_text.h"
#include "texts/filled_text.h"

namespace qvl {

wxString ToWx(std::string_view utf8) {
  const std::string text = Utf8FromText(utf8);
  return wxString::FromUTF8(text.data(), text.size());
}

std::string FromWx(const wxString& text) {
  const wxScopedCharBuffer bytes = text.utf8_str();
  return std::string(bytes.data(), bytes.length());
}

wxString TextOf(StringId id, std::initializer_list<std::string_view> arguments) {
  return ToWx(FilledText(id, arguments));
}

}  // namespace qvl
