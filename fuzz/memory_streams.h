#ifndef QVL_FUZZ_MEMORY_STREAMS_H_
#define QVL_FUZZ_MEMORY_STREAMS_H_

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "platform/byte_stream.h"

namespace qvl::fuzz {

/// Reads the fuzzer's own bytes in place, so that the sanitizer sees a read beside them.
class MemorySource : public ByteSource {
 public:
  explicit MemorySource(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  Status Read(std::span<std::uint8_t> into, std::size_t& got) override {
    got = std::min(into.size(), bytes_.size());
    std::copy_n(bytes_.begin(), got, into.begin());
    bytes_ = bytes_.subspan(got);
    return Status::Ok();
  }

 private:
  std::span<const std::uint8_t> bytes_;
};

/// Takes everything and keeps nothing.
class NoSink : public ByteSink {
 public:
  Status Write(std::string_view /*bytes*/) override { return Status::Ok(); }
};

}  // namespace qvl::fuzz

#endif  // QVL_FUZZ_MEMORY_STREAMS_H_
