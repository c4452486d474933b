// A window from which a test drags files: everything in it is a handle.
//
//   drag_source FILE...

#include <wx/app.h>
#include <wx/dataobj.h>
#include <wx/dnd.h>
#include <wx/filename.h>
#include <wx/frame.h>
#include <wx/panel.h>

namespace {

class DragSourceFrame : public wxFrame {
 public:
  explicit DragSourceFrame(const wxArrayString& paths)
      : wxFrame(nullptr, wxID_ANY, "Drag source", wxPoint(0, 0), wxSize(200, 100),
                wxDEFAULT_FRAME_STYLE | wxSTAY_ON_TOP) {
    auto* const handle = new wxPanel(this);
    handle->Bind(wxEVT_LEFT_DOWN, [handle, paths](wxMouseEvent&) {
      wxFileDataObject files;
      for (const wxString& path : paths) files.AddFile(path);
      wxDropSource source(files, handle);
      source.DoDragDrop(wxDrag_CopyOnly);
    });
  }
};

}  // namespace

class DragSourceApp : public wxApp {
 public:
  bool OnInit() override {
    wxArrayString paths;
    for (const wxString& argument : argv.GetArguments()) {
      wxFileName path(argument);
      path.MakeAbsolute();
      paths.Add(path.GetFullPath());
    }
    paths.RemoveAt(0);  // the program itself
    return (new DragSourceFrame(paths))->Show();
  }
};

wxIMPLEMENT_APP(DragSourceApp);
