#include "viewer/ui/event_viewer_frame.h"

#include <wx/clipbrd.h>
#include <wx/display.h>

#include <algorithm>

#include "texts/filled_text.h"
#include "viewer/model/start_up.h"
#include "viewer/ui/about_dialog.h"
#include "viewer/ui/help.h"
#include "viewer/ui/window_placement.h"
#include "viewer/ui/wx_text.h"

namespace qvl {

void CEventViewerFrame::Begin() {
  NotePlace();
  view_->Create();
  model_->Start();
  model_->OnShow();
  list_->SetFocus();
}

void CEventViewerFrame::Execute(Command command) {
  if (!work_.isRunning()) model_->Execute(command);
}

void CEventViewerFrame::OpenArgument(const std::string& argument) {
  OpenFile(PathOfArgument(argument));
}

void CEventViewerFrame::OpenFile(const std::string& path) {
  if (!work_.isRunning()) model_->OpenLogFile(path);
}

void CEventViewerFrame::OpenRecentFile(int id) {
  const auto index = static_cast<std::size_t>(id - wxID_FILE1);
  if (work_.isRunning() || index >= recentFiles_.paths().size()) return;
  const std::string path = recentFiles_.paths()[index];
  if (model_->OpenLogFile(path)) return;
  recentFiles_.Remove(path);
  menu_.ShowRecentFiles(recentFiles_.paths());
}

// Tab is no key of a menu, and some lists take Ctrl+M for Enter: so these come first.
void CEventViewerFrame::OnCharHook(wxKeyEvent& event) {
  Command command = Command::kExit;
  if (!keys_.Find(event, command)) {
    event.Skip();
  } else if (command == Command::kNextControl || command == Command::kPreviousControl) {
    if (!MoveFocus(command == Command::kNextControl)) event.Skip();
  } else {
    Execute(command);
  }
}

void CEventViewerFrame::OnClose(wxCloseEvent& event) {
  if (work_.isRunning() && event.CanVeto()) {
    event.Veto();
    return;
  }
  model_->Stop();
  Destroy();
}

// Thousands of rows can change at once; what they change is shown once.
void CEventViewerFrame::UpdateSoon() {
  if (updatePending_) return;
  updatePending_ = true;
  CallAfter([this] {
    updatePending_ = false;
    UpdateControls();
  });
}

void CEventViewerFrame::OnContextMenu() {
  if (!view_->OffersContextMenu()) return;
  const std::unique_ptr<wxMenu> menu(NewContextMenu());
  for (const MenuItem& item : ContextMenu()) {
    menu->Enable(IdOf(item.command), model_->IsEnabled(item.command));
  }
  PopupMenu(menu.get());
}

void CEventViewerFrame::NotePlace() {
  if (!IsMaximized() && !IsIconized()) lastNormal_ = GetRect();
}

std::string CEventViewerFrame::GetCaption() const {
  return FromWx(GetTitle());
}

void CEventViewerFrame::SetCaption(const std::string& caption) {
  SetTitle(ToWx(caption));
}

void CEventViewerFrame::UpdateControls() {
  if (!model_) return;
  menu_.Update([this](Command command) { return model_->IsEnabled(command); });
  machineBar_->EnableRefresh(model_->IsEnabled(Command::kRefresh));
  const wxString filter = ToWx(model_->FilterPane());
  wxStatusBar& bar = *GetStatusBar();
  const int widths[] = {-1, bar.GetTextExtent(filter).x + FromDIP(48)};
  bar.SetStatusWidths(2, widths);
  bar.SetStatusText(ToWx(model_->CountsPane()), 0);
  bar.SetStatusText(filter, 1);
  UpdateDetails();
}

void CEventViewerFrame::UpdateDetails() {
  if (splitter_->IsSplit()) details_->ShowEntry(view_->FocusedEntry());
}

void CEventViewerFrame::NoteRecentFile(const std::string& path) {
  recentFiles_.Add(path);
  menu_.ShowRecentFiles(recentFiles_.paths());
}

// Flushed, so that the text can still be pasted when the program has ended.
void CEventViewerFrame::CopyToClipboard(const std::string& text) {
  const wxClipboardLocker clipboard;
  if (!clipboard) return;
  wxTheClipboard->SetData(new wxTextDataObject(ToWx(text)));
  wxTheClipboard->Flush();
}

void CEventViewerFrame::DoCommand(Command command) {
  switch (command) {
    case Command::kPrintPreview:
      return ShowPreview();
    case Command::kPrint:
      return printing_.Print(FrontWindow(), document_->list(), model_->LogName());
    case Command::kExit:
      Close();
      return;
    case Command::kFind:
      return ShowFindBar(true);
    case Command::kDetails:
      return ShowDetails(!splitter_->IsSplit());
    case Command::kHistogram:
      ShowBar(*histogram_, !histogram_->IsShown());
      return menu_.Check(command, histogram_->IsShown());
    case Command::kHelpTopics:
      return ShowHelp();
    case Command::kAbout:
      CAboutDlg(this).ShowModal();
      return;
    case Command::kGoToMachineBox:
      return machineBar_->box()->SetFocus();
    case Command::kNextControl:
    case Command::kPreviousControl:
      MoveFocus(command == Command::kNextControl);
      return;
    default:
      return;
  }
}

void CEventViewerFrame::ShowBar(wxWindow& bar, bool shown) {
  bar.Show(shown);
  bar.GetParent()->Layout();
  bar.GetParent()->Refresh();
}

void CEventViewerFrame::ShowFindBar(bool shown) {
  ShowBar(*findBar_, shown);
  if (shown) {
    findBar_->Begin();
  } else {
    list_->SetFocus();
  }
}

void CEventViewerFrame::ShowDetails(bool shown) {
  if (shown && !splitter_->IsSplit()) {
    splitter_->SplitHorizontally(list_, details_, splitter_->GetSashPosition());
  } else if (!shown) {
    splitter_->Unsplit(details_);
  }
  menu_.Check(Command::kDetails, splitter_->IsSplit());
  UpdateDetails();
}

// The bar belongs to the list and not to the pages; the caption stays the log's.
void CEventViewerFrame::ShowPreview() {
  const std::string caption = GetCaption();
  const bool shown = printing_.Preview(this, document_->list(), model_->LogName(), [this, caption] {
    ShowBar(*machineBar_, true);
    SetCaption(caption);
  });
  if (shown) ShowBar(*machineBar_, false);
}

void CEventViewerFrame::ShowHelp() {
  help_ = OpenHelp();
  if (!help_) {
    ShowTextMessage(messages_, FilledText(StringId::kHelpMissing, {HelpFilePath()}));
  }
}

std::vector<wxWindow*> CEventViewerFrame::FocusOrder() const {
  std::vector<wxWindow*> order = {machineBar_->box(), machineBar_->browseButton(),
                                  machineBar_->refreshButton(), list_};
  std::erase_if(order, [](const wxWindow* control) {
    return !control->IsShownOnScreen() || !control->IsEnabled();
  });
  return order;
}

// Between the box, its buttons and the list; elsewhere the toolkit knows the way.
bool CEventViewerFrame::MoveFocus(bool forward) {
  const wxWindow* const focus = wxWindow::FindFocus();
  const std::vector<wxWindow*> order = FocusOrder();
  const auto here = std::find_if(order.begin(), order.end(), [focus](const wxWindow* control) {
    return focus != nullptr && control->IsDescendant(const_cast<wxWindow*>(focus));
  });
  if (here == order.end()) return false;
  const auto place = static_cast<std::size_t>(here - order.begin());
  const std::size_t step = forward ? 1 : order.size() - 1;
  order[(place + step) % order.size()]->SetFocus();
  return true;
}

WindowPlacement CEventViewerFrame::GetPlacement() const {
  return PlacementOf(*this, lastNormal_);
}

void CEventViewerFrame::SetPlacement(const WindowPlacement& placement) {
  ApplyPlacement(*this, placement);
}

WorkArea CEventViewerFrame::GetWorkArea() const {
  const wxRect area = wxDisplay(this).GetClientArea();
  return {.width = area.width, .height = area.height};
}

}  // namespace qvl
