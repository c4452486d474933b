// Any 256 bytes have a description that fits any buffer.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "entries/event_description.h"
#include "entries/event_log_entry.h"

namespace {

// The first two bytes beyond the record choose the buffer's size; most runs take the usual one.
std::size_t BufferSize(const std::uint8_t* data, std::size_t size) {
  if (size < sizeof(qvl::RawLogEntry) + 2) return qvl::kDescriptionSize;
  const std::size_t chosen =
      data[sizeof(qvl::RawLogEntry)] * 2U + data[sizeof(qvl::RawLogEntry) + 1];
  return chosen;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // On the heap and of the exact size, so that the sanitizer sees a read or write beside it.
  const auto raw = std::make_unique<qvl::RawLogEntry>();
  std::memset(raw.get(), 0, sizeof *raw);
  std::memcpy(raw.get(), data, std::min(size, sizeof *raw));
  const std::size_t bufferSize = BufferSize(data, size);
  const std::unique_ptr<char[]> buffer(new char[bufferSize]);
  const int result = qvl::FormatEntryDescription(*raw, buffer.get(), bufferSize);
  if (result != 0 && result != 1) std::abort();
  if (bufferSize > 0 && std::memchr(buffer.get(), 0, bufferSize) == nullptr) std::abort();
  if (bufferSize > 1 && buffer[0] == '\0') std::abort();
  return 0;
}
