#ifndef QVL_PLATFORM_BYTE_STREAM_H_
#define QVL_PLATFORM_BYTE_STREAM_H_

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "platform/status.h"

namespace qvl {

/// Where bytes come from: a file, standard input, a test's buffer.
class ByteSource {
 public:
  virtual ~ByteSource() = default;

  /// Fills `into` from the current position. `got` is less than asked for only at the end.
  virtual Status Read(std::span<std::uint8_t> into, std::size_t& got) = 0;

  /// Reads what is there, waiting only for the first byte. No byte means the end.
  virtual Status ReadSome(std::span<std::uint8_t> into, std::size_t& got) {
    return Read(into, got);
  }
};

/// Where bytes go.
class ByteSink {
 public:
  virtual ~ByteSink() = default;

  /// Writes all of `bytes` or fails.
  virtual Status Write(std::string_view bytes) = 0;
};

}  // namespace qvl

#endif  // QVL_PLATFORM_BYTE_STREAM_H_
