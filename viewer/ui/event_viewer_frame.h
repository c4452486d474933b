#ifndef QVL_VIEWER_UI_EVENT_VIEWER_FRAME_H_
#define QVL_VIEWER_UI_EVENT_VIEWER_FRAME_H_

#include <wx/frame.h>
#include <wx/splitter.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "viewer/model/entry_list_view.h"
#include "viewer/model/event_viewer_doc.h"
#include "viewer/model/frame_model.h"
#include "viewer/ui/details_pane.h"
#include "viewer/ui/event_viewer_view.h"
#include "viewer/ui/find_bar.h"
#include "viewer/ui/frame_menu.h"
#include "viewer/ui/help.h"
#include "viewer/ui/histogram_strip.h"
#include "viewer/ui/list_printing.h"
#include "viewer/ui/machine_bar.h"
#include "viewer/ui/message_boxes.h"
#include "viewer/ui/own_dialogs.h"
#include "viewer/ui/path_dialogs.h"
#include "viewer/ui/system_clock.h"
#include "viewer/ui/threaded_work.h"
#include "viewer/ui/working_window.h"

namespace qvl {

/// The main window: builds the controls, joins them with the model and hands every event on to it.
/// The process's language stands before it is made: the filter's choices are texts.
class CEventViewerFrame : public wxFrame, public MainWindow {
 public:
  /// settings  outlives the frame.
  explicit CEventViewerFrame(Settings& settings);
  ~CEventViewerFrame() override;

  /// Takes the place that is remembered; before the frame is shown.
  void Begin();

  /// A path, or a "file:" URI: from the command line, the shell or a drop.
  void OpenArgument(const std::string& argument);

  /// True while something that the user started has not ended.
  bool isOperating() const { return model_->isOperating(); }
  /// Keeps what the next run begins with; the window may not live to be closed.
  void Remember() { model_->Remember(); }

  std::string GetCaption() const override;
  void SetCaption(const std::string& caption) override;
  void UpdateControls() override;
  void ShowRecentFiles(const std::vector<std::string>& paths) override;
  void ShowSearchAnswer(const std::string& answer) override;
  void CopyToClipboard(const std::string& text) override;
  void DoCommand(Command command) override;
  WindowPlacement GetPlacement() const override;
  void SetPlacement(const WindowPlacement& placement) override;
  WorkArea GetWorkArea() const override;

 private:
  // event_viewer_frame_controls.cpp
  void CreateControls();
  void CreateModel(Settings& settings);
  void BindFrameEvents();
  void BindListEvents();
  wxWindow* NewSplitter(wxWindow* parent);

  void Run(const std::function<void()>& operation);
  void Execute(Command command);
  void OpenFile(const std::string& path);
  void OnCharHook(wxKeyEvent& event);
  void OnClose(wxCloseEvent& event);
  void UpdateSoon();
  void OnContextMenu(wxContextMenuEvent& event);
  wxPoint PlaceOfContextMenu(const wxContextMenuEvent& event);
  void NotePlace();

  void ShowBar(wxWindow& bar, bool shown);
  void ShowDetails(bool shown);
  void ShowFindBar(bool shown);
  void ShowPreview();
  void ShowHelp();
  void UpdateDetails();
  std::vector<wxWindow*> FocusOrder() const;
  void MoveFocus(bool forward);

  MachineBar* machineBar_ = nullptr;
  FindBar* findBar_ = nullptr;
  HistogramStrip* histogram_ = nullptr;
  wxSplitterWindow* splitter_ = nullptr;
  CEventViewerView* list_ = nullptr;
  DetailsPane* details_ = nullptr;
  int detailsHeight_ = 0;
  FrameMenu menu_;
  FrameKeys keys_;
  ListPrinting printing_;
  Help help_;
  wxRect lastNormal_;
  bool updatePending_ = false;
  bool closesAfterwards_ = false;

  SystemClock clock_;
  MessageBoxes messages_;
  PathDialogs paths_;
  WorkingWindow progress_;
  ThreadedWork work_;
  OwnDialogs dialogs_;
  std::unique_ptr<ListAdapter> listAdapter_;
  std::unique_ptr<ViewerEnvironment> environment_;
  std::unique_ptr<CEventViewerDoc> document_;
  std::unique_ptr<EntryListView> view_;
  std::unique_ptr<FrameModel> model_;
};

}  // namespace qvl

#endif  // QVL_VIEWER_UI_EVENT_VIEWER_FRAME_H_
