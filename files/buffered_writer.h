#ifndef QVL_FILES_BUFFERED_WRITER_H_
#define QVL_FILES_BUFFERED_WRITER_H_

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include "platform/byte_stream.h"

namespace qvl {

/// Collects small writes into large ones. After the first failure it drops what follows and keeps
/// that failure for `Finish`.
class BufferedWriter {
 public:
  explicit BufferedWriter(ByteSink& sink);

  void Append(std::string_view bytes);

  /// Room for `count` bytes, at most `kLargestRoom`, to be written in place and then counted by
  /// `Commit`: a line is composed in the buffer itself.
  char* Room(std::size_t count);
  void Commit(std::size_t count) { used_ += count; }

  /// Bytes written so far, buffered ones included.
  std::uint64_t written() const { return flushed_ + used_; }

  bool ok() const { return status_.ok(); }

  /// Hands what is buffered to the sink.
  void Flush();

  /// Writes what is left. Returns the first failure of the writer's life.
  Status Finish();

  static constexpr std::size_t kLargestRoom = 8192;

 private:
  static constexpr std::size_t kSize = std::size_t{256} * 1024;

  ByteSink& sink_;
  std::unique_ptr<char[]> buffer_;
  std::size_t used_ = 0;
  std::uint64_t flushed_ = 0;
  Status status_ = Status::Ok();
};

}  // namespace qvl

#endif  // QVL_FILES_BUFFERED_WRITER_H_
