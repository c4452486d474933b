#include "tools/qvlog/entry_formats.h"

#include <string>

#include "files/additional_exports.h"
#include "files/csv_export.h"
#include "files/log_file.h"
#include "files/text_report.h"
#include "tools/qvlog/visible_text.h"

namespace qvl {
namespace {

constexpr std::string_view kReportLineEnd = "\n";

// One column of the listing. The description comes last and is as long as it is, so that a log of
// any size is listed without being read twice.
struct ListingColumn {
  Column column;
  std::string_view heading;
  std::size_t width;
  bool alignRight;
};

constexpr ListingColumn kListing[] = {
    {Column::kEntryNumber, "Number",       8,  true },
    {Column::kUpdateTime,  "Update Time",  19, false},
    {Column::kInitialTime, "Initial Time", 19, false},
    {Column::kSeverity,    "Severity",     13, false},
    {Column::kCount,       "Count",        6,  true },
    {Column::kClass,       "Class",        26, false},
    {Column::kDescription, "Description",  0,  false},
};

void AppendCell(const ListingColumn& column, std::string_view text, std::string& line) {
  if (!line.empty()) line += "  ";
  const std::size_t padding = text.size() < column.width ? column.width - text.size() : 0;
  if (column.alignRight) line.append(padding, ' ');
  line += text;
  if (!column.alignRight) line.append(padding, ' ');
}

std::string HeadingLine() {
  std::string line;
  for (const ListingColumn& column : kListing) AppendCell(column, column.heading, line);
  return line + "\n";
}

std::string EntryLine(const CEventLogEntry& entry) {
  std::string line;
  for (const ListingColumn& column : kListing) {
    AppendCell(column, VisibleText(entry.GetColumnText(column.column)), line);
  }
  return line + "\n";
}

}  // namespace

void AppendHead(EntryFormat format, const OutputHead& head, BufferedWriter& out) {
  switch (format) {
    case EntryFormat::kList:
      if (head.heading) out.Append(HeadingLine());
      break;
    case EntryFormat::kCsv:
      AppendCsvHead(head.machine, out);
      break;
    case EntryFormat::kStrictCsv:
      AppendStrictCsvHead(out);
      break;
    case EntryFormat::kReport:
      if (!head.machine.empty()) {
        AppendReportHead(head.machine, LongDateAndTime(head.now), kReportLineEnd, out);
      }
      break;
    case EntryFormat::kJsonLines:
      break;
    case EntryFormat::kQvx:
      AppendLogHeader(out);
      break;
  }
}

void AppendEntry(EntryFormat format, const CEventLogEntry& entry, BufferedWriter& out) {
  switch (format) {
    case EntryFormat::kList:
      out.Append(EntryLine(entry));
      break;
    case EntryFormat::kCsv:
      AppendCsvLine(entry, out);
      break;
    case EntryFormat::kStrictCsv:
      AppendStrictCsvLine(entry, out);
      break;
    case EntryFormat::kReport:
      AppendReportEntry(entry, kReportLineEnd, out);
      break;
    case EntryFormat::kJsonLines:
      AppendJsonLine(entry, out);
      break;
    case EntryFormat::kQvx:
      AppendLogRecord(entry.raw(), out);
      break;
  }
}

ExclusiveFile::Mode FileMode(EntryFormat format) {
  // The comma-separated export has never truncated the file that it is written over.
  return format == EntryFormat::kCsv ? ExclusiveFile::Mode::kOverwrite
                                     : ExclusiveFile::Mode::kReplace;
}

}  // namespace qvl
