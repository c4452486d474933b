#include "viewer/ui/dialog_parts.h"

#include <wx/button.h>

#include "viewer/ui/wx_text.h"

namespace qvl {
wxStaticText* WrappedText(wxWindow& dialog, StringId text, int width) {
  auto* const label = new wxStaticText(&dialog, wxID_ANY, wxControl::EscapeMnemonics(TextOf(text)));
  label->Wrap(dialog.FromDIP(width));
  return label;
}

wxSizer* OkAndCancel(wxWindow& dialog, StringId okLabel) {
  auto* const sizer = new wxStdDialogButtonSizer;
  auto* const ok = new wxButton(&dialog, wxID_OK, TextOf(okLabel));
  ok->SetDefault();
  sizer->AddButton(ok);
  sizer->AddButton(new wxButton(&dialog, wxID_CANCEL, TextOf(StringId::kCancel)));
  sizer->Realize();
  return sizer;
}

}  // namespace qvl
