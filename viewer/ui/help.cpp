#include "viewer/ui/help.h"

#include <wx/filename.h>

#include "texts/strings.h"
#include "viewer/ui/wx_text.h"

namespace qvl {

std::string HelpFilePath() {
  if (CurrentLanguage() == Language::kJapanese) {
    std::string japanese = HelpBookPath("_ja");
    if (wxFileName::FileExists(PathToWx(japanese))) return japanese;
  }
  return HelpBookPath("");
}

}  // namespace qvl
