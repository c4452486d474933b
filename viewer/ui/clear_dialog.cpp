#include "viewer/ui/clear_dialog.h"

#include <wx/button.h>

#include <utility>

#include "viewer/ui/dialog_parts.h"
#include "viewer/ui/wx_text.h"

namespace qvl {
namespace {

constexpr int kExplanationWidth = 290;

}  // namespace

CClearDlg::CClearDlg(wxWindow* owner, std::function<void(Command)> execute)
    : wxDialog(owner, wxID_ANY, TextOf(StringId::kApplicationTitle)), execute_(std::move(execute)) {
  const int gap = FromDIP(10);
  auto* const grid = new wxFlexGridSizer(2, gap, gap);
  AddOffer(*grid, StringId::kClearSaveButton, StringId::kClearSaveText, Command::kSaveLogAs);
  AddOffer(*grid, StringId::kClearExportButton, StringId::kClearExportText, Command::kExportLog);
  AddOffer(*grid, StringId::kClearPrintButton, StringId::kClearPrintText, Command::kPrint);

  auto* const column = new wxBoxSizer(wxVERTICAL);
  const wxSizerFlags flags = wxSizerFlags().Expand().Border(wxALL, gap);
  column->Add(WrappedText(*this, StringId::kClearWarning), flags);
  column->Add(grid, flags);
  column->Add(WrappedText(*this, StringId::kClearQuestion), flags);
  column->Add(OkAndCancel(*this, StringId::kClearButton), flags);
  // Enter must not clear a log: whoever does that chooses the button.
  SetDefaultItem(FindWindow(wxID_CANCEL));
  FindWindow(wxID_CANCEL)->SetFocus();
  SetSizerAndFit(column);
  CentreOnParent();
}

void CClearDlg::AddOffer(wxFlexGridSizer& grid, StringId button, StringId text, Command command) {
  auto* const offer = new wxButton(this, wxID_ANY, TextOf(button));
  offer->Bind(wxEVT_BUTTON, [this, command](wxCommandEvent&) { execute_(command); });
  grid.Add(offer, wxSizerFlags().Expand().CentreVertical());
  grid.Add(WrappedText(*this, text, kExplanationWidth), wxSizerFlags().CentreVertical());
}

}  // namespace qvl
