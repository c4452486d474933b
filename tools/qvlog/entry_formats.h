#ifndef QVL_TOOLS_QVLOG_ENTRY_FORMATS_H_
#define QVL_TOOLS_QVLOG_ENTRY_FORMATS_H_

#include <cstdint>
#include <string_view>

#include "entries/event_log_entry.h"
#include "files/buffered_writer.h"
#include "platform/exclusive_file.h"
#include "platform/local_time.h"

namespace qvl {

/// How entries are written: the listing, the formats for other programs, and the log file itself.
enum class EntryFormat : std::uint8_t { kList, kCsv, kStrictCsv, kJsonLines, kReport, kQvx };

/// What the head of an output tells.
struct OutputHead {
  std::string_view machine;  ///< empty when it is not known
  bool heading = true;       ///< for the listing
  Moment now = 0;
};

/// What stands in front of the first entry. Nothing in some formats.
void AppendHead(EntryFormat format, const OutputHead& head, BufferedWriter& out);

void AppendEntry(EntryFormat format, const CEventLogEntry& entry, BufferedWriter& out);

/// How a file of the format is opened.
ExclusiveFile::Mode FileMode(EntryFormat format);

}  // namespace qvl

#endif  // QVL_TOOLS_QVLOG_ENTRY_FORMATS_H_
