#ifndef QVL_ENTRIES_EVENT_DESCRIPTION_H_
#define QVL_ENTRIES_EVENT_DESCRIPTION_H_

#include <cstddef>
#include <cstdint>

#include "entries/event_data.h"
#include "entries/raw_log_entry.h"
#include "entries/text_sink.h"

namespace qvl {

/// Bytes of a description's buffer, its NUL included, wherever descriptions are shown, sorted or
/// exported: all of them cut a long description at the same place.
inline constexpr std::size_t kDescriptionSize = 350;

/// Writes the English one-line description of an event.
/// data   the record's class-specific bytes.
/// out    `size` bytes; always filled: the text, cut at size - 1 bytes, then zeros.
/// Returns 1 when a description was produced, 0 when the fallback text was written, which names
/// the class and the code.
int FormatEventDescription(std::uint16_t eventClass, std::uint16_t code, EventData data, char* out,
                           std::size_t size);

/// The same for a whole record.
int FormatEntryDescription(const RawLogEntry& entry, char* out, std::size_t size);

/// The same into a sink, which must be empty; the sink's bytes behind the text stay as they are.
int AppendEventDescription(std::uint16_t eventClass, std::uint16_t code, EventData data,
                           TextSink& out);

}  // namespace qvl

#endif  // QVL_ENTRIES_EVENT_DESCRIPTION_H_
