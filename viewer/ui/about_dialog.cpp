#include "viewer/ui/about_dialog.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>

#include "viewer/ui/list_pictures.h"
#include "viewer/ui/program_version.h"
#include "viewer/ui/wx_text.h"

namespace qvl {

CAboutDlg::CAboutDlg(wxWindow* owner)
    : wxDialog(owner, wxID_ANY, TextOf(StringId::kApplicationTitle)) {
  const ProgramVersion version = OwnVersion();
  const int gap = FromDIP(12);
  auto* const lines = new wxBoxSizer(wxVERTICAL);
  lines->Add(
      new wxStaticText(this, wxID_ANY, ToWx(version.fileDescription + " v" + version.fileVersion)));
  lines->AddSpacer(gap / 2);
  lines->Add(new wxStaticText(this, wxID_ANY, ToWx(version.legalCopyright)));

  auto* const row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(new wxStaticBitmap(this, wxID_ANY, ProgramPicture().GetBitmap(FromDIP(wxSize(48, 48)))),
           wxSizerFlags().CentreVertical());
  row->Add(lines, wxSizerFlags(1).CentreVertical().Border(wxLEFT, gap));

  auto* const ok = new wxButton(this, wxID_OK, TextOf(StringId::kOk));
  ok->SetDefault();
  auto* const column = new wxBoxSizer(wxVERTICAL);
  column->Add(row, wxSizerFlags().Expand().Border(wxALL, gap));
  column->Add(ok, wxSizerFlags().Centre().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
  SetEscapeId(wxID_OK);
  SetSizerAndFit(column);
  CentreOnParent();
}

}  // namespace qvl
