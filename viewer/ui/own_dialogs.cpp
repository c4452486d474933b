#include "viewer/ui/own_dialogs.h"

#include "viewer/ui/clear_dialog.h"
#include "viewer/ui/filter_dialog.h"
#include "viewer/ui/machine_browser.h"
#include "viewer/ui/maintenance_dialog.h"

namespace qvl {

std::optional<FilterChoices> OwnDialogs::AskFilter(const FilterChoices& current) {
  CFilterDlg dialog(owner_, current);
  if (dialog.ShowModal() != wxID_OK) return std::nullopt;
  return dialog.Choices();
}

bool OwnDialogs::ConfirmClear() {
  CClearDlg dialog(owner_, execute_);
  return dialog.ShowModal() == wxID_OK;
}

std::optional<std::string> OwnDialogs::AskMaintenanceNote() {
  CMaintenanceDlg dialog(owner_, messages_);
  if (dialog.ShowModal() != wxID_OK) return std::nullopt;
  return dialog.Note();
}

std::optional<std::string> OwnDialogs::AskMachine() {
  return BrowseForMachine(owner_);
}

}  // namespace qvl
