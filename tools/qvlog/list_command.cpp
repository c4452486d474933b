#include "tools/qvlog/commands.h"

namespace qvl {

int RunList(const CommandLine& line, Console& console) {
  BufferedWriter out(console.output);
  const bool allRead = WriteSelected(
      line, console,
      [&] {
        AppendHead(EntryFormat::kList, {.machine = {}, .heading = line.header, .now = console.now},
                   out);
        return true;
      },
      [&](const CEventLogEntry& entry) {
        AppendEntry(EntryFormat::kList, entry, out);
        return out.ok();
      });
  return FinishOutput(out, allRead, console);
}

}  // namespace qvl
