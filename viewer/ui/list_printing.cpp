#include "viewer/ui/list_printing.h"

#include <wx/choice.h>
#include <wx/dcmemory.h>
#include <wx/prntbase.h>
#include <wx/textctrl.h>
#include <wx/weakref.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <utility>
#include <vector>

#include "files/unicode_text.h"
#include "texts/filled_text.h"
#include "viewer/model/page_printout.h"
#include "viewer/ui/accessible_name.h"
#include "viewer/ui/message_boxes.h"
#include "viewer/ui/wx_text.h"

namespace qvl {
namespace {

// The units of batch mode's pages. Fine enough that what is rounded to them does not add up, and
// the same for preview and printer, so that both break their pages at the same entry.
constexpr int kUnitsPerInch = 600;
constexpr double kPointsPerInch = 72;
constexpr double kFontPoints = 10;
// What most printers cannot reach, for systems that do not say it.
constexpr int kUnreachedEdge = kUnitsPerInch / 4;

wxFont PrinterFont(double points) {
  return wxFont(wxFontInfo(points).Family(wxFONTFAMILY_TELETYPE));
}

// Of the font in the printout's units; measured large, since small letters are fitted to pixels.
PrinterMetrics MeasuredFont() {
  constexpr int kCharacters = 10;
  constexpr double kPoints = 200;
  wxBitmap bitmap(1, 1);
  wxMemoryDC dc(bitmap);
  dc.SetFont(PrinterFont(kPoints));
  wxCoord width = 0;
  wxCoord height = 0;
  wxCoord leading = 0;
  dc.GetTextExtent(wxString('0', kCharacters), &width, &height, nullptr, &leading);
  const double scale = (kFontPoints * kUnitsPerInch) / (kPoints * dc.GetPPI().y);
  const auto units = [scale](double pixels) { return static_cast<int>(std::ceil(pixels * scale)); };
  return {.fontHeight = std::max(1, units(height)),
          .externalLeading = units(leading),
          .averageCharacterWidth = std::max(1, units(static_cast<double>(width) / kCharacters))};
}

constexpr int kSampleLength = 100;

// The size in points with which the characters of a device are as wide as the layout has them:
// devices differ in what they take a point for. Returns the width of a sample line.
int SetFittedFont(wxDC& dc, int characterWidth) {
  const wxString sample('0', kSampleLength);
  double points = kFontPoints * kUnitsPerInch / kPointsPerInch;
  dc.SetFont(PrinterFont(points));
  points *=
      static_cast<double>(characterWidth * kSampleLength) / std::max(1, dc.GetTextExtent(sample).x);
  dc.SetFont(PrinterFont(points));
  return dc.GetTextExtent(sample).x;
}

// A preview's letters are fitted to its pixels, which adds up over a line: each gets its place.
void DrawSpaced(wxDC& dc, const wxString& text, const wxPoint& place, int characterWidth) {
  int x = place.x;
  for (const wxUniChar character : text) {
    const wxString letter(character);
    if (character != ' ') dc.DrawText(letter, x, place.y);
    x += characterWidth * static_cast<int>(TextColumns(FromWx(letter)));
  }
}

class PreviewFrame : public wxPreviewFrame {
 public:
  PreviewFrame(wxPrintPreview* preview, wxFrame* owner, std::function<void()> closed)
      : wxPreviewFrame(preview, owner, owner->GetTitle(), owner->GetPosition(), owner->GetSize()),
        closed_(std::move(closed)) {
    // What is disabled behind the preview loses the keyboard, and nothing gives it back. At once: a
    // key may wait already.
    const wxWeakRef<wxWindow> focus = wxWindow::FindFocus();
    Bind(wxEVT_CLOSE_WINDOW, [this, focus](wxCloseEvent& event) {
      closed_();
      OnCloseWindow(event);
      if (focus) focus->SetFocus();
    });
  }

