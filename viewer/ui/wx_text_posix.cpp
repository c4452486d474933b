#include <wx/strconv.h>

#include "viewer/ui/wx_text.h"

namespace qvl {

wxString PathToWx(const std::string& path) {
  const wxString text(path.data(), *wxConvFileName, path.size());
  return text.empty() ? ToWx(path) : text;
}

std::string PathFromWx(const wxString& path) {
  const wxCharBuffer bytes = path.mb_str(*wxConvFileName);
  return std::string(bytes.data(), bytes.length());
}

}  // namespace qvl
