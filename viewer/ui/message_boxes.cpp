#include "viewer/ui/message_boxes.h"

#include <wx/msgdlg.h>

#include "viewer/ui/front_window.h"
#include "viewer/ui/wx_text.h"

namespace qvl {

MessageAnswer MessageBoxes::Show(const UserMessage& message) {
  const bool asks = !message.yesLabel.empty();
  const long icon = message.icon == MessageIcon::kQuestion ? wxICON_QUESTION : wxICON_EXCLAMATION;
  wxMessageDialog box(FrontWindow(), ToWx(message.text), ToWx(message.caption),
                      icon | (asks ? wxYES_NO | wxCANCEL : wxOK));
  if (asks) {
    box.SetYesNoCancelLabels(ToWx(message.yesLabel), ToWx(message.noLabel),
                             TextOf(StringId::kCancel));
  } else {
    box.SetOKLabel(TextOf(StringId::kOk));
  }
  switch (box.ShowModal()) {
    case wxID_YES:
      return MessageAnswer::kYes;
    case wxID_NO:
      return MessageAnswer::kNo;
    case wxID_OK:
      return MessageAnswer::kOk;
    default:
      return asks ? MessageAnswer::kCancel : MessageAnswer::kOk;
  }
}

}  // namespace qvl
