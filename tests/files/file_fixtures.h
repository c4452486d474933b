#ifndef QVL_TESTS_FILES_FILE_FIXTURES_H_
#define QVL_TESTS_FILES_FILE_FIXTURES_H_

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <system_error>

#include "entries/raw_log_entry.h"
#include "files/buffered_writer.h"
#include "platform/byte_stream.h"
#include "texts/strings.h"

namespace qvl::testing {

/// A path in the system's folder for temporary files; what stands there at the end is removed.
class TemporaryFile {
 public:
  explicit TemporaryFile(std::string_view extension) {
    static std::random_device device;
    const std::string name = "qvl_test_" + std::to_string(device()) + "_" +
                             std::to_string(device()) + std::string(extension);
    path_ = std::filesystem::temp_directory_path() / name;
  }
  /// Under a name of the test's own.
  TemporaryFile(std::string_view name, std::string_view extension)
      : path_(std::filesystem::temp_directory_path() /
              (std::string(name) + std::string(extension))) {}
  ~TemporaryFile() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  /// As this program takes paths: UTF-8 on Windows, bytes elsewhere.
  std::string path() const {
    const std::u8string text = path_.u8string();
    return {text.begin(), text.end()};
  }

  bool Exists() const { return std::filesystem::exists(path_); }
  void Remove() const { std::filesystem::remove(path_); }

  void Write(std::string_view bytes) const {
    std::ofstream stream(path_, std::ios::binary);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  }

  std::string Read() const {
    std::ifstream stream(path_, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  }

 private:
  std::filesystem::path path_;
};

/// Bytes in memory; fails, when asked to, as soon as a read goes beyond the first `failAt` bytes.
class MemorySource : public ByteSource {
 public:
  explicit MemorySource(std::string bytes, std::size_t failAt = std::string::npos)
      : bytes_(std::move(bytes)), failAt_(failAt) {}

  Status Read(std::span<std::uint8_t> into, std::size_t& got) override {
    const std::size_t readable = std::min(bytes_.size(), failAt_);
    got = std::min(into.size(), readable - at_);
    std::memcpy(into.data(), bytes_.data() + at_, got);
    at_ += got;
    if (got < into.size() && failAt_ != std::string::npos) {
      return Status::Failed("the disk was pulled out");
    }
    return Status::Ok();
  }

 private:
  std::string bytes_;
  std::size_t failAt_;
  std::size_t at_ = 0;
};

/// Collects what is written.
class MemorySink : public ByteSink {
 public:
  Status Write(std::string_view bytes) override {
    bytes_.append(bytes);
    return Status::Ok();
  }
  const std::string& bytes() const { return bytes_; }

 private:
  std::string bytes_;
};

/// What `write` gives a writer.
template <typename Writing>
std::string Written(Writing write) {
  MemorySink sink;
  BufferedWriter out(sink);
  write(out);
  if (!out.Finish().ok()) return "the writer failed";
  return sink.bytes();
}

/// A record whose 256 bytes have no pattern.
template <typename Random>
RawLogEntry RandomRecord(Random& random) {
  std::array<std::uint8_t, sizeof(RawLogEntry)> bytes;
  for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random());
  RawLogEntry raw;
  std::memcpy(&raw, bytes.data(), sizeof raw);
  return raw;
}

/// A record that only its number, class, code and text tell from a zero one.
inline RawLogEntry Record(std::uint32_t number, std::uint16_t eventClass, std::uint16_t code,
                          std::string_view data = {}) {
  RawLogEntry raw{};
  raw.entryNumber = number;
  raw.eventClass = eventClass;
  raw.eventCode = code;
  std::copy_n(data.begin(), std::min(data.size(), raw.data.size()), raw.data.begin());
  return raw;
}

/// Sets the process's language while it lives.
class LanguageScope {
 public:
  explicit LanguageScope(Language language) : before_(CurrentLanguage()) {
    SetCurrentLanguage(language);
  }
  ~LanguageScope() { SetCurrentLanguage(before_); }
  LanguageScope(const LanguageScope&) = delete;
  LanguageScope& operator=(const LanguageScope&) = delete;

 private:
  Language before_;
};

}  // namespace qvl::testing

#endif  // QVL_TESTS_FILES_FILE_FIXTURES_H_
