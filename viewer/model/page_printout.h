#ifndef QVL_VIEWER_MODEL_PAGE_PRINTOUT_H_
#define QVL_VIEWER_MODEL_PAGE_PRINTOUT_H_

#include <string>
#include <string_view>
#include <vector>

#include "files/page_layout.h"
#include "viewer/model/list_model.h"

namespace qvl {

/// Pages of the list's printout. A list without rows prints one page with the header alone.
int PrintoutPageCount(const PageLayout& layout, const ListModel& list);

/// The lines of one page, counted from 1: the title with the log's name and the page number at
/// the right edge, a rule, and the rows as shown.
/// logName  the machine's name, or the name of the opened file as `FileNameOf` gives it.
std::vector<std::string> PrintoutPage(const PageLayout& layout, const ListModel& list,
                                      std::string_view logName, int page);

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_PAGE_PRINTOUT_H_
