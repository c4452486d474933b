#include "viewer/ui/event_viewer_frame.h"

#include <wx/clipbrd.h>
#include <wx/display.h>
#include <wx/evtloop.h>
#include <wx/log.h>
#include <wx/textentry.h>
#include <wx/utils.h>

#include <algorithm>

#include "texts/filled_text.h"
#include "viewer/model/start_up.h"
#include "viewer/ui/about_dialog.h"
#include "viewer/ui/front_window.h"
#include "viewer/ui/window_placement.h"
#include "viewer/ui/wx_text.h"

namespace qvl {
namespace {

// In a field the key copies what is selected there, as users know it.
bool CopyFromField() {
  auto* const field = dynamic_cast<wxTextEntry*>(wxWindow::FindFocus());
  if (field == nullptr || !field->CanCopy()) return false;
  field->Copy();
  return true;
}

std::optional<std::size_t> PlaceInFocusOrder(const std::vector<wxWindow*>& order) {
  auto* const focus = wxWindow::FindFocus();
  const auto here = std::find_if(order.begin(), order.end(), [focus](const wxWindow* control) {
    return focus != nullptr && control->IsDescendant(focus);
  });
  if (here == order.end()) return std::nullopt;
  return static_cast<std::size_t>(here - order.begin());
}

// Who has the clipboard may be asking this program for what it put there last: looking for events
// answers that, and handles none of them.
void WaitForOthers(unsigned milliseconds) {
  wxMilliSleep(milliseconds);
  wxEventLoopBase* const loop = wxEventLoopBase::GetActive();
  if (loop != nullptr) static_cast<void>(loop->Pending());
}

// Flushed, so that the text can still be pasted when the program has ended.
bool PutOnClipboard(const wxString& text) {
  const wxLogNull silence;  // the user is told once and in the program's words
  const wxClipboardLocker clipboard;
  if (!clipboard || !wxTheClipboard->SetData(new wxTextDataObject(text))) return false;
  wxTheClipboard->Flush();
  return true;
}

}  // namespace

void CEventViewerFrame::Begin() {
  NotePlace();
  view_->Create();
  model_->Start();
  model_->OnShow();
  list_->TakeFocus();
}

// A window that had to close while something ran closes when that has ended.
void CEventViewerFrame::Run(const std::function<void()>& operation) {
  operation();
  if (closesAfterwards_ && !model_->isOperating()) Close(true);
}

void CEventViewerFrame::Execute(Command command) {
  if (command == Command::kCopy && CopyFromField()) return;
  Run([this, command] { model_->Execute(command); });
}

void CEventViewerFrame::OpenArgument(const std::string& argument) {
  OpenFile(PathOfArgument(argument));
}

void CEventViewerFrame::OpenFile(const std::string& path) {
  Run([this, &path] { model_->OpenLogFile(path); });
}

// Tab is no key of a menu, and some lists take Ctrl+M for Enter: so these come first. Keys of the
// preview and the help come here, too, and mean nothing to this window.
void CEventViewerFrame::OnCharHook(wxKeyEvent& event) {
  auto* const window = dynamic_cast<wxWindow*>(event.GetEventObject());
  Command command = Command::kExit;
  if (window == nullptr || wxGetTopLevelParent(window) != this || !keys_.Find(event, command)) {
    event.Skip();
    return;
  }
  const bool moves = command == Command::kNextControl || command == Command::kPreviousControl;
  if (moves && !PlaceInFocusOrder(FocusOrder())) {
    event.Skip();
  } else {
    Execute(command);
  }
}

// What runs stands on the stack below this window's end, so it ends first.
void CEventViewerFrame::OnClose(wxCloseEvent& event) {
  if (!model_->isOperating()) {
    model_->Stop();
    Destroy();
    return;
  }
  progress_.RequestCancel();
  if (event.CanVeto()) {
    event.Veto();
  } else {
    Remember();
    closesAfterwards_ = true;
  }
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

// The keyboard points nowhere: its menu opens below the row that it works on.
wxPoint CEventViewerFrame::PlaceOfContextMenu(const wxContextMenuEvent& event) {
  if (event.GetPosition() != wxDefaultPosition) return wxDefaultPosition;  // where the pointer is
  std::size_t row = listAdapter_->FocusedRow();
  if (row == ListControl::kNoRow) row = listAdapter_->NextSelectedRow(0);
  const auto item = static_cast<long>(row);
  list_->EnsureVisible(item);
  wxRect place;
  if (!list_->GetItemRect(item, place, wxLIST_RECT_LABEL)) return wxDefaultPosition;
  const wxPoint below(std::max(place.x, 0), place.y + place.height);
  return ScreenToClient(list_->ClientToScreen(below));
}

void CEventViewerFrame::OnContextMenu(wxContextMenuEvent& event) {
  if (!view_->OffersContextMenu()) return;
  const std::unique_ptr<wxMenu> menu(NewContextMenu());
  for (const MenuItem& item : ContextMenu()) {
    menu->Enable(IdOf(item.command), model_->IsEnabled(item.command));
  }
  PopupMenu(menu.get(), PlaceOfContextMenu(event));
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
  if (bar.GetStatusText(1) != filter) {  // what is set is painted, the same widths, too
    const int widths[] = {-1, bar.GetTextExtent(filter).x + FromDIP(48)};
    bar.SetStatusWidths(2, widths);
    bar.SetStatusText(filter, 1);
  }
  bar.SetStatusText(ToWx(model_->CountsPane()), 0);
  UpdateDetails();
}

void CEventViewerFrame::UpdateDetails() {
  if (splitter_->IsSplit()) details_->ShowEntry(view_->FocusedEntry());
}

void CEventViewerFrame::ShowRecentFiles(const std::vector<std::string>& paths) {
  menu_.ShowRecentFiles(paths);
}

void CEventViewerFrame::ShowSearchAnswer(const std::string& answer) {
  findBar_->ShowAnswer(answer);
}

// Programs that look at every copy keep the clipboard for themselves for a moment.
void CEventViewerFrame::CopyToClipboard(const std::string& text) {
  constexpr int kAttempts = 20;
  constexpr unsigned kMillisecondsBetween = 50;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    if (attempt > 0) WaitForOthers(kMillisecondsBetween);
    if (PutOnClipboard(ToWx(text))) return;
  }
  ShowResourceMessage(messages_, StringId::kCopyFailed);
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
      list_->GiveUpFocus();
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
    list_->GiveUpFocus();
    findBar_->Begin();
  } else {
    list_->SetFocus();
  }
}

void CEventViewerFrame::ShowDetails(bool shown) {
  if (shown && !splitter_->IsSplit()) {
    splitter_->SplitHorizontally(list_, details_, -detailsHeight_);
  } else if (!shown && splitter_->IsSplit()) {
    wxWindow* const focus = wxWindow::FindFocus();
    detailsHeight_ = details_->GetSize().y;
    splitter_->Unsplit(details_);
    if (focus != nullptr && details_->IsDescendant(focus)) list_->TakeFocus();
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
    model_->SetPreviewShown(false);
  });
  if (!shown) return;
  ShowBar(*machineBar_, false);
  model_->SetPreviewShown(true);
}

void CEventViewerFrame::ShowHelp() {
  if (help_.Show()) return;
  ShowTextMessage(messages_, FilledText(StringId::kHelpMissing, {HelpFilePath()}));
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
void CEventViewerFrame::MoveFocus(bool forward) {
  const std::vector<wxWindow*> order = FocusOrder();
  const std::optional<std::size_t> place = PlaceInFocusOrder(order);
  if (!place) return;
  list_->GiveUpFocus();
  const std::size_t step = forward ? 1 : order.size() - 1;
  order[(*place + step) % order.size()]->SetFocus();
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
