#ifndef QVL_VIEWER_UI_LIST_PRINTING_H_
#define QVL_VIEWER_UI_LIST_PRINTING_H_

#include <wx/cmndata.h>
#include <wx/print.h>

#include <functional>
#include <optional>
#include <string>

#include "files/page_layout.h"
#include "viewer/model/list_model.h"

namespace qvl {

/// The rows as shown, on paper or in the preview.
class ListPrintout : public wxPrintout {
 public:
  /// list     outlives the printout.
  /// logName  UTF-8.
  ListPrintout(const ListModel& list, std::string logName);

  void OnPreparePrinting() override;
  bool HasPage(int page) override;
  bool OnPrintPage(int page) override;
  void GetPageInfo(int* first, int* last, int* fromPage, int* toPage) override;

 private:
  wxRect FitUnitsToPage();

  const ListModel& list_;
  std::string logName_;
  std::optional<PageLayout> layout_;
  int characterWidth_ = 1;
  int pages_ = 1;
};

/// Printing and preview, with the printer and the paper that the user chose last in this run.
class ListPrinting {
 public:
  /// Asks for the printer and prints; tells when that failed.
  void Print(wxWindow* owner, const ListModel& list, const std::string& logName);

  /// Shows the pages in a window of their own until the user closes it.
  /// closed  called when the preview has gone.
  /// Returns false, after telling why, when it cannot be shown; nothing is called then.
  bool Preview(wxFrame* owner, const ListModel& list, const std::string& logName,
               std::function<void()> closed);

 private:
  wxPrintData printData_;
};

}  // namespace qvl

#endif  // QVL_VIEWER_UI_LIST_PRINTING_H_
