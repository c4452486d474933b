#ifndef QVL_TOOLS_QVLOG_PROGRESS_LINE_H_
#define QVL_TOOLS_QVLOG_PROGRESS_LINE_H_

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/byte_stream.h"

namespace qvl {

/// "1 entry", "1,234 entries".
std::string EntriesText(std::uint64_t entries);

/// The line at the bottom of a terminal that says how far a reading has come.
class ProgressLine {
 public:
  /// what   "Reading SERVER", printable; left out when it is too long for a terminal's line.
  /// shown  false when no terminal is there; then nothing is ever written.
  ProgressLine(ByteSink& terminal, std::string what, bool shown)
      : terminal_(terminal), what_(std::move(what)), shown_(shown) {}
  ~ProgressLine() { Erase(); }
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  bool shown() const { return shown_; }

  /// Shows a number, at most ten times a second.
  void Show(std::uint64_t entries);

  /// Leaves the terminal as it was.
  void Erase();

 private:
  using Clock = std::chrono::steady_clock;

  ByteSink& terminal_;
  std::string what_;
  bool shown_;
  Clock::time_point next_;
  std::size_t width_ = 0;  // of what stands on the terminal
};

/// A stream that may end up on the same terminal: takes the progress line away before it writes.
class SinkBesideProgress : public ByteSink {
 public:
  SinkBesideProgress(ByteSink& sink, ProgressLine& progress) : sink_(sink), progress_(progress) {}

  Status Write(std::string_view bytes) override {
    progress_.Erase();
    return sink_.Write(bytes);
  }

 private:
  ByteSink& sink_;
  ProgressLine& progress_;
};

}  // namespace qvl

#endif  // QVL_TOOLS_QVLOG_PROGRESS_LINE_H_
