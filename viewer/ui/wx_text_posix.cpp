#include <wx/strconv.h>

#include "viewer/ui/wx_text.h"

namespace qvl {

wxString PathToWx(const std::string& path) {
  const wxString text(path.data(), *wxConvFileName, path.size());
  return text.empty() ? ToWx(path) : text;
}

std::string PathFromWx(const wxString& path) {
  const wchar_t* const text = path.wc_str();
  const std::size_t size = wxConvFileName->FromWChar(nullptr, 0, text, path.length());
  if (size == wxCONV_FAILED) return {};
  std::string bytes(size, '\0');
  wxConvFileName->FromWChar(bytes.data(), size, text, path.length());
  return bytes;
}

}  // namespace qvl
