#ifndef QVL_VIEWER_UI_DETAILS_PANE_H_
#define QVL_VIEWER_UI_DETAILS_PANE_H_

#include <wx/listctrl.h>
#include <wx/panel.h>
#include <wx/textctrl.h>

#include <array>

#include "entries/event_log_entry.h"

namespace qvl {

/// Every field of one entry, and its data bytes.
class DetailsPane : public wxPanel {
 public:
  explicit DetailsPane(wxWindow* parent);

  /// entry  null for none; not kept.
  void ShowEntry(const CEventLogEntry* entry);

 private:
  static constexpr std::array<std::size_t, 2> kBytesPerLine = {16, 8};

  void ShowDump();
  int LineWidth(std::size_t dump) const;

  wxListCtrl* fields_;
  wxTextCtrl* data_;
  std::array<wxString, kBytesPerLine.size()> dumps_;
};

}  // namespace qvl

#endif  // QVL_VIEWER_UI_DETAILS_PANE_H_
