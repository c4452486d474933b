#include "files/buffered_writer.h"

#include <algorithm>
#include <cassert>
#include <cstring>

namespace qvl {

BufferedWriter::BufferedWriter(ByteSink& sink)
    : sink_(sink), buffer_(std::make_unique_for_overwrite<char[]>(kSize)) {}

void BufferedWriter::Append(std::string_view bytes) {
  while (!bytes.empty()) {
    if (used_ == kSize) Flush();
    const std::size_t count = std::min(bytes.size(), kSize - used_);
    std::memcpy(buffer_.get() + used_, bytes.data(), count);
    used_ += count;
    bytes.remove_prefix(count);
  }
}

char* BufferedWriter::Room(std::size_t count) {
  assert(count <= kLargestRoom);
  if (kSize - used_ < count) Flush();
  return buffer_.get() + used_;
}

void BufferedWriter::Flush() {
  if (status_.ok()) status_ = sink_.Write(std::string_view(buffer_.get(), used_));
  flushed_ += used_;
  used_ = 0;
}

Status BufferedWriter::Finish() {
  Flush();
  return status_;
}

}  // namespace qvl
