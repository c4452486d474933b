#include <wx/init.h>

#include "platform/standard_streams.h"
#include "viewer/ui/event_viewer_app.h"

int main(int argc, char** argv) {
  qvl::InstallEventViewerApp(qvl::ProgramArguments(argc, argv));
  return wxEntry(argc, argv);
}
