#include "viewer/model/page_printout.h"

#include <algorithm>

#include "texts/strings.h"

namespace qvl {

int PrintoutPageCount(const PageLayout& layout, const ListModel& list) {
  return std::max(1, layout.PageCount(list.rowCount()));
}

std::vector<std::string> PrintoutPage(const PageLayout& layout, const ListModel& list,
                                      std::string_view logName, int page) {
  std::string title(GetString(StringId::kPrintTitle));
  title += " - ";
  title += logName;
  std::vector<std::string> lines = {
      layout.JustifiedLine(title, FillNumber(GetString(StringId::kPrintPage), page)),
      layout.Rule()};
  std::vector<std::string> body = layout.BodyLines(
      page, list.rowCount(),
      [&list](std::size_t row) -> const CEventLogEntry& { return list.EntryAt(row); });
  std::move(body.begin(), body.end(), std::back_inserter(lines));
  return lines;
}

}  // namespace qvl
