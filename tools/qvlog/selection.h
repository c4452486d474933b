#ifndef QVL_TOOLS_QVLOG_SELECTION_H_
#define QVL_TOOLS_QVLOG_SELECTION_H_

#include <optional>
#include <string>

#include "entries/event_log_entry.h"
#include "platform/local_time.h"
#include "viewer/model/filter.h"

namespace qvl {

/// Which entries a command takes.
struct SelectionOptions {
  FilterChoices choices;
  std::optional<LogTime> since;  // of the update time, both ends included
  std::optional<LogTime> until;
  std::string text;  // anywhere in the description, ignoring ASCII case
};

class Selection {
 public:
  Selection(const SelectionOptions& options, Moment now);

  bool Takes(const CEventLogEntry& entry) const;

 private:
  bool TakesTime(LogTime time) const;
  bool TakesText(const CEventLogEntry& entry) const;

  EntryFilter filter_;
  std::optional<LogTime> since_;
  std::optional<LogTime> until_;
  std::string text_;
};

}  // namespace qvl

#endif  // QVL_TOOLS_QVLOG_SELECTION_H_
