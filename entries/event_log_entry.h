#ifndef QVL_ENTRIES_EVENT_LOG_ENTRY_H_
#define QVL_ENTRIES_EVENT_LOG_ENTRY_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "entries/log_time.h"
#include "entries/raw_log_entry.h"
#include "entries/text_sink.h"

namespace qvl {

/// The columns of the list, and the order by entry number alone.
enum class Column : std::int8_t {
  kEntryNumber = -1,
  kDescription = 0,
  kClass = 1,
  kSeverity = 2,
  kCount = 3,
  kUpdateTime = 4,
  kInitialTime = 5,
};
inline constexpr int kNumberOfColumns = 6;

/// One entry in memory: its own copy of the record, and the texts of the list's and the exports'
/// columns. Exactly as large as the record, so that a log of any size costs no more than its
/// records. The text operations append to a sink; an unnamed class or severity appends nothing.
class CEventLogEntry {
 public:
  CEventLogEntry() = default;
  explicit CEventLogEntry(const RawLogEntry& raw) : raw_(raw) {}

  /// Replaces the record, after the entry was read again from its machine.
  void SetRawEntry(const RawLogEntry& raw) { raw_ = raw; }
  const RawLogEntry& raw() const { return raw_; }

  std::uint32_t GetEntryNumber() const { return raw_.entryNumber; }
  std::uint8_t GetSeverity() const { return raw_.severity; }
  std::uint32_t GetCount() const { return raw_.count; }
  LogTime GetUpdateTime() const { return raw_.updateTime; }
  LogTime GetInitialTime() const { return raw_.initialTime; }
  int GetSeverityImage() const;

  /// Fills `out` with the description, cut at `size` - 1 bytes, and zeros.
  void GetDescription(char* out, std::size_t size) const;

  /// The names in the process's language; empty where there is none.
  std::string_view GetClassName() const;
  std::string_view GetSeverityName() const;

  /// Code and count print as the signed 32-bit number that they always printed as.
  void GetCodeText(TextSink& out) const;
  void GetCountText(TextSink& out) const;

  void FormatUpdateTime(TextSink& out) const;
  void FormatInitialTime(TextSink& out) const;

  /// The text of a cell of the list, into a sink or as a string of its own.
  void GetColumnText(Column column, TextSink& out) const;
  std::string GetColumnText(Column column) const;

 private:
  RawLogEntry raw_{};
};
static_assert(sizeof(CEventLogEntry) == sizeof(RawLogEntry));

/// Orders two entries by a column: below zero when `a` comes first, above zero when `b` does.
/// Equal keys are ordered by entry number; descending order turns the whole result around. Texts
/// compare as bytes, an empty one after all others.
int CompareEntries(const CEventLogEntry& a, const CEventLogEntry& b, Column column, bool ascending);

/// The rule for texts alone.
int CompareTexts(std::string_view a, std::string_view b);

}  // namespace qvl

#endif  // QVL_ENTRIES_EVENT_LOG_ENTRY_H_
