#include "viewer/ui/machine_bar.h"

#include <wx/sizer.h>
#include <wx/stattext.h>

#include <utility>

#include "viewer/ui/accessible_name.h"
#include "viewer/ui/dialog_parts.h"
#include "viewer/ui/wx_text.h"

namespace qvl {

MachineBar::MachineBar(wxWindow* parent, const Handlers& handlers) : wxPanel(parent) {
  auto* const label = new wxStaticText(this, wxID_ANY, TextOf(StringId::kMachineLabel));
  box_ = new wxComboBox(this, wxID_ANY, wxString(), wxDefaultPosition,
                        wxSize(FromDIP(220), wxDefaultCoord), 0, nullptr,
                        wxCB_DROPDOWN | wxTE_PROCESS_ENTER);
  browse_ = new wxButton(this, wxID_ANY, TextOf(StringId::kBrowseButton));
  refresh_ = new wxButton(this, wxID_ANY, TextOf(StringId::kRefreshButton));
  SetAccessibleName(*box_, TextOf(StringId::kMachineName));

  auto* const row = new wxBoxSizer(wxHORIZONTAL);
  const wxSizerFlags flags = wxSizerFlags().CentreVertical().Border(wxALL, FromDIP(4));
  row->Add(label, flags);
  row->Add(box_, flags);
  row->Add(browse_, flags);
  row->Add(refresh_, flags);
  SetSizer(row);

  // What a choice starts waits for a machine, so the box's own handling ends first.
  const auto choose = [this, handlers] { CallAfter(handlers.choose); };
  box_->Bind(wxEVT_COMBOBOX, [choose](wxCommandEvent&) { choose(); });
  BindEnter(*box_, choose);
  browse_->Bind(wxEVT_BUTTON, [handlers](wxCommandEvent&) { handlers.browse(); });
  refresh_->Bind(wxEVT_BUTTON, [handlers](wxCommandEvent&) { handlers.refresh(); });
}

std::string MachineBar::Text() const {
  return FromWx(box_->GetValue());
}

void MachineBar::SetText(const std::string& text) {
  box_->ChangeValue(ToWx(text));
}

void MachineBar::SetNames(const std::vector<std::string>& names) {
  const wxString text = box_->GetValue();
  wxArrayString items;
  for (const std::string& name : names) items.Add(ToWx(name));
  box_->Set(items);
  box_->ChangeValue(text);
}

void MachineBar::Select(std::size_t index) {
  box_->SetSelection(static_cast<int>(index));
}

void MachineBar::SelectNothing() {
  box_->SetSelection(wxNOT_FOUND);
  box_->ChangeValue(wxString());
}

}  // namespace qvl
