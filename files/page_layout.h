#ifndef QVL_FILES_PAGE_LAYOUT_H_
#define QVL_FILES_PAGE_LAYOUT_H_

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "entries/event_log_entry.h"
#include "platform/printer.h"

namespace qvl {

/// Lines that pagination counts for an entry: a blank one and the six of its block.
inline constexpr int kBudgetedLinesPerEntry = 7;

/// The margin at the left and at the top, in device units.
inline constexpr int kPageMargin = 25;

/// Where entries stand on printed pages. The list's printout and the batch report share it.
class PageLayout {
 public:
  explicit PageLayout(const PrinterMetrics& metrics);
  /// For tests and for previews that count in lines already.
  PageLayout(int linesPerPage, int charactersPerLine);

  int lineHeight() const { return lineHeight_; }
  int linesPerPage() const { return linesPerPage_; }
  int charactersPerLine() const { return charactersPerLine_; }

  /// Where a line of a page stands, counted from 0, in device units below the page's top edge;
  /// every line begins kPageMargin from the left one.
  int LineTop(int line) const { return kPageMargin + line * lineHeight_; }

  /// Seven lines an entry over the lines of a page, rounded up; 0 without entries.
  int PageCount(std::size_t entries) const;

  /// The first entry of a page, counted from 1. A page beyond the last entry starts again at the
  /// first one: users' printouts have always ended so.
  std::size_t FirstEntry(int page, std::size_t entries) const;

  /// `left`, blanks, `right`, as wide as the page by `TextColumns`; no blanks where the page is too
  /// narrow.
  std::string JustifiedLine(std::string_view left, std::string_view right) const;

  /// A line of underscores as wide as the page.
  std::string Rule() const;

  /// The lines of a page's body: for each entry a line of blanks and its block. An entry starts
  /// while six lines are left, so its last line may stand one below the computed page.
  std::vector<std::string> BodyLines(
      int page, std::size_t entries,
      const std::function<const CEventLogEntry&(std::size_t)>& entryAt) const;

 private:
  int lineHeight_ = 1;
  int linesPerPage_ = 1;
  int charactersPerLine_ = 0;
};

/// The three header lines of a page of the batch report: title and machine with the page number
/// at the right edge, date and time, rule.
std::vector<std::string> ReportPageHeader(const PageLayout& layout, std::string_view machine,
                                          std::string_view dateAndTime, int page);

/// A numbered text that holds one "%d", filled in.
std::string FillNumber(std::string_view text, int number);

}  // namespace qvl

#endif  // QVL_FILES_PAGE_LAYOUT_H_
