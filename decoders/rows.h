#ifndef QVL_DECODERS_ROWS_H_
#define QVL_DECODERS_ROWS_H_

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <span>
#include <string_view>
#include <vector>

#include "entries/message.h"

namespace qvl {

/// A message chosen by a number: an event code, or a selector byte of the data.
template <typename M>
struct Row {
  std::uint16_t code;
  M message;
};

/// A name chosen by a number, for tables with gaps; tables without gaps are arrays of `Name`.
struct NameRow {
  std::uint16_t code;
  Name name;
};

/// True when a table's codes rise: sorted for `Find`, and no code twice.
template <typename R, std::size_t N>
constexpr bool StrictlyAscending(const R (&rows)[N]) {
  for (std::size_t i = 1; i < N; ++i) {
    if (rows[i - 1].code >= rows[i].code) return false;
  }
  return true;
}

/// The row with `code`, or null.
template <typename R, std::size_t N>
constexpr const R* Find(const R (&rows)[N], std::uint32_t code) {
  const R* const row = std::lower_bound(
      std::begin(rows), std::end(rows), code,
      [](const R& candidate, std::uint32_t wanted) { return candidate.code < wanted; });
  return row != std::end(rows) && row->code == code ? row : nullptr;
}

/// The name at `index`, or `fallback` where the table ends before it.
template <std::size_t N>
constexpr const Name& NameAt(const Name (&names)[N], std::size_t index, const Name& fallback) {
  return index < N ? names[index] : fallback;
}

/// One message or name of a decoder's tables.
struct TableEntry {
  const void* row;
  std::string_view text;
};

/// All of a decoder's messages and names, collected by the test that looks for rows which no
/// golden description reaches.
class TableEntries {
 public:
  template <typename... Fields>
  void Add(const Message<Fields...>& message) {
    entries_.push_back({&message, message.text()});
  }
  void Add(const Name& name) { entries_.push_back({&name, name.text}); }
  void Add(const NameRow& row) { Add(row.name); }
  template <typename M>
  void Add(const Row<M>& row) {
    Add(row.message);
  }
  template <typename T, std::size_t N>
  void Add(const T (&table)[N]) {
    for (const T& entry : table) Add(entry);
  }
  void Add(std::span<const Name> names) {
    for (const Name& name : names) Add(name);
  }

  const std::vector<TableEntry>& all() const { return entries_; }

 private:
  std::vector<TableEntry> entries_;
};

}  // namespace qvl

#endif  // QVL_DECODERS_ROWS_H_
