#include <gtk/gtk.h>
#include <malloc.h>
#include <wx/init.h>

#include "platform/standard_streams.h"
#include "platform/system_names.h"
#include "texts/strings.h"
#include "viewer/ui/event_viewer_app.h"
#include "viewer/ui/start_message.h"

namespace {

// What ordering a long list takes for a moment it takes again with the next click. Handed back to
// the system in between, most of a click would go by getting it anew.
void KeepFreedMemory() {
  constexpr int kLargestPiece = 32 << 20;
  constexpr int kKept = 64 << 20;
  // NOLINTBEGIN(concurrency-mt-unsafe): there is one thread yet
  ::mallopt(M_MMAP_THRESHOLD, kLargestPiece);
  ::mallopt(M_TRIM_THRESHOLD, kKept);
  // NOLINTEND(concurrency-mt-unsafe)
}

}  // namespace

int main(int argc, char** argv) {
  KeepFreedMemory();
  if (qvl::UserReadsJapanese()) qvl::SetCurrentLanguage(qvl::Language::kJapanese);
  // A desktop joins a window with the program's launcher by this name.
  static char name[] = "zlkqvxv";
  qvl::InstallEventViewerApp(qvl::ProgramArguments(argc, argv));
  if (argc > 0) argv[0] = name;
  // Asked first: the toolkit would show its failure in a window. It takes the display that is open,
  // and wants to set GTK up itself.
  if (gdk_display_open(nullptr) == nullptr) {
    qvl::ShowStartMessage(qvl::GetString(qvl::StringId::kNoDisplay));
    return 1;
  }
  return wxEntry(argc, argv);
}
