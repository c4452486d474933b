#ifndef QVL_VIEWER_MODEL_ROW_SEARCH_H_
#define QVL_VIEWER_MODEL_ROW_SEARCH_H_

#include <cstddef>
#include <cstdint>
#include <string>

#include "viewer/model/list_model.h"

namespace qvl {

enum class SearchDirection : std::uint8_t { kForward, kBackward };

enum class SearchState : std::uint8_t {
  kFound,
  kNotFound,
  kSearching,  ///< there are more rows to look at
};

/// The search for the first row from `start` on, round over the ends, of which any cell holds a
/// text, ignoring ASCII case. Texts of cells are made as they are looked at, which takes seconds in
/// the largest logs: so it goes on in slices. It ends when the rows change.
class RowSearch {
 public:
  /// model  outlives the search.
  /// text   UTF-8; an empty one is in no row.
  RowSearch(const ListModel& model, std::string text, std::size_t start, SearchDirection direction);

  /// Looks at this many rows at most.
  SearchState Continue(std::size_t rows);

  /// The row that holds the text, once it is found.
  std::size_t row() const { return row_; }

 private:
  const ListModel& model_;
  std::string text_;
  SearchDirection direction_;
  std::size_t row_;
  std::size_t left_;  // rows that were not looked at
};

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_ROW_SEARCH_H_
