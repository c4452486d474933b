#include <algorithm>
#include <array>
#include <map>
#include <string>

#include "entries/event_class.h"
#include "entries/log_time_text.h"
#include "entries/severity.h"
#include "entries/text_sink.h"
#include "tools/qvlog/commands.h"
#include "tools/qvlog/log_input.h"
#include "tools/qvlog/visible_text.h"

namespace qvl {
namespace {

// Label and number together; the numbers end in one column.
constexpr std::size_t kCountWidth = 38;

void AppendCount(std::string_view label, std::uint64_t count, std::string& out) {
  const std::string number = std::to_string(count);
  out.append("  ").append(label);
  const std::size_t used = label.size() + number.size();
  out.append(used < kCountWidth ? kCountWidth - used : 1, ' ');
  out.append(number).append("\n");
}

std::string TimeText(LogTime time) {
  std::array<char, kLogTimeTextSize> buffer;
  TextSink text(buffer);
  FormatLogTime(text, time);
  return std::string(text.view());
}

constexpr std::string_view kNoName = "  (no name)";

class LogSummary {
 public:
  void Add(const CEventLogEntry& entry) {
    const RawLogEntry& raw = entry.raw();
    ++bySeverity_[raw.severity];
    ++byClass_[raw.eventClass];
    AddTime(raw.initialTime);
    AddTime(raw.updateTime);
    CheckNumber(raw.entryNumber);
    ++entries_;
  }

  std::string Text() const {
    std::string out;
    AppendCount("Entries", entries_, out);
    if (hasTime_) {
      out += "  First time: " + TimeText(first_) + "\n";
      out += "  Last time:  " + TimeText(last_) + "\n";
    }
    AppendSeverities(out);
    AppendClasses(out);
    AppendNumbers(out);
    return out;
  }

 private:
  void AddTime(LogTime time) {
    if (!time.HasValidDate() || !time.HasValidTimeOfDay()) return;
    first_ = hasTime_ ? std::min(first_, time) : time;
    last_ = hasTime_ ? std::max(last_, time) : time;
    hasTime_ = true;
  }

  void CheckNumber(std::uint32_t number) {
    if (entries_ > 0 && number <= highest_) {
      if (number == previous_) {
        ++repeats_;
      } else {
        ++falls_;
      }
      if (disorder_.empty()) {
        disorder_ = "entry " + std::to_string(number) + " follows entry " +
                    std::to_string(previous_) + " at position " + std::to_string(entries_ + 1);
      }
    }
    highest_ = entries_ == 0 ? number : std::max(highest_, number);
    lowest_ = entries_ == 0 ? number : std::min(lowest_, number);
    previous_ = number;
  }

  void AppendSeverities(std::string& out) const {
    if (entries_ == 0) return;
    out += "\n  By severity\n";
    // The gravest first; the two informational codes share a name and so a line.
    std::uint64_t unnamed = 0;
    std::uint64_t informational = 0;
    for (auto row = bySeverity_.rbegin(); row != bySeverity_.rend(); ++row) {
      const std::string_view name = SeverityName(row->first, Language::kEnglish);
      if (name.empty()) {
        unnamed += row->second;
      } else if (row->first == kInformational || row->first == kInformationalMinor) {
        informational += row->second;
      } else {
        AppendCount("  " + std::string(name), row->second, out);
      }
    }
    const std::string_view name = SeverityName(kInformational, Language::kEnglish);
    if (informational > 0) AppendCount("  " + std::string(name), informational, out);
    if (unnamed > 0) AppendCount(kNoName, unnamed, out);
  }

  void AppendClasses(std::string& out) const {
    if (entries_ == 0) return;
    out += "\n  By class\n";
    std::uint64_t unnamed = 0;
    for (const auto& [eventClass, count] : byClass_) {
      const std::string_view name = EventClassName(eventClass, Language::kEnglish);
      if (name.empty()) {
        unnamed += count;
      } else {
        AppendCount("  " + std::string(name), count, out);
      }
    }
    if (unnamed > 0) AppendCount(kNoName, unnamed, out);
  }

  void AppendNumbers(std::string& out) const {
    if (entries_ == 0) return;
    out += "\n  Entry numbers " + std::to_string(lowest_) + " to " + std::to_string(highest_);
    if (disorder_.empty()) {
      out += ", rising\n";
      return;
    }
    out += "\n";
    AppendCount("  Repeated", repeats_, out);
    AppendCount("  Fallen back", falls_, out);
    out += "    First: " + disorder_ + "\n";
    out += "    The file may end in the tail of an older, longer log that it was saved over.\n";
  }

  std::uint64_t entries_ = 0;
  std::map<std::uint8_t, std::uint64_t> bySeverity_;
  std::map<std::uint16_t, std::uint64_t> byClass_;
  bool hasTime_ = false;
  LogTime first_;
  LogTime last_;
  std::uint32_t previous_ = 0;
  std::uint32_t highest_ = 0;
  std::uint32_t lowest_ = 0;
  std::uint64_t repeats_ = 0;
  std::uint64_t falls_ = 0;
  std::string disorder_;
};

}  // namespace

int RunInfo(const CommandLine& line, Console& console) {
  BufferedWriter out(console.output);
  bool allRead = true;
  bool first = true;
  for (const std::string& file : line.files) {
    LogSummary summary;
    bool isLog = false;
    const bool read = ReadLogs({file}, console, [&](std::span<const CEventLogEntry> entries) {
      isLog = true;
      for (const CEventLogEntry& entry : entries) summary.Add(entry);
      return true;
    });
    allRead = allRead && read;
    if (!isLog) continue;
    if (!first) out.Append("\n");
    first = false;
    out.Append(VisibleText(file == "-" ? "standard input" : file) + "\n" + summary.Text());
  }
  return FinishOutput(out, allRead, console);
}

}  // namespace qvl
