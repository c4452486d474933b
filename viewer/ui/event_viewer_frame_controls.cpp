#include <wx/dnd.h>
#include <wx/iconbndl.h>
#include <wx/sizer.h>

#include "platform/system_names.h"
#include "viewer/ui/event_viewer_frame.h"
#include "viewer/ui/list_pictures.h"
#include "viewer/ui/wx_text.h"

namespace qvl {
namespace {

constexpr int kSmallestDetails = 90;
constexpr int kDetailsHeight = 190;
// Until the window takes its place; controls dislike to be laid out in less than they need.
constexpr int kInitialWidth = 740;
constexpr int kInitialHeight = 540;

/// Opens a log file that is dropped on the window, after the drop has ended: a message must not
/// keep the program waiting from which the file was dragged.
class LogFileDrop : public wxFileDropTarget {
 public:
  LogFileDrop(wxEvtHandler& frame, std::function<void(const std::string&)> open)
      : frame_(frame), open_(std::move(open)) {}

  bool OnDropFiles(wxCoord /*x*/, wxCoord /*y*/, const wxArrayString& paths) override {
    if (paths.empty()) return false;
    const std::string path = PathFromWx(paths[0]);
    frame_.CallAfter([open = open_, path] { open(path); });
    return true;
  }

 private:
  wxEvtHandler& frame_;
  std::function<void(const std::string&)> open_;
};

wxIconBundle ProgramIcons() {
  wxIconBundle icons;
  for (const int pixels : {16, 24, 32, 48}) {
    icons.AddIcon(ProgramPicture().GetIcon(wxSize(pixels, pixels)));
  }
  return icons;
}

}  // namespace

CEventViewerFrame::CEventViewerFrame(Settings& settings)
    : wxFrame(nullptr, wxID_ANY, TextOf(StringId::kApplicationTitle), wxDefaultPosition,
              wxSize(kInitialWidth, kInitialHeight)),
      progress_(this),
      work_([this] { return progress_.window(); }),
      dialogs_(this, messages_,
               [this](Command command) { model_->ExecuteBeforeClearing(command); }) {
  SetIcons(ProgramIcons());
  CreateControls();
  CreateModel(settings);
  BindFrameEvents();
  BindListEvents();
}

// The list outlives what its handlers use, and tells as it goes that no row is selected any more.
CEventViewerFrame::~CEventViewerFrame() {
  list_->SetModel(nullptr);
  list_->SetEvtHandlerEnabled(false);
  SetEvtHandlerEnabled(false);
}

void CEventViewerFrame::CreateControls() {
  SetMenuBar(menu_.bar());
  CreateStatusBar(2);
  SetStatusBarPane(-1);  // the counts stay while a menu is open

  auto* const panel = new wxPanel(this);
  const auto choose = [this] { Run([this] { model_->ChooseMachine(machineBar_->Text()); }); };
  machineBar_ = new MachineBar(panel, {.choose = choose,
                                       .browse = [this] { Execute(Command::kBrowse); },
                                       .refresh = [this] { Execute(Command::kRefresh); }});
  findBar_ =
      new FindBar(panel, {.typed = [this](const std::string& text) { model_->FindTyped(text); },
                          .execute = [this](Command command) { Execute(command); },
                          .close = [this] { ShowFindBar(false); }});
  histogram_ = new HistogramStrip(
      panel,
      {.count = [this](std::size_t largestBuckets) { return view_->Histogram(largestBuckets); },
       .choose =
           [this](const TimeRange& range) {
             Run([this, &range] { model_->FilterByTime(range); });
           }});
  auto* const column = new wxBoxSizer(wxVERTICAL);
  column->Add(machineBar_, wxSizerFlags().Expand());
  column->Add(findBar_, wxSizerFlags().Expand());
  column->Add(histogram_, wxSizerFlags().Expand());
  column->Add(NewSplitter(panel), wxSizerFlags(1).Expand());
  findBar_->Hide();
  histogram_->Hide();
  panel->SetSizer(column);
  panel->SetDropTarget(new LogFileDrop(*this, [this](const std::string& path) { OpenFile(path); }));
}

wxWindow* CEventViewerFrame::NewSplitter(wxWindow* parent) {
  splitter_ = new wxSplitterWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                   wxSP_LIVE_UPDATE | wxSP_NOBORDER);
  splitter_->SetSashGravity(1);
  splitter_->SetMinimumPaneSize(FromDIP(kSmallestDetails));
  list_ = new CEventViewerView(splitter_);
  details_ = new DetailsPane(splitter_);
  details_->Hide();
  splitter_->Initialize(list_);
  detailsHeight_ = FromDIP(kDetailsHeight);
  return splitter_;
}

