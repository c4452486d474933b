#include "viewer/ui/working_window.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/utils.h>

#include "viewer/ui/wx_text.h"

namespace qvl {
namespace {

constexpr int kMillisecondsBetweenCounts = 100;

}  // namespace

CWorking::CWorking(wxWindow* owner, const wxString& message, bool canCancel,
                   ReadingProgress& progress)
    : wxDialog(owner, wxID_ANY, TextOf(StringId::kApplicationTitle), wxDefaultPosition,
               wxDefaultSize, wxCAPTION),
      progress_(progress) {
  const int border = FromDIP(12);
  auto* const column = new wxBoxSizer(wxVERTICAL);
  auto* const text = new wxStaticText(this, wxID_ANY, message);
  text->SetMinSize(wxSize(FromDIP(320), wxDefaultCoord));
  column->Add(text, wxSizerFlags().Expand().Border(wxALL, border));
  if (canCancel) {
    count_ = new wxStaticText(this, wxID_ANY, wxString());
    auto* const cancel = new wxButton(this, wxID_CANCEL, TextOf(StringId::kCancel));
    cancel->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { RequestCancel(); });
    column->Add(count_, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, border));
    column->Add(cancel, wxSizerFlags().Right().Border(wxALL, border));
    ShowCount();
    timer_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { ShowCount(); });
    timer_.Start(kMillisecondsBetweenCounts);
  }
  // It ends with the operation and not before.
  Bind(wxEVT_CLOSE_WINDOW, [this, canCancel](wxCloseEvent& event) {
    if (canCancel) RequestCancel();
    event.Veto();
  });
  SetSizerAndFit(column);
  CentreOnParent();
  wxBeginBusyCursor();
}

CWorking::~CWorking() {
  wxEndBusyCursor();
}

void CWorking::ShowCount() {
  const std::string count = std::to_string(progress_.entriesRead.load());
  count_->SetLabel(TextOf(StringId::kEntriesRead, {count}));
}

void CWorking::RequestCancel() {
  progress_.cancelRequested = true;
}

void WorkingWindow::Show(const std::string& text, bool canCancel) {
  progress_.entriesRead = 0;
  progress_.cancelRequested = false;
  window_ = new CWorking(owner_, ToWx(text), canCancel, progress_);
  window_->wxDialog::Show();
  window_->Update();
}

// At once: a message that follows must not stand over it.
void WorkingWindow::Close() {
  delete window_;
  window_ = nullptr;
}

}  // namespace qvl
