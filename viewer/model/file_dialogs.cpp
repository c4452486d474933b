#include "viewer/model/file_dialogs.h"

#include "texts/filled_text.h"

namespace qvl {

FileDialogRequest LogFileRequest(StringId title) {
  return {.title = FilledText(title),
          .filter = FilledText(StringId::kLogFileFilter),
          .defaultExtension = ".qvx"};
}

}  // namespace qvl
