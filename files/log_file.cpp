#include "files/log_file.h"

#include <algorithm>
#include <cstring>
#include <memory>

#include "platform/exclusive_file.h"
#include "texts/strings.h"

namespace qvl {
namespace {

LogFileResult Failed(LogFileError error, std::string message) {
  return {error, std::move(message)};
}

}  // namespace

LogFileResult LogReader::ReadHeader() {
  const std::string_view expected = GetString(StringId::kLogFileHeader, Language::kEnglish);
  std::array<std::uint8_t, kLogFileHeaderSize> header{};
  std::size_t got = 0;
  const Status status = source_.Read(header, got);
  if (!status.ok()) return Failed(LogFileError::kReadFailed, status.message());
  if (got != header.size() || std::memcmp(header.data(), expected.data(), header.size()) != 0) {
    return Failed(LogFileError::kNotALog, "not a Quarvel Log file");
  }
  return {};
}

LogFileResult LogReader::ReadRecords(std::span<CEventLogEntry> into, std::size_t& got) {
  got = 0;
  while (got < into.size()) {
    const std::size_t wanted = std::min(into.size() - got, kBufferRecords);
    std::size_t bytes = 0;
    const Status status =
        source_.Read(std::span(buffer_).first(wanted * kLogFileRecordSize), bytes);
    const std::size_t records = bytes / kLogFileRecordSize;
    for (std::size_t i = 0; i < records; ++i) {
      RawLogEntry raw;
      std::memcpy(&raw, buffer_.data() + i * kLogFileRecordSize, sizeof raw);
      into[got + i].SetRawEntry(raw);
    }
    got += records;
    if (!status.ok()) return Failed(LogFileError::kReadFailed, status.message());
    if (records < wanted) break;
  }
  return {};
}

LogFileResult LoadLog(ByteSource& source, EntryList& entries) {
  entries.Clear();
  const auto reader = std::make_unique<LogReader>(source);
  LogFileResult result = reader->ReadHeader();
  while (result.ok()) {
    const std::span<CEventLogEntry> room = entries.Room();
    std::size_t got = 0;
    result = reader->ReadRecords(room, got);
    entries.Grow(got);
    if (got < room.size()) break;
  }
  return result;
}

LogFileResult LoadLogFile(const std::string& path, EntryList& entries) {
  entries.Clear();
  ExclusiveFile file;
  const Status status = file.Open(path, ExclusiveFile::Mode::kRead);
  if (!status.ok()) return Failed(LogFileError::kCannotOpen, status.message());
  return LoadLog(file, entries);
}

void AppendLogHeader(BufferedWriter& out) {
  out.Append(GetString(StringId::kLogFileHeader, Language::kEnglish));
}

void AppendLogRecord(const RawLogEntry& entry, BufferedWriter& out) {
  char* const record = out.Room(kLogFileRecordSize);
  std::memcpy(record, &entry, sizeof entry);
  std::memset(record + sizeof entry, 0, kLogFileRecordSize - sizeof entry);
  out.Commit(kLogFileRecordSize);
}

namespace {

Status SaveOver(const std::string& path, const EntryList& entries, bool cutsTail) {
  ExclusiveFile file;
  Status status = file.Open(path, ExclusiveFile::Mode::kOverwrite);
  if (!status.ok()) return status;
  BufferedWriter out(file);
  AppendLogHeader(out);
  for (std::size_t i = 0; i < entries.size() && out.ok(); ++i) {
    AppendLogRecord(entries[i].raw(), out);
  }
  status = out.Finish();
  if (status.ok() && cutsTail) status = file.CutTail();
  // A log that is about to be cleared on its machine may exist nowhere else: it counts as saved
  // only when it is on the disk.
  if (status.ok()) status = file.Flush();
  const Status closed = file.Close();
  return status.ok() ? closed : status;
}

}  // namespace

Status SaveLogFile(const std::string& path, const EntryList& entries) {
  return SaveOver(path, entries, false);
}

Status SaveLogFileAlone(const std::string& path, const EntryList& entries) {
  return SaveOver(path, entries, true);
}

}  // namespace qvl
