#include "viewer/ui/dialog_parts.h"

#include <wx/button.h>
#include <wx/textctrl.h>
#include <wx/utils.h>

#include <memory>

#include "viewer/ui/wx_text.h"

namespace qvl {
namespace {

// Ideographs, kana and their punctuation begin here; they stand side by side without blanks.
constexpr wxUint32 kFirstWideCharacter = 0x2E80;

bool IsWide(wxUniChar character) {
  return character.GetValue() >= kFirstWideCharacter;
}

// Where a line may end. What closes a sentence or a bracket stays with what is before it.
bool MayBreakBetween(wxUniChar before, wxUniChar after) {
  static const wxString neverFirst = wxString::FromUTF8(" .,:;!?)]%、。」』)]・ーっゃゅょッャュョ");
  static const wxString neverLast = wxString::FromUTF8("([「『([");
  if (before == ' ') return true;
  return (IsWide(before) || IsWide(after)) && neverFirst.Find(after) == wxNOT_FOUND &&
         neverLast.Find(before) == wxNOT_FOUND;
}

}  // namespace

// The toolkit breaks at blanks only.
wxString BrokenIntoLines(const wxWindow& window, const wxString& text, int width) {
  wxString lines;
  wxString line;
  wxString piece;
  for (auto at = text.begin(); at != text.end(); ++at) {
    piece += *at;
    const auto next = at + 1;
    if (next != text.end() && !MayBreakBetween(*at, *next)) continue;
    if (!line.empty() && window.GetTextExtent(wxString(line + piece).Trim()).x > width) {
      lines += line.Trim() + "\n";
      line.clear();
    }
    line += piece;
    piece.clear();
  }
  return lines + line;
}

wxStaticText* WrappedText(wxWindow& dialog, StringId text, int width) {
  const wxString lines = BrokenIntoLines(dialog, TextOf(text), dialog.FromDIP(width));
  return new wxStaticText(&dialog, wxID_ANY, wxControl::EscapeMnemonics(lines));
}

wxSizer* OkAndCancel(wxWindow& dialog, StringId okLabel) {
  auto* const sizer = new wxStdDialogButtonSizer;
  auto* const ok = new wxButton(&dialog, wxID_OK, TextOf(okLabel));
  ok->SetDefault();
  sizer->AddButton(ok);
  // Named after it is made: the toolkit gives a "Cancel" that it knows a letter that others need.
  auto* const cancel = new wxButton(&dialog, wxID_ANY, TextOf(StringId::kCancel));
  cancel->SetId(wxID_CANCEL);
  sizer->AddButton(cancel);
  sizer->Realize();
  return sizer;
}

// Alt may be up again by the time the field tells of Enter.
void BindEnter(wxWindow& field, const std::function<void()>& confirm) {
  const auto isWithAlt = std::make_shared<bool>(false);
  field.Bind(wxEVT_CHAR_HOOK, [isWithAlt](wxKeyEvent& event) {
    const int key = event.GetKeyCode();
    if (key == WXK_RETURN || key == WXK_NUMPAD_ENTER) *isWithAlt = event.AltDown();
    event.Skip();
  });
  field.Bind(wxEVT_TEXT_ENTER, [isWithAlt, confirm](wxCommandEvent& event) {
    *isWithAlt || wxGetKeyState(WXK_ALT) ? event.Skip() : confirm();
  });
}

}  // namespace qvl
