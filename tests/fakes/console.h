#ifndef QVL_TESTS_FAKES_CONSOLE_H_
#define QVL_TESTS_FAKES_CONSOLE_H_

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "access/remote_monitor_client.h"
#include "platform/byte_stream.h"
#include "tools/qvlog/qvlog.h"

namespace qvl::testing {

/// Standard input from a string.
class StringSource : public ByteSource {
 public:
  static constexpr std::size_t kNever = static_cast<std::size_t>(-1);

  explicit StringSource(std::string bytes) : bytes_(std::move(bytes)) {}

  /// Fails as soon as a read wants more than the first `count` bytes.
  void FailAfter(std::size_t count) { failAfter_ = count; }

  /// `ReadSome` gives at most this many bytes, as a pipe does whose writer is slow.
  void SetPieceSize(std::size_t count) { pieceSize_ = count; }

  Status Read(std::span<std::uint8_t> into, std::size_t& got) override {
    const std::size_t readable = std::min(bytes_.size(), failAfter_);
    got = std::min(into.size(), readable - at_);
    std::memcpy(into.data(), bytes_.data() + at_, got);
    at_ += got;
    if (got < into.size() && failAfter_ != kNever) return Status::Failed("the cable was pulled");
    return Status::Ok();
  }

  Status ReadSome(std::span<std::uint8_t> into, std::size_t& got) override {
    const std::size_t left = std::min(bytes_.size(), failAfter_) - at_;
    // What is there is handed over first; the next call meets the failure.
    if (left == 0) return Read(into, got);
    return Read(into.first(std::min({into.size(), left, pieceSize_})), got);
  }

 private:
  std::string bytes_;
  std::size_t failAfter_ = kNever;
  std::size_t pieceSize_ = kNever;
  std::size_t at_ = 0;
};

/// Standard output or standard error into a string.
class StringSink : public ByteSink {
 public:
  /// Takes `count` bytes and then fails, as a full disk does.
  void FailAfter(std::size_t count) { room_ = count; }

  Status Write(std::string_view bytes) override {
    const std::size_t taken = std::min(bytes.size(), room_ - bytes_.size());
    bytes_.append(bytes.substr(0, taken));
    ++writes_;
    return taken == bytes.size() ? Status::Ok() : Status::Failed("the tape is full");
  }

  const std::string& bytes() const { return bytes_; }
  std::size_t writes() const { return writes_; }

 private:
  std::string bytes_;
  std::size_t room_ = static_cast<std::size_t>(-1);
  std::size_t writes_ = 0;
};

/// A console of strings, and what a run of the program left on it.
struct FakeConsole {
  explicit FakeConsole(std::string inputBytes = {}) : input(std::move(inputBytes)) {}

  StringSource input;
  StringSink output;
  StringSink error;
  Moment now = 1795176000;  // 2026-11-20 12:00 UTC
  std::function<RemoteMonitorClient&()> client;
  bool outputIsTerminal = false;
  bool errorIsTerminal = false;

  /// Runs qvlog; returns its exit status.
  int Run(const std::vector<std::string>& arguments) {
    Console console{input, output, error, now, client, outputIsTerminal, errorIsTerminal};
    return RunQvlog(arguments, console);
  }
};

}  // namespace qvl::testing

#endif  // QVL_TESTS_FAKES_CONSOLE_H_
