#include "trial/base64.h"

#include <glib.h>

namespace qvl {

std::string ToBase64(WireBytes bytes) {
  gchar* const encoded = ::g_base64_encode(bytes.data(), bytes.size());
  std::string text(encoded);
  ::g_free(encoded);
  return text;
}

bool FromBase64(std::string_view text, std::vector<std::uint8_t>& bytes) {
  bytes.clear();
  gsize size = 0;
  guchar* const decoded = ::g_base64_decode(std::string(text).c_str(), &size);
  if (decoded != nullptr && size != 0) bytes.assign(decoded, decoded + size);
  ::g_free(decoded);
  // GLib passes over what is none of its characters.
  const bool exact = ToBase64(bytes) == text;
  if (!exact) bytes.clear();
  return exact;
}

}  // namespace qvl
