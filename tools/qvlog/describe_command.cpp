#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "entries/event_description.h"
#include "entries/text_sink.h"
#include "tools/qvlog/commands.h"
#include "tools/qvlog/log_input.h"
#include "tools/qvlog/parsing.h"
#include "tools/qvlog/visible_text.h"

namespace qvl {
namespace {

// Splits a source into lines, in constant memory: a line longer than any record is cut, which
// makes it an invalid record all the same.
class LineReader {
 public:
  explicit LineReader(ByteSource& source) : source_(source), buffer_(kBufferSize) {}

  /// False at the end of the source or when it fails.
  bool Next(std::string& line) {
    line.clear();
    bool any = false;
    while (true) {
      if (at_ == end_ && !Fill()) return any;
      const auto begin = buffer_.begin() + static_cast<std::ptrdiff_t>(at_);
      const auto last = buffer_.begin() + static_cast<std::ptrdiff_t>(end_);
      const auto feed = std::find(begin, last, std::uint8_t{'\n'});
      any = true;
      const auto room = static_cast<std::ptrdiff_t>(kLongestLine - line.size());
      line.append(begin, begin + std::min(feed - begin, room));
      at_ = static_cast<std::size_t>(feed - buffer_.begin()) + (feed == last ? 0 : 1);
      if (feed != last) return true;
    }
  }

  /// True when the next line needs more of the source.
  bool drained() const { return at_ == end_; }

  const Status& status() const { return status_; }

 private:
  bool Fill() {
    std::size_t got = 0;
    at_ = 0;
    status_ = source_.ReadSome(buffer_, got);
    end_ = got;
    return status_.ok() && got > 0;
  }

  static constexpr std::size_t kBufferSize = 65536;
  static constexpr std::size_t kLongestLine = 1024;

  ByteSource& source_;
  std::vector<std::uint8_t> buffer_;
  std::size_t at_ = 0;
  std::size_t end_ = 0;
  Status status_ = Status::Ok();
};

void AppendDescription(const RawLogEntry& entry, BufferedWriter& out) {
  std::array<char, kDescriptionSize> buffer;
  TextSink text(buffer);
  AppendEventDescription(entry.eventClass, entry.eventCode, EventData(entry.data), text);
  out.Append(EscapedBytes(text.view()));
  out.Append("\n");
}

}  // namespace

int RunDescribe(Console& console) {
  BufferedWriter out(console.output);
  LineReader lines(console.input);
  bool allValid = true;
  std::uint64_t number = 0;
  for (std::string line; out.ok() && lines.Next(line);) {
    ++number;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    const std::optional<RawLogEntry> entry = ParseHexRecord(line);
    if (entry) {
      AppendDescription(*entry, out);
    } else {
      Report(console, "line " + std::to_string(number) + ": not 512 hexadecimal digits");
      allValid = false;
    }
    // A person or a program at the other end of a pipe gets an answer before the next question.
    if (lines.drained()) out.Flush();
  }
  if (!lines.status().ok()) Report(console, lines.status().message());
  return FinishOutput(out, allValid && lines.status().ok(), console);
}

}  // namespace qvl
