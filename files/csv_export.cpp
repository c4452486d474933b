#include "files/csv_export.h"

#include <array>
#include <cstring>

#include "entries/event_description.h"
#include "entries/log_time_text.h"
#include "entries/text_sink.h"
#include "platform/exclusive_file.h"
#include "texts/strings.h"

namespace qvl {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

// Two times, a class, a severity, two numbers and punctuation; names are at most a few dozen
// bytes even in Japanese.
constexpr std::size_t kFieldsRoom = 2 * kLogTimeTextSize + 256;

// The description with CR LF in place of every line feed, as text mode has always written it.
void AppendDescription(const CEventLogEntry& entry, BufferedWriter& out) {
  TextSink description(out.Room(kDescriptionSize), kDescriptionSize);
  entry.GetColumnText(Column::kDescription, description);
  if (std::memchr(description.view().data(), '\n', description.size()) == nullptr) {
    out.Commit(description.size());
    return;
  }
  const std::string text(description.view());
  for (const char c : text) out.Append(c == '\n' ? kLineEnd : std::string_view(&c, 1));
}

}  // namespace

void AppendCsvHead(std::string_view machine, BufferedWriter& out) {
  out.Append(GetString(StringId::kExportTitle));
  out.Append(machine);
  out.Append(kLineEnd);
  out.Append(GetString(StringId::kExportHeader));
  out.Append(kLineEnd);
}

void AppendCsvLine(const CEventLogEntry& entry, BufferedWriter& out) {
  out.Append("\"");
  AppendDescription(entry, out);
  TextSink fields(out.Room(kFieldsRoom), kFieldsRoom);
  fields.Append(std::string_view("\","));
  fields.Append(entry.GetClassName());
  fields.Append(std::string_view(","));
  entry.GetCodeText(fields);
  fields.Append(std::string_view(","));
  fields.Append(entry.GetSeverityName());
  fields.Append(std::string_view(","));
  entry.GetCountText(fields);
  fields.Append(std::string_view(","));
  entry.FormatUpdateTime(fields);
  fields.Append(std::string_view(","));
  entry.FormatInitialTime(fields);
  fields.Append(kLineEnd);
  out.Commit(fields.size());
}

Status ExportCsvFile(const std::string& path, std::string_view machine, const EntryList& entries) {
  ExclusiveFile file;
  Status status = file.Open(path, ExclusiveFile::Mode::kOverwrite);
  if (!status.ok()) return status;
  BufferedWriter out(file);
  AppendCsvHead(machine, out);
  for (std::size_t i = 0; i < entries.size() && out.ok(); ++i) AppendCsvLine(entries[i], out);
  status = out.Finish();
  const Status closed = file.Close();
  return status.ok() ? closed : status;
}

}  // namespace qvl