void CEventViewerFrame::CreateModel(Settings& settings) {
  listAdapter_ = std::make_unique<ListAdapter>(
      *list_, ListAdapter::Handlers{.rowsChanged = [this] { histogram_->Invalidate(); },
                                    .selectionChanged = [this] { UpdateSoon(); }});
  environment_ =
      std::make_unique<ViewerEnvironment>(ViewerEnvironment{.client = ProcessRemoteMonitorClient(),
                                                            .work = work_,
                                                            .progress = progress_,
                                                            .messages = messages_,
                                                            .files = paths_,
                                                            .dialogs = dialogs_,
                                                            .window = *this,
                                                            .machineBox = *machineBar_,
                                                            .list = *listAdapter_,
                                                            .clock = clock_,
                                                            .settings = settings,
                                                            .computerName = ComputerName,
                                                            .userName = LoggedOnUserName,
                                                            .lineEnd = kSystemLineEnd});
  document_ = std::make_unique<CEventViewerDoc>(*environment_);
  list_->SetModel(&document_->list());
  view_ = std::make_unique<EntryListView>(*environment_, *document_);
  model_ = std::make_unique<FrameModel>(*environment_, *document_, *view_);
}

void CEventViewerFrame::BindFrameEvents() {
  Bind(
      wxEVT_MENU, [this](wxCommandEvent& event) { Execute(CommandOf(event.GetId())); },
      FirstCommandId(), LastCommandId());
  Bind(
      wxEVT_MENU,
      [this](wxCommandEvent& event) {
        const auto index = static_cast<std::size_t>(event.GetId() - wxID_FILE1);
        Run([this, index] { model_->OpenRecentFile(index); });
      },
      wxID_FILE1, wxID_FILE9);
  Bind(wxEVT_IDLE, [this](wxIdleEvent& event) {
    if (model_->ContinueSearch()) event.RequestMore();
  });
  SetAcceleratorTable(AltKeys());
  Bind(wxEVT_CHAR_HOOK, &CEventViewerFrame::OnCharHook, this);
  Bind(wxEVT_CLOSE_WINDOW, &CEventViewerFrame::OnClose, this);
  Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    NotePlace();
    event.Skip();
  });
  Bind(wxEVT_MOVE, [this](wxMoveEvent& event) {
    NotePlace();
    event.Skip();
  });
}

void CEventViewerFrame::BindListEvents() {
  const auto changed = [this](wxListEvent&) {
    if (!list_->isQuiet()) UpdateSoon();
  };
  list_->Bind(wxEVT_LIST_ITEM_SELECTED, changed);
  list_->Bind(wxEVT_LIST_ITEM_DESELECTED, changed);
  list_->Bind(wxEVT_LIST_ITEM_FOCUSED, changed);
  list_->Bind(wxEVT_LIST_ITEM_ACTIVATED, [this](wxListEvent&) { ShowDetails(true); });
  list_->Bind(wxEVT_LIST_COL_CLICK, [this](wxListEvent& event) {
    if (event.GetColumn() >= 0) model_->ClickHeader(static_cast<Column>(event.GetColumn()));
    list_->Update();  // at once, and not with the next frame of the screen
  });
  list_->Bind(wxEVT_CONTEXT_MENU, &CEventViewerFrame::OnContextMenu, this);
}

}  // namespace qvl
