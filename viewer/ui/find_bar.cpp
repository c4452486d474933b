#include "viewer/ui/find_bar.h"

#include <wx/button.h>
#include <wx/sizer.h>

#include <utility>

#include "viewer/ui/accessible_name.h"
#include "viewer/ui/dialog_parts.h"
#include "viewer/ui/wx_text.h"

namespace qvl {

FindBar::FindBar(wxWindow* parent, Handlers handlers)
    : wxPanel(parent), handlers_(std::move(handlers)) {
  auto* const label = new wxStaticText(this, wxID_ANY, TextOf(StringId::kFindLabel));
  field_ = new wxTextCtrl(this, wxID_ANY, wxString(), wxDefaultPosition,
                          wxSize(FromDIP(220), wxDefaultCoord), wxTE_PROCESS_ENTER);
  auto* const next = new wxButton(this, wxID_ANY, TextOf(StringId::kFindNextButton));
  auto* const previous = new wxButton(this, wxID_ANY, TextOf(StringId::kFindPreviousButton));
  auto* const close = new wxButton(this, wxID_ANY, TextOf(StringId::kClose));
  answer_ = new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                             wxST_ELLIPSIZE_END);
  SetAccessibleName(*field_, wxStaticText::RemoveMnemonics(TextOf(StringId::kFindLabel)));

  auto* const row = new wxBoxSizer(wxHORIZONTAL);
  const wxSizerFlags flags = wxSizerFlags().CentreVertical().Border(wxALL, FromDIP(4));
  row->Add(label, flags);
  row->Add(field_, flags);
  row->Add(next, flags);
  row->Add(previous, flags);
  row->Add(close, flags);
  row->Add(answer_, wxSizerFlags(flags).Proportion(1));
  SetSizer(row);

  field_->Bind(wxEVT_TEXT,
               [this](wxCommandEvent&) { handlers_.typed(FromWx(field_->GetValue())); });
  const auto findNext = [this] { handlers_.execute(Command::kFindNext); };
  BindEnter(*field_, findNext);
  next->Bind(wxEVT_BUTTON, [findNext](wxCommandEvent&) { findNext(); });
  previous->Bind(wxEVT_BUTTON,
                 [this](wxCommandEvent&) { handlers_.execute(Command::kFindPrevious); });
  close->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { handlers_.close(); });
  Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    if (event.GetKeyCode() == WXK_ESCAPE) {
      handlers_.close();
    } else {
      event.Skip();
    }
  });
}

void FindBar::Begin() {
  field_->SetFocus();
  field_->SelectAll();
}

void FindBar::ShowAnswer(const std::string& answer) {
  answer_->SetLabelText(ToWx(answer));
}

}  // namespace qvl
