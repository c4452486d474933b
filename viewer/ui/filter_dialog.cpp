#include "viewer/ui/filter_dialog.h"

#include <wx/button.h>
#include <wx/stattext.h>

#include "viewer/ui/accessible_name.h"
#include "viewer/ui/dialog_parts.h"
#include "viewer/ui/wx_text.h"

namespace qvl {

CFilterDlg::CFilterDlg(wxWindow* owner, const FilterChoices& current)
    : wxDialog(owner, wxID_ANY, TextOf(StringId::kApplicationTitle)) {
  const int gap = FromDIP(8);
  auto* const grid = new wxFlexGridSizer(2, gap, gap);
  grid->AddGrowableCol(1);
  eventClass_ = AddRow(*grid, StringId::kFilterClass, ClassChoices(), current.eventClass);
  severity_ = AddRow(*grid, StringId::kFilterSeverity, SeverityChoices(), current.severity);
  updateTime_ = AddRow(*grid, StringId::kFilterUpdateTime, TimeChoices(), current.updateTime);
  initialTime_ = AddRow(*grid, StringId::kFilterInitialTime, TimeChoices(), current.initialTime);

  auto* const reset = new wxButton(this, wxID_ANY, TextOf(StringId::kFilterReset));
  reset->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Reset(); });
  auto* const buttons = new wxBoxSizer(wxHORIZONTAL);
  buttons->Add(reset);
  buttons->AddStretchSpacer();
  buttons->Add(OkAndCancel(*this), wxSizerFlags().Border(wxLEFT, gap));

  auto* const column = new wxBoxSizer(wxVERTICAL);
  const wxSizerFlags flags = wxSizerFlags().Expand().Border(wxALL, FromDIP(10));
  column->Add(WrappedText(*this, StringId::kFilterPrompt), flags);
  column->Add(grid, flags);
  column->Add(buttons, flags);
  SetSizerAndFit(column);
  CentreOnParent();
  eventClass_->SetFocus();
  OnInternalIdle();  // else the letters of the labels lead nowhere until the dialog has a pause
}

wxChoice* CFilterDlg::AddRow(wxFlexGridSizer& grid, StringId label,
                             const std::vector<std::string_view>& choices,
                             const std::string& selected) {
  wxArrayString items;
  for (const std::string_view choice : choices) items.Add(ToWx(choice));
  auto* const caption = new wxStaticText(this, wxID_ANY, TextOf(label));
  auto* const list = new wxChoice(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, items);
  const std::size_t index = FindChoice(choices, selected);
  list->SetSelection(index == kNoChoice ? wxNOT_FOUND : static_cast<int>(index));
  SetAccessibleName(*list, wxStaticText::RemoveMnemonics(TextOf(label)));
  grid.Add(caption, wxSizerFlags().CentreVertical());
  grid.Add(list, wxSizerFlags().Expand());
  return list;
}

void CFilterDlg::Reset() {
  for (wxChoice* const list : {eventClass_, severity_, updateTime_, initialTime_}) {
    list->SetSelection(0);
  }
}

FilterChoices CFilterDlg::Choices() const {
  FilterChoices choices;
  choices.eventClass = FromWx(eventClass_->GetStringSelection());
  choices.severity = FromWx(severity_->GetStringSelection());
  choices.updateTime = FromWx(updateTime_->GetStringSelection());
  choices.initialTime = FromWx(initialTime_->GetStringSelection());
  return choices;
}

}  // namespace qvl
