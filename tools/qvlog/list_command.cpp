#include <string>

#include "tools/qvlog/commands.h"
#include "tools/qvlog/visible_text.h"

namespace qvl {
namespace {

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

int RunList(const CommandLine& line, Console& console) {
  BufferedWriter out(console.output);
  const bool allRead = WriteSelected(
      line, console,
      [&] {
        if (line.header) out.Append(HeadingLine());
        return true;
      },
      [&](const CEventLogEntry& entry) {
        out.Append(EntryLine(entry));
        return out.ok();
      });
  return FinishOutput(out, allRead, console);
}

}  // namespace qvl
