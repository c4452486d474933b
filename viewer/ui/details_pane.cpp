#include "viewer/ui/details_pane.h"

#include <wx/settings.h>
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
  data_->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    CallAfter([this] { ShowDump(); });  // with its new size, and not while it is laid out
    event.Skip();
  });
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
  for (std::size_t i = 0; i < kBytesPerLine.size(); ++i) {
    dumps_[i] = entry != nullptr ? ToWx(DataDump(*entry, kBytesPerLine[i])) : wxString();
  }
  ShowDump();
}

// The widest that shows the characters beside their bytes.
void DetailsPane::ShowDump() {
  const int room = data_->GetClientSize().x - wxSystemSettings::GetMetric(wxSYS_VSCROLL_X, data_);
  std::size_t width = 0;
  while (width + 1 < kBytesPerLine.size() && LineWidth(width) > room) ++width;
  if (dumps_[width] != data_->GetValue()) data_->ChangeValue(dumps_[width]);
}

int DetailsPane::LineWidth(std::size_t dump) const {
  const wxString line('0', DataDumpWidth(kBytesPerLine[dump]));
  return data_->GetTextExtent(line).x;
}

}  // namespace qvl
