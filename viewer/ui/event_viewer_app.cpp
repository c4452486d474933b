#include "viewer/ui/event_viewer_app.h"

#include <wx/image.h>
#include <wx/log.h>

#include <new>
#include <utility>

#include "platform/standard_streams.h"
#include "platform/system_names.h"
#include "texts/strings.h"
#include "viewer/ui/event_viewer_frame.h"
#include "viewer/ui/message_boxes.h"
#include "viewer/ui/message_pictures.h"
#include "viewer/ui/toolkit_texts.h"
#include "viewer/ui/user_settings.h"
#include "viewer/ui/wx_text.h"

namespace qvl {

namespace {

void WriteToStandardError(const wxString& text) {
  StandardOutput error(StandardOutput::Stream::kError);
  static_cast<void>(error.Write(FromWx(text) + kSystemLineEnd));
}

// What the toolkit has to say of files and printers is no window's text: what matters to the user
// the program tells itself.
class StandardErrorLog : public wxLog {
 protected:
  void DoLogText(const wxString& text) override { WriteToStandardError("zlkqvxv: " + text); }
};

}  // namespace

CEventViewerApp::CEventViewerApp(std::vector<std::string> arguments)
    : arguments_(std::move(arguments)) {
  SetAppName("zlkqvxv");
  SetClassName("Zlkqvxv");
}

bool CEventViewerApp::OnInit() {
  // The toolkit deletes it.
  auto* const log = new StandardErrorLog;
  delete wxLog::SetActiveTarget(log);  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks)
  if (UserReadsJapanese()) SetCurrentLanguage(Language::kJapanese);
  TranslateToolkit();
  ShowPicturesInMessages();
  settings_ = OpenUserSettings();
  auto* const frame = new CEventViewerFrame(*settings_);  // deletes itself when it is closed
  SetTopWindow(frame);
  frame->Begin();
  frame->Show();
  // Where the system ends the program at once, nothing is taken down under what still runs.
  Bind(wxEVT_END_SESSION, [this](wxCloseEvent& event) {
    auto* const window = dynamic_cast<CEventViewerFrame*>(GetTopWindow());
    event.Skip(window == nullptr || !window->isOperating());
  });
  // With the window on the screen, so that a message has something to stand over.
  if (!arguments_.empty()) {
    frame->CallAfter([this, frame] { frame->OpenArgument(arguments_.front()); });
  }
  return true;
}

// The model has told what it could; this is what only a window does, drawing for one.
bool CEventViewerApp::OnExceptionInMainLoop() {
  try {
    throw;
  } catch (const std::bad_alloc&) {
    MessageBoxes messages;
    ShowResourceMessage(messages, StringId::kNotEnoughMemory);
    return true;
  }
}

void CEventViewerApp::OnAssertFailure(const wxChar* file, int line, const wxChar* /*function*/,
                                      const wxChar* condition, const wxChar* /*message*/) {
  WriteToStandardError(wxString::Format("zlkqvxv: toolkit: %s:%d: %s", file, line, condition));
}

void InstallEventViewerApp(std::vector<std::string> arguments) {
  wxApp::SetInstance(new CEventViewerApp(std::move(arguments)));
}

}  // namespace qvl
