#include "batch/report_printing.h"

#include <cstddef>
#include <string>
#include <vector>

#include "files/page_layout.h"
#include "files/unicode_text.h"

namespace qvl {
namespace {

constexpr const char* kDocumentName = "Report";

// Draws lines below each other and returns the number of the line behind them.
int DrawLines(Printer& printer, const PageLayout& layout, int line,
              const std::vector<std::string>& lines) {
  for (const std::string& text : lines) {
    printer.DrawLine(kPageMargin, layout.LineTop(line++), Utf8FromText(text));
  }
  return line;
}

}  // namespace

bool PrintReport(Printer& printer, std::string_view machine, const EntryList& entries, Moment now) {
  const PageLayout layout(printer.Metrics());
  const std::string dateAndTime = LongDateAndTime(now);
  const auto entryAt = [&entries](std::size_t i) -> const CEventLogEntry& { return entries[i]; };
  if (!printer.StartDocument(kDocumentName).ok()) return false;
  printer.StartPage();
  const int pages = layout.PageCount(entries.size());
  for (int page = 1; page <= pages; ++page) {
    const int body =
        DrawLines(printer, layout, 0, ReportPageHeader(layout, machine, dateAndTime, page));
    DrawLines(printer, layout, body, layout.BodyLines(page, entries.size(), entryAt));
    printer.EndPage();
    // Also behind the last page: printouts have always ended with an empty one.
    printer.StartPage();
  }
  printer.EndPage();
  return printer.EndDocument().ok();
}

}  // namespace qvl
