#include "viewer/ui/event_viewer_app.h"

#include <wx/image.h>

#include <utility>

#include "platform/standard_streams.h"
#include "platform/system_names.h"
#include "texts/strings.h"
#include "viewer/ui/event_viewer_frame.h"
#include "viewer/ui/user_settings.h"
#include "viewer/ui/wx_text.h"

namespace qvl {

CEventViewerApp::CEventViewerApp(std::vector<std::string> arguments)
    : arguments_(std::move(arguments)) {
  SetAppName("zlkqvxv");
  SetClassName("Zlkqvxv");
}

bool CEventViewerApp::OnInit() {
  if (UserReadsJapanese()) SetCurrentLanguage(Language::kJapanese);
  settings_ = OpenUserSettings();
  auto* const frame = new CEventViewerFrame(*settings_);  // deletes itself when it is closed
  SetTopWindow(frame);
  frame->Begin();
  frame->Show();
  // With the window on the screen, so that a message has something to stand over.
  if (!arguments_.empty()) {
    frame->CallAfter([this, frame] { frame->OpenArgument(arguments_.front()); });
  }
  return true;
}

void CEventViewerApp::OnAssertFailure(const wxChar* file, int line, const wxChar* /*function*/,
                                      const wxChar* condition, const wxChar* /*message*/) {
  const wxString text = wxString::Format("zlkqvxv: toolkit: %s:%d: %s", file, line, condition);
  StandardOutput error(StandardOutput::Stream::kError);
  static_cast<void>(error.Write(FromWx(text) + kSystemLineEnd));
}

void InstallEventViewerApp(std::vector<std::string> arguments) {
  wxApp::SetInstance(new CEventViewerApp(std::move(arguments)));
}

}  // namespace qvl
