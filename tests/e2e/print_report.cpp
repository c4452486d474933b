// Prints a report on the default printer as batch mode does.
//
//   print_report ENTRIES
//
// Tells what the printer's measures make of a page, for whoever checks the pages. The exit status
// is 0, 1 when the printer did not take the report, or 2 when there is no default printer.
#include <cstdlib>
#include <iostream>
#include <string>

#include "batch/report_printing.h"
#include "files/page_layout.h"
#include "tests/files/file_fixtures.h"

namespace qvl {
namespace {

// 2026-11-20 13:05 UTC.
constexpr Moment kPrinted = 1795179900;

// Each says which it is. The first ones hold what is not ASCII, as UTF-8 and as Windows-1252.
EntryList MakeEntries(int count) {
  EntryList entries;
  for (int i = 1; i <= count; ++i) {
    std::string text = "entry " + std::to_string(i) + " of " + std::to_string(count);
    if (i == 1) text += " \xC3\xA9\xC3\xBC\xC3\x9F";
    if (i == 2) text += " \xE9\xFC\xDF";
    entries.Append(testing::Record(static_cast<std::uint32_t>(i), 33, 2, text));
  }
  return entries;
}

int Main(int count) {
  const std::unique_ptr<Printer> printer = OpenDefaultPrinter();
  if (printer == nullptr) return 2;
  const PrinterMetrics metrics = printer->Metrics();
  const PageLayout layout(metrics);
  std::cout << "page=" << metrics.horizontalResolution << "x" << metrics.verticalResolution
            << " font=" << metrics.averageCharacterWidth << "x" << metrics.fontHeight << "+"
            << metrics.externalLeading << "\n"
            << "lines=" << layout.linesPerPage() << "\n"
            << "characters=" << layout.charactersPerLine() << "\n"
            << "pages=" << layout.PageCount(static_cast<std::size_t>(count)) << "\n";
  return PrintReport(*printer, "SRV1", MakeEntries(count), kPrinted) ? 0 : 1;
}

}  // namespace
}  // namespace qvl

int main(int argc, char** argv) {
  return qvl::Main(argc == 2 ? std::atoi(argv[1]) : 0);  // NOLINT(cert-err34-c): a test's own
}
