#include "viewer/ui/maintenance_dialog.h"

#include <wx/sizer.h>
#include <wx/utils.h>

#include "viewer/model/maintenance_note.h"
#include "viewer/ui/accessible_name.h"
#include "viewer/ui/dialog_parts.h"
#include "viewer/ui/wx_text.h"

namespace qvl {

CMaintenanceDlg::CMaintenanceDlg(wxWindow* owner, MessageWindow& messages)
    : wxDialog(owner, wxID_ANY, TextOf(StringId::kApplicationTitle), wxDefaultPosition,
               wxDefaultSize, wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      messages_(messages) {
  note_ = new wxTextCtrl(this, wxID_ANY, wxString(), wxDefaultPosition, FromDIP(wxSize(400, 110)),
                         wxTE_MULTILINE);
  note_->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { CutAtLimit(); });
  SetAccessibleName(*note_, TextOf(StringId::kNotePrompt));
  auto* const column = new wxBoxSizer(wxVERTICAL);
  const wxSizerFlags flags = wxSizerFlags().Expand().Border(wxALL, FromDIP(10));
  column->Add(WrappedText(*this, StringId::kNotePrompt), flags);
  column->Add(note_, wxSizerFlags(flags).Proportion(1));
  column->Add(OkAndCancel(*this), flags);
  Bind(
      wxEVT_BUTTON, [this](wxCommandEvent&) { OnOk(); }, wxID_OK);
  SetSizerAndFit(column);
  CentreOnParent();
  note_->SetFocus();
}

// A line feed alone would join two lines: carriage returns are what becomes a blank.
std::string CMaintenanceDlg::Note() const {
  wxString text = note_->GetValue();
  text.Replace("\r\n", "\n");
  text.Replace("\n", "\r\n");
  return FromWx(text);
}

// By hand: some toolkits limit fields of one line only.
void CMaintenanceDlg::CutAtLimit() {
  const wxString text = note_->GetValue();
  if (text.length() <= kMaintenanceNoteLimit) return;
  note_->ChangeValue(text.Left(kMaintenanceNoteLimit));
  note_->SetInsertionPointEnd();
  wxBell();
}

void CMaintenanceDlg::OnOk() {
  if (AcceptMaintenanceNote(messages_, Note())) {
    EndModal(wxID_OK);
  } else {
    note_->SetFocus();
  }
}

}  // namespace qvl
