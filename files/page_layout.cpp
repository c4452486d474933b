#include "files/page_layout.h"

#include <algorithm>
#include <limits>

#include "files/text_report.h"
#include "files/unicode_text.h"
#include "texts/strings.h"

namespace qvl {
namespace {

// Both kinds of page count their body from here, whatever their header's height: page breaks stay
// where readers of old printouts expect them.
constexpr int kFirstBodyLine = 2;

}  // namespace

PageLayout::PageLayout(const PrinterMetrics& metrics)
    : lineHeight_(std::max(1, metrics.fontHeight + metrics.externalLeading)),
      linesPerPage_(std::max(1, metrics.verticalResolution / lineHeight_)),
      charactersPerLine_(
          std::max(0, metrics.horizontalResolution / std::max(1, metrics.averageCharacterWidth))) {}

PageLayout::PageLayout(int linesPerPage, int charactersPerLine)
    : linesPerPage_(std::max(1, linesPerPage)),
      charactersPerLine_(std::max(0, charactersPerLine)) {}

int PageLayout::PageCount(std::size_t entries) const {
  const auto perPage = static_cast<std::size_t>(linesPerPage_);
  const std::size_t pages = (entries * kBudgetedLinesPerEntry + perPage - 1) / perPage;
  return static_cast<int>(
      std::min(pages, static_cast<std::size_t>(std::numeric_limits<int>::max())));
}

std::size_t PageLayout::FirstEntry(int page, std::size_t entries) const {
  const auto perPage = static_cast<std::size_t>(linesPerPage_ / kBudgetedLinesPerEntry);
  const std::size_t first = static_cast<std::size_t>(std::max(1, page) - 1) * perPage;
  return first < entries ? first : 0;
}

std::string PageLayout::JustifiedLine(std::string_view left, std::string_view right) const {
  std::string line(left);
  const std::size_t used = TextColumns(left) + TextColumns(right);
  const auto width = static_cast<std::size_t>(charactersPerLine_);
  if (used < width) line.append(width - used, ' ');
  line.append(right);
  return line;
}

std::string PageLayout::Rule() const {
  return std::string(static_cast<std::size_t>(charactersPerLine_), '_');
}

std::vector<std::string> PageLayout::BodyLines(
    int page, std::size_t entries,
    const std::function<const CEventLogEntry&(std::size_t)>& entryAt) const {
  std::vector<std::string> lines;
  int line = kFirstBodyLine;
  for (std::size_t entry = FirstEntry(page, entries);
       entry < entries && line < linesPerPage_ && linesPerPage_ - line >= kReportLinesPerEntry;
       ++entry) {
    lines.emplace_back(static_cast<std::size_t>(charactersPerLine_), ' ');
    for (std::string& text : ReportLines(entryAt(entry))) lines.push_back(std::move(text));
    line += kBudgetedLinesPerEntry;
  }
  return lines;
}

std::vector<std::string> ReportPageHeader(const PageLayout& layout, std::string_view machine,
                                          std::string_view dateAndTime, int page) {
  std::string title(GetString(StringId::kReportTitle));
  title += " - ";
  title += machine;
  return {layout.JustifiedLine(title, FillNumber(GetString(StringId::kReportPage), page)),
          std::string(dateAndTime), layout.Rule()};
}

std::string FillNumber(std::string_view text, int number) {
  std::string filled(text);
  const std::size_t place = filled.find("%d");
  if (place != std::string::npos) filled.replace(place, 2, std::to_string(number));
  return filled;
}

}  // namespace qvl
