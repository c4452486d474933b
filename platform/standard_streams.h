#ifndef QVL_PLATFORM_STANDARD_STREAMS_H_
#define QVL_PLATFORM_STANDARD_STREAMS_H_

#include <string>
#include <vector>

#include "platform/byte_stream.h"

namespace qvl {

/// Standard input as bytes: no translation of line ends on any system.
class StandardInput : public ByteSource {
 public:
  Status Read(std::span<std::uint8_t> into, std::size_t& got) override;
  Status ReadSome(std::span<std::uint8_t> into, std::size_t& got) override;
};

/// Standard output or standard error as bytes, unbuffered. A reader that went away makes a failure
/// with an empty message: the reader had enough, which is no error to tell anybody.
class StandardOutput : public ByteSink {
 public:
  enum class Stream : std::uint8_t { kOutput, kError };

  explicit StandardOutput(Stream stream) : stream_(stream) {}

  Status Write(std::string_view bytes) override;

  /// True when a person reads along.
  bool IsTerminal() const;

 private:
  Stream stream_;
};

/// What a program does before anything else: a standard stream that its caller closed would
/// otherwise be the next file that is opened, and messages would land in it. And a file that
/// reaches the caller's limit shall be a failed write, not the program's end.
void PrepareStandardStreams();

/// The program's arguments without its own name: the process's bytes on POSIX systems, UTF-8 on
/// Windows whatever the code page.
std::vector<std::string> ProgramArguments(int argc, char** argv);

}  // namespace qvl

#endif  // QVL_PLATFORM_STANDARD_STREAMS_H_
