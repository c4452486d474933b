#ifndef QVL_FILES_LOG_FILE_H_
#define QVL_FILES_LOG_FILE_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "entries/entry_list.h"
#include "entries/raw_log_entry.h"
#include "files/buffered_writer.h"
#include "platform/byte_stream.h"
#include "platform/status.h"

namespace qvl {

/// Bytes of the header text, and of one entry in a log file: the record and as many zeros
/// (docs/formats/qvx.md).
inline constexpr std::size_t kLogFileHeaderSize = 19;
inline constexpr std::size_t kLogFileRecordSize = 512;

enum class LogFileError : std::uint8_t {
  kNone,
  kCannotOpen,  ///< shown as string 61292
  kNotALog,     ///< the first 19 bytes differ; shown as string 61290
  kReadFailed,  ///< the system failed in the middle; what came before it is kept
};

struct LogFileResult {
  LogFileError error = LogFileError::kNone;
  std::string message;  ///< of the system, or of this program; English

  bool ok() const { return error == LogFileError::kNone; }
};

/// Reads the entries of a log one after the other, in constant memory.
class LogReader {
 public:
  /// source  positioned at the header; must outlive the reader.
  explicit LogReader(ByteSource& source) : source_(source) {}

  /// Checks the header. Call once, first.
  LogFileResult ReadHeader();

  /// Fills `into` with the next records. `got` is less than its size only at the end of the log;
  /// a partial last record is ignored, and so is the second half of every record.
  LogFileResult ReadRecords(std::span<CEventLogEntry> into, std::size_t& got);

 private:
  static constexpr std::size_t kBufferRecords = 256;

  ByteSource& source_;
  std::array<std::uint8_t, kBufferRecords * kLogFileRecordSize> buffer_;
};

/// Empties `entries` and fills it from a log file. After an error of opening or of the header the
/// list is empty.
LogFileResult LoadLogFile(const std::string& path, EntryList& entries);

/// The same from an open source.
LogFileResult LoadLog(ByteSource& source, EntryList& entries);

/// Writes the header and every entry to `path`. An existing file is written over without being
/// truncated, so a longer one keeps its tail, which later loads as further entries.
/// Returns success only when the system has taken every byte and closed the file.
Status SaveLogFile(const std::string& path, const EntryList& entries);

/// The same, and then cuts off the tail of a longer file. It is cut last: a save that fails leaves
/// every byte behind the place that it reached.
Status SaveLogFileAlone(const std::string& path, const EntryList& entries);

/// The two pieces that a log file is made of.
void AppendLogHeader(BufferedWriter& out);
void AppendLogRecord(const RawLogEntry& entry, BufferedWriter& out);

}  // namespace qvl

#endif  // QVL_FILES_LOG_FILE_H_
