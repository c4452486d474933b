#include "viewer/ui/details_pane.h"

#include <wx/sizer.h>

#include <vector>

#include "viewer/model/list_texts.h"
#include "viewer/ui/accessible_name.h"
#include "viewer/ui/wx_text.h"

namespace qvl {
DetailsPane::DetailsPane(wxWindow* parent) : wxPanel(parent) {
  fields_ = new wxListCtrl(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(260, 120)),
                           wxLC_REPORT | wxLC_NO_HEADER | wxLC_SINGLE_SEL | wxBORDER_THEME);
  fields_->AppendColumn(wxString(), wxLIST_FORMAT_LEFT, FromDIP(110));
  fields_->AppendColumn(wxString(), wxLIST_FORMAT_LEFT, FromDIP(600));
  data_ = new wxTextCtrl(this, wxID_ANY, wxString(), wxDefaultPosition, FromDIP(wxSize(300, 120)),
                         wxTE_MULTILINE | wxTE_READONLY | wxTE_DONTWRAP);
  data_->SetFont(wxFont(wxFontInfo(GetFont().GetPointSize()).Family(wxFONTFAMILY_TELETYPE)));
  SetAccessibleName(*fields_, TextOf(StringId::kDetailsName));
  SetAccessibleName(*data_, TextOf(StringId::kDetailData));

  auto* const row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(fields_, wxSizerFlags(1).Expand());
  row->Add(data_, wxSizerFlags(1).Expand().Border(wxLEFT, FromDIP(4)));
  SetSizer(row);
}

void DetailsPane::ShowEntry(const CEventLogEntry* entry) {
  const std::vector<EntryField> fields =
      entry != nullptr ? EntryFields(*entry) : std::vector<EntryField>();
  if (fields_->GetItemCount() != static_cast<int>(fields.size())) {
    fields_->DeleteAllItems();
    for (std::size_t i = 0; i < fields.size(); ++i) {
      fields_->InsertItem(static_cast<long>(i), ToWx(fields[i].label));
    }
  }
  for (std::size_t i = 0; i < fields.size(); ++i) {
    fields_->SetItem(static_cast<long>(i), 1, ToWx(fields[i].value));
  }
  data_->ChangeValue(entry != nullptr ? ToWx(DataDump(*entry)) : wxString());
}

}  // namespace qvl
