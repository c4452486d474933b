#include "viewer/ui/list_printing.h"

#include <wx/prntbase.h>

#include <memory>
#include <utility>
#include <vector>

#include "texts/filled_text.h"
#include "viewer/model/page_printout.h"
#include "viewer/ui/front_window.h"
#include "viewer/ui/wx_text.h"

namespace qvl {
namespace {

constexpr int kFontPoints = 10;

wxFont PrinterFont() {
  return wxFont(wxFontInfo(kFontPoints).Family(wxFONTFAMILY_TELETYPE));
}

class PreviewFrame : public wxPreviewFrame {
 public:
  PreviewFrame(wxPrintPreview* preview, wxFrame* owner, std::function<void()> closed)
      : wxPreviewFrame(preview, owner, owner->GetTitle(), owner->GetPosition(), owner->GetSize()),
        closed_(std::move(closed)) {
    Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent& event) {
      closed_();
      event.Skip();
    });
  }

 private:
  std::function<void()> closed_;
};

void TellFailure() {
  MessageBoxes messages;
  std::string text = FilledText(StringId::kPrintFailed, {""});
  while (!text.empty() && text.back() == '\n') text.pop_back();
  ShowTextMessage(messages, std::move(text));
}

}  // namespace

ListPrintout::ListPrintout(const ListModel& list, std::string logName)
    : wxPrintout(TextOf(StringId::kPrintTitle)), list_(list), logName_(std::move(logName)) {}

// Units as large as the screen's, so that the preview breaks its pages where the printer does.
void ListPrintout::PrepareDC() {
  MapScreenSizeToPage();
  GetDC()->SetFont(PrinterFont());
}

void ListPrintout::OnPreparePrinting() {
  PrepareDC();
  wxDC& dc = *GetDC();
  const wxRect page = GetLogicalPageRect();
  wxCoord width = 0;
  wxCoord height = 0;
  wxCoord leading = 0;
  dc.GetTextExtent("0000000000", &width, &height, nullptr, &leading);
  layout_.emplace(PrinterMetrics{.horizontalResolution = page.width,
                                 .verticalResolution = page.height,
                                 .fontHeight = height,
                                 .externalLeading = leading,
                                 .averageCharacterWidth = std::max(1, (width + 9) / 10)});
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
  PrepareDC();
  wxDC& dc = *GetDC();
  const wxRect area = GetLogicalPageRect();
  dc.SetTextForeground(*wxBLACK);
  int line = 0;
  for (const std::string& text : PrintoutPage(*layout_, list_, logName_, page)) {
    dc.DrawText(ToWx(text), area.x + kPageMargin, area.y + layout_->LineTop(line++));
  }
  return true;
}

void ListPrinting::Print(wxWindow* owner, const ListModel& list, const std::string& logName) {
  wxPrintDialogData data(printData_);
  wxPrinter printer(&data);
  ListPrintout printout(list, logName);
  if (printer.Print(owner, &printout, true)) {
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
  frame->Show();
  frame->Raise();
  return true;
}

}  // namespace qvl
