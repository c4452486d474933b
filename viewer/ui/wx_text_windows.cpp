#include "viewer/ui/wx_text.h"

namespace qvl {

wxString PathToWx(const std::string& path) {
  return ToWx(path);
}

std::string PathFromWx(const wxString& path) {
  return FromWx(path);
}

}  // namespace qvl
