#ifndef QVL_ENTRIES_TEXT_SINK_H_
#define QVL_ENTRIES_TEXT_SINK_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>

#include "entries/message.h"

namespace qvl {

/// Told which message or table name a description used. Only tests watch.
class RowObserver {
 public:
  virtual ~RowObserver() = default;
  /// row  the address of the `Message` or `Name`.
  virtual void Reached(const void* row) = 0;
};

/// The one place where a record's bytes become text: a bounded writer over a caller's buffer.
/// It never allocates, never writes past the buffer, cuts what does not fit, and keeps the text
/// NUL-terminated (a buffer of no bytes takes nothing).
class TextSink {
 public:
  TextSink(char* out, std::size_t size, RowObserver* observer = nullptr)
      : out_(out),
        capacity_(size == 0 ? 0 : size - 1),
        terminated_(size != 0),
        observer_(observer) {
    Terminate();
  }
  template <std::size_t N>
  explicit TextSink(std::array<char, N>& buffer) : TextSink(buffer.data(), N) {}

  TextSink(const TextSink&) = delete;
  TextSink& operator=(const TextSink&) = delete;

  /// Appends bytes as they are, as many as fit.
  void Append(std::string_view text) {
    const std::size_t room = capacity_ - size_;
    const std::size_t length = text.size() < room ? text.size() : room;
    Copy(out_ + size_, text.data(), length);
    size_ += length;
    Terminate();
  }
  void Append(const Text& text) {
    Observe(text.origin());
    Append(text.view());
  }
  void AppendDecimal(std::uint32_t value);
  void AppendSigned(std::int32_t value);
  /// Appends at least `digits` (at most 8) hexadecimal digits, zeros leading.
  void AppendHex(std::uint32_t value, int digits, bool upperCase = true);

  /// Appends `message` with its fields filled in; the fields' number and types are checked by
  /// the compiler.
  template <typename... Fields>
  void Format(const Message<Fields...>& message, std::type_identity_t<Fields>... fields) {
    Observe(&message);
    const std::array<Argument, sizeof...(Fields)> arguments{Argument(fields)...};
    FormatParts(message.text(), message.parts(), arguments);
  }

  bool empty() const { return size_ == 0; }
  std::size_t size() const { return size_; }
  std::string_view view() const { return {out_, size_}; }

 private:
  struct Argument {
    explicit Argument(const Text& field) : text(field), number(0) {}
    explicit Argument(Number value) : number(value) {}
    Text text;
    Number number;
  };

  void FormatParts(const char* text, std::span<const MessagePart> parts,
                   std::span<const Argument> arguments);
  void AppendArgument(Conversion conversion, const Argument& argument);
  void Observe(const void* row) {
    if (observer_ != nullptr && row != nullptr) observer_->Reached(row);
  }
  void Terminate() {
    if (terminated_) out_[size_] = '\0';
  }

  // Most pieces of a description are shorter than a call of the C library is worth: two moves
  // that may overlap copy them.
  static void Copy(char* to, const char* from, std::size_t length) {
    if (length > 16) {
      std::memcpy(to, from, length);
    } else if (length >= 8) {
      CopyEnds<std::uint64_t>(to, from, length);
    } else if (length >= 4) {
      CopyEnds<std::uint32_t>(to, from, length);
    } else {
      for (std::size_t i = 0; i < length; ++i) to[i] = from[i];
    }
  }
  template <typename Word>
  static void CopyEnds(char* to, const char* from, std::size_t length) {
    Word first;
    Word last;
    std::memcpy(&first, from, sizeof first);
    std::memcpy(&last, from + length - sizeof last, sizeof last);
    std::memcpy(to, &first, sizeof first);
    std::memcpy(to + length - sizeof last, &last, sizeof last);
  }

  char* out_;
  std::size_t capacity_;
  std::size_t size_ = 0;
  bool terminated_;
  RowObserver* observer_;
};

}  // namespace qvl

#endif  // QVL_ENTRIES_TEXT_SINK_H_