 private:
  std::function<void()> closed_;
};

// The toolkit shows what its buttons are for when the pointer rests on them, and no more.
void NameControls(wxPreviewControlBar& bar) {
  for (wxWindow* const control : bar.GetChildren()) {
    wxString name = control->GetToolTipText();
    if (dynamic_cast<wxTextCtrl*>(control) != nullptr) {
      name = TextOf(StringId::kPreviewPageNumber);
    } else if (dynamic_cast<wxChoice*>(control) != nullptr) {
      name = TextOf(StringId::kPreviewZoom);
    }
    if (!name.empty()) SetAccessibleName(*control, name);
  }
  // Some systems give this button their own label, in whichever language they have it.
  wxWindow* const close = bar.FindWindow(wxID_PREVIEW_CLOSE);
  if (close != nullptr) close->SetLabel(TextOf(StringId::kClose));
}

void TellFailure() {
  MessageBoxes messages;
  std::string text = FilledText(StringId::kPrintFailed, {""});
  while (!text.empty() && text.back() == '\n') text.pop_back();
  ShowTextMessage(messages, std::move(text));
}

}  // namespace

ListPrintout::ListPrintout(const ListModel& list, std::string logName)
    : wxPrintout(TextOf(StringId::kPrintTitle)), list_(list), logName_(std::move(logName)) {}

// What the printer can reach, in the printout's units.
wxRect ListPrintout::FitUnitsToPage() {
  int width = 0;
  int height = 0;
  int horizontal = 0;
  int vertical = 0;
  GetPageSizePixels(&width, &height);
  GetPPIPrinter(&horizontal, &vertical);
  wxRect area(0, 0, width * kUnitsPerInch / std::max(1, horizontal),
              height * kUnitsPerInch / std::max(1, vertical));
  FitThisSizeToPage(area.GetSize());
  if (GetPaperRectPixels().GetSize() == wxSize(width, height)) area.Deflate(kUnreachedEdge);
  return area;
}

void ListPrintout::OnPreparePrinting() {
  const wxRect area = FitUnitsToPage();
  PrinterMetrics metrics = MeasuredFont();
  metrics.horizontalResolution = area.width;
  metrics.verticalResolution = area.height;
  characterWidth_ = metrics.averageCharacterWidth;
  layout_.emplace(metrics);
  pages_ = PrintoutPageCount(*layout_, list_);
}

bool ListPrintout::HasPage(int page) {
  return page >= 1 && page <= pages_;
}

void ListPrintout::GetPageInfo(int* first, int* last, int* fromPage, int* toPage) {
  *first = *fromPage = 1;
  *last = *toPage = pages_;
}

bool ListPrintout::OnPrintPage(int page) {
  if (!layout_) return false;
  const wxRect area = FitUnitsToPage();
  wxDC& dc = *GetDC();
  const int wanted = characterWidth_ * kSampleLength;
  const bool isEven = std::abs(SetFittedFont(dc, characterWidth_) - wanted) <= characterWidth_;
  dc.SetTextForeground(*wxBLACK);
  int line = 0;
  for (const std::string& bytes : PrintoutPage(*layout_, list_, logName_, page)) {
    const wxString text = ToWx(bytes);
    const wxPoint place(area.x + kPageMargin, area.y + layout_->LineTop(line++));
    if (isEven) {
      dc.DrawText(text, place);
    } else {
      DrawSpaced(dc, text, place, characterWidth_);
    }
  }
  return true;
}

void ListPrinting::Print(wxWindow* owner, const ListModel& list, const std::string& logName) {
  wxPrintDialogData data(printData_);
  wxPrinter printer(&data);
  ListPrintout printout(list, logName);
  wxWindow* const focus = wxWindow::FindFocus();
  const bool printed = printer.Print(owner, &printout, true);
  if (focus != nullptr) focus->SetFocus();  // the toolkit leaves it anywhere
  if (printed) {
    printData_ = printer.GetPrintDialogData().GetPrintData();
  } else if (wxPrinter::GetLastError() == wxPRINTER_ERROR) {
    TellFailure();
  }
}

bool ListPrinting::Preview(wxFrame* owner, const ListModel& list, const std::string& logName,
                           std::function<void()> closed) {
  auto preview = std::make_unique<wxPrintPreview>(new ListPrintout(list, logName),
                                                  new ListPrintout(list, logName), &printData_);
  if (!preview->IsOk()) {
    TellFailure();
    return false;
  }
  auto* const frame = new PreviewFrame(preview.release(), owner, std::move(closed));
  frame->InitializeWithModality(wxPreviewFrame_AppModal);
  if (auto* const bar = dynamic_cast<wxPreviewControlBar*>(frame->GetControlBar()))
    NameControls(*bar);
  frame->Show();
  frame->Raise();
  return true;
}

}  // namespace qvl
