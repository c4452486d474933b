#include "viewer/ui/maintenance_dialog.h"

#include <wx/sizer.h>
#include <wx/utils.h>

#include <algorithm>

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
  note_->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { KeepLimit(); });
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

// By hand: some toolkits limit fields of one line only. And some count two for a line end where
// they tell the caret's place, but one in the text.
void CMaintenanceDlg::KeepLimit() {
  const std::wstring text = note_->GetValue().ToStdWstring();
  if (text.size() <= kMaintenanceNoteLimit) return;
  const long place = note_->GetInsertionPoint();
  std::size_t caret = place > 0 ? note_->GetRange(0, place).length() : 0;
  const bool countsTwo = static_cast<std::size_t>(std::max(0L, place)) != caret;
  const std::wstring kept = WithinNoteLimit(text, caret);
  const auto end = kept.begin() + static_cast<std::ptrdiff_t>(caret);
  const auto lineEnds = static_cast<long>(std::count(kept.begin(), end, L'\n'));
  note_->ChangeValue(kept);
  note_->SetInsertionPoint(static_cast<long>(caret) + (countsTwo ? lineEnds : 0));
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
