#include "tools/qvlog/progress_line.h"

#include <algorithm>

namespace qvl {
namespace {

constexpr std::chrono::milliseconds kInterval(100);

// The narrowest terminals have 80 columns; a line that wraps could not be taken away.
constexpr std::size_t kLongestLine = 70;

// A terminal shows Ctrl+C as "^C" behind the line.
constexpr std::size_t kEchoWidth = 2;

}  // namespace

std::string EntriesText(std::uint64_t entries) {
  std::string digits = std::to_string(entries);
  for (std::size_t at = digits.size(); at > 3;) {
    at -= 3;
    digits.insert(at, ",");
  }
  return digits + (entries == 1 ? " entry" : " entries");
}

void ProgressLine::Show(std::uint64_t entries) {
  if (!shown_) return;
  const Clock::time_point now = Clock::now();
  if (now < next_) return;
  next_ = now + kInterval;
  std::string line = what_ + ": " + EntriesText(entries);
  if (line.size() > kLongestLine) line = EntriesText(entries);
  width_ = std::max(width_, line.size());
  // A terminal that fails has nobody in front of it.
  static_cast<void>(terminal_.Write("\r" + line));
}

void ProgressLine::Erase() {
  if (width_ == 0) return;
  // Blanks and not a control sequence: every console understands them.
  static_cast<void>(terminal_.Write("\r" + std::string(width_ + kEchoWidth, ' ') + "\r"));
  width_ = 0;
}

}  // namespace qvl
