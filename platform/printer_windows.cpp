#include "platform/printer.h"

#include <windows.h>

#include <commdlg.h>

#include "platform/wide_text_windows.h"

namespace qvl {
namespace {

Status LastError(const char* operation) {
  return Status::Failed(std::string(operation) + ": " + SystemErrorText(::GetLastError()));
}

// Draws on a printer's device context, in the font that stands in it from the start.
class ContextPrinter : public Printer {
 public:
  // Takes the context over, and the settings that the print dialog returned with it.
  explicit ContextPrinter(const PRINTDLGW& dialog)
      : context_(dialog.hDC), settings_(dialog.hDevMode), names_(dialog.hDevNames) {}
  ~ContextPrinter() override {
    if (started_) ::AbortDoc(context_);
    ::DeleteDC(context_);
    if (settings_ != nullptr) ::GlobalFree(settings_);
    if (names_ != nullptr) ::GlobalFree(names_);
  }
  ContextPrinter(const ContextPrinter&) = delete;
  ContextPrinter& operator=(const ContextPrinter&) = delete;

  PrinterMetrics Metrics() const override {
    TEXTMETRICA font = {};
    ::GetTextMetricsA(context_, &font);
    return {.horizontalResolution = ::GetDeviceCaps(context_, HORZRES),
            .verticalResolution = ::GetDeviceCaps(context_, VERTRES),
            .fontHeight = font.tmHeight,
            .externalLeading = font.tmExternalLeading,
            .averageCharacterWidth = font.tmAveCharWidth};
  }

  Status StartDocument(const std::string& name) override {
    const std::wstring wideName = WideFromUtf8(name);
    DOCINFOW document = {};
    document.cbSize = sizeof document;
    document.lpszDocName = wideName.c_str();
    pagesDrawn_ = true;
    started_ = ::StartDocW(context_, &document) > 0;
    return started_ ? Status::Ok() : LastError("cannot start printing");
  }

  void StartPage() override { NotePage(::StartPage(context_)); }

  void DrawLine(int x, int y, std::string_view text) override {
    const std::wstring wide = WideFromUtf8(text);
    ::TextOutW(context_, x, y, wide.c_str(), static_cast<int>(wide.size()));
  }

  void EndPage() override { NotePage(::EndPage(context_)); }

  Status EndDocument() override {
    started_ = false;
    if (!pagesDrawn_) {
      ::AbortDoc(context_);
      return Status::Failed("cannot print a page");
    }
    return ::EndDoc(context_) > 0 ? Status::Ok() : LastError("cannot end printing");
  }

 private:
  void NotePage(int result) {
    if (result <= 0) pagesDrawn_ = false;
  }

  HDC context_;
  HGLOBAL settings_;
  HGLOBAL names_;
  bool started_ = false;
  bool pagesDrawn_ = true;
};

}  // namespace

std::unique_ptr<Printer> OpenDefaultPrinter() {
  PRINTDLGW dialog = {};
  dialog.lStructSize = sizeof dialog;
  // Without a warning: it would be a window that nobody closes.
  dialog.Flags = PD_RETURNDEFAULT | PD_RETURNDC | PD_NOPAGENUMS | PD_NOSELECTION | PD_NOWARNING;
  if (::PrintDlgW(&dialog) == 0) return nullptr;
  auto printer = std::make_unique<ContextPrinter>(dialog);
  return dialog.hDC == nullptr ? nullptr : std::move(printer);
}

}  // namespace qvl
