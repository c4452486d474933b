#include "files/text_report.h"

#include "texts/strings.h"

namespace qvl {
namespace {

struct LabelledColumn {
  StringId label;
  Column column;
};

constexpr LabelledColumn kLabelledColumns[] = {
    {StringId::kLabelClass,       Column::kClass      },
    {StringId::kLabelSeverity,    Column::kSeverity   },
    {StringId::kLabelCount,       Column::kCount      },
    {StringId::kLabelUpdateTime,  Column::kUpdateTime },
    {StringId::kLabelInitialTime, Column::kInitialTime},
};
static_assert(std::size(kLabelledColumns) + 1 == kReportLinesPerEntry);

}  // namespace

std::array<std::string, kReportLinesPerEntry> ReportLines(const CEventLogEntry& entry) {
  std::array<std::string, kReportLinesPerEntry> lines;
  lines[0] = entry.GetColumnText(Column::kDescription);
  std::size_t line = 1;
  for (const LabelledColumn& row : kLabelledColumns) {
    lines[line++] = std::string(GetString(row.label)) + entry.GetColumnText(row.column);
  }
  return lines;
}

void AppendReportHead(std::string_view machine, std::string_view dateAndTime,
                      std::string_view lineEnd, BufferedWriter& out) {
  out.Append(GetString(StringId::kReportTitle));
  out.Append(" - ");
  out.Append(machine);
  out.Append(lineEnd);
  out.Append(dateAndTime);
  out.Append(lineEnd);
}

void AppendReportEntry(const CEventLogEntry& entry, std::string_view lineEnd, BufferedWriter& out) {
  for (const std::string& line : ReportLines(entry)) {
    // A line feed inside a description ends its line as the file's other lines end.
    std::string_view rest = line;
    for (std::size_t feed = rest.find('\n'); feed != std::string_view::npos;
         feed = rest.find('\n')) {
      out.Append(rest.substr(0, feed));
      out.Append(lineEnd);
      rest.remove_prefix(feed + 1);
    }
    out.Append(rest);
    out.Append(lineEnd);
  }
}

}  // namespace qvl
