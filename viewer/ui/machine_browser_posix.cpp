#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/listbox.h>
#include <wx/log.h>
#include <wx/process.h>
#include <wx/stopwatch.h>
#include <wx/stream.h>
#include <wx/timer.h>
#include <wx/utils.h>

#include <algorithm>
#include <string>
#include <vector>

#include "viewer/model/network_search.h"
#include "viewer/ui/accessible_name.h"
#include "viewer/ui/dialog_parts.h"
#include "viewer/ui/machine_browser.h"
#include "viewer/ui/wx_text.h"

namespace qvl {
namespace {

constexpr int kMillisecondsBetweenLooks = 100;
constexpr long kLongestSearchMilliseconds = 20000;
// So that whatever a network announces, the window stays answering.
constexpr int kMostBytesALook = 16384;
constexpr unsigned kMostMachines = 1000;

/// A list that fills while the network answers.
class MachineBrowser : public wxDialog {
 public:
  explicit MachineBrowser(wxWindow* owner);
  ~MachineBrowser() override;

  wxString Name() const { return machines_->GetStringSelection(); }

 private:
  struct Search {
    wxProcess* process;
    long pid;
    SearchOutput output;
  };

  void Start();
  void OnTimer();
  void Read(Search& search);
  void List(const std::vector<std::string>& machines);
  void OnEnd(wxProcessEvent& event);
  void EndPrograms();
  void ShowState();

  wxListBox* machines_;
  wxStaticText* state_;
  wxTimer timer_;
  wxStopWatch watch_;
  std::vector<Search> searches_;
};

MachineBrowser::MachineBrowser(wxWindow* owner)
    : wxDialog(owner, wxID_ANY, TextOf(StringId::kApplicationTitle), wxDefaultPosition,
               wxDefaultSize, wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER) {
  machines_ = new wxListBox(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(380, 200)), 0,
                            nullptr, wxLB_SINGLE | wxLB_SORT);
  SetAccessibleName(*machines_, TextOf(StringId::kMachineName));
  // As high as the longer of its two texts.
  state_ = WrappedText(*this, StringId::kBrowserEmpty);
  auto* const column = new wxBoxSizer(wxVERTICAL);
  const wxSizerFlags flags = wxSizerFlags().Expand().Border(wxALL, FromDIP(10));
  column->Add(WrappedText(*this, StringId::kBrowsePrompt), flags);
  column->Add(machines_, wxSizerFlags(flags).Proportion(1));
  column->Add(state_, flags);
  column->Add(OkAndCancel(*this), flags);
  SetSizerAndFit(column);
  state_->SetMinSize(state_->GetSize());
  CentreOnParent();

  Bind(
      wxEVT_UPDATE_UI, [this](wxUpdateUIEvent& event) { event.Enable(!Name().empty()); }, wxID_OK);
  machines_->Bind(wxEVT_LISTBOX_DCLICK, [this](wxCommandEvent&) { EndModal(wxID_OK); });
  Bind(wxEVT_END_PROCESS, &MachineBrowser::OnEnd, this);
  timer_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { OnTimer(); });
  timer_.Start(kMillisecondsBetweenLooks);
  Start();
}

MachineBrowser::~MachineBrowser() {
  EndPrograms();
  for (const Search& search : searches_) {
    search.process->Detach();  // deletes itself when its program has ended
  }
}

void MachineBrowser::EndPrograms() {
  for (const Search& search : searches_) {
    wxProcess::Kill(static_cast<int>(search.pid), wxSIGTERM);
  }
}

void MachineBrowser::Start() {
  const wxLogNull silence;  // a program that is not installed is none of the user's business
  for (const SearchProgram& program : SearchPrograms()) {
    auto* const process = new wxProcess(this);
    process->Redirect();
    const long pid = wxExecute(program.command, wxEXEC_ASYNC, process);
    if (pid > 0) {
      searches_.push_back({process, pid, SearchOutput(program.machineOf)});
    } else {
      delete process;
    }
  }
  ShowState();
}

// A byte at a time: asking for more than there is would wait for it.
void MachineBrowser::Read(Search& search) {
  wxInputStream& stream = *search.process->GetInputStream();
  std::string piece;
  while (piece.size() < kMostBytesALook && search.process->IsInputAvailable()) {
    const int byte = stream.GetC();
    if (byte == wxEOF) break;
    piece += static_cast<char>(byte);
  }
  List(search.output.Add(piece));
}

void MachineBrowser::List(const std::vector<std::string>& machines) {
  for (const std::string& name : machines) {
    if (machines_->GetCount() >= kMostMachines) return;
    if (machines_->FindString(ToWx(name)) == wxNOT_FOUND) machines_->Append(ToWx(name));
  }
}

void MachineBrowser::OnTimer() {
  for (Search& search : searches_) Read(search);
  if (watch_.Time() < kLongestSearchMilliseconds) return;
  watch_.Start();  // again, should a program not have ended by then
  EndPrograms();
}

void MachineBrowser::OnEnd(wxProcessEvent& event) {
  const auto ended =
      std::find_if(searches_.begin(), searches_.end(),
                   [&event](const Search& search) { return search.pid == event.GetPid(); });
  if (ended == searches_.end()) return;
  Read(*ended);
  List(ended->output.End());
  delete ended->process;
  searches_.erase(ended);
  ShowState();
}

void MachineBrowser::ShowState() {
  wxString text;
  if (!searches_.empty()) {
    text = TextOf(StringId::kBrowserSearching);
  } else if (machines_->IsEmpty()) {
    text = TextOf(StringId::kBrowserEmpty);
  }
  state_->SetLabelText(BrokenIntoLines(*state_, text, GetClientSize().x - FromDIP(20)));
}

}  // namespace

std::optional<std::string> BrowseForMachine(wxWindow* owner) {
  MachineBrowser browser(owner);
  if (browser.ShowModal() != wxID_OK || browser.Name().empty()) return std::nullopt;
  return FromWx(browser.Name());
}

}  // namespace qvl
