#ifndef QVL_ENTRIES_MESSAGE_H_
#define QVL_ENTRIES_MESSAGE_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <type_traits>
#include <utility>

namespace qvl {

/// One name of a lookup table. A type of its own, so that a test can tell which name of which
/// table a description used, even where two tables hold the same word.
struct Name {
  constexpr Name() = default;
  constexpr Name(const char* name) : text(name) {}  // NOLINT(google-explicit-constructor)

  std::string_view text;
};

/// A text field of a message: bytes that live until the message is written, and the table entry
/// they came from where there is one.
class Text {
 public:
  constexpr Text() = default;
  constexpr Text(std::string_view view) : view_(view) {}  // NOLINT(google-explicit-constructor)
  constexpr Text(const char* text) : view_(text) {}       // NOLINT(google-explicit-constructor)
  // NOLINTNEXTLINE(google-explicit-constructor)
  constexpr Text(const Name& name) : view_(name.text), origin_(&name) {}

  constexpr std::string_view view() const { return view_; }
  constexpr const void* origin() const { return origin_; }
  constexpr bool empty() const { return view_.empty(); }

 private:
  std::string_view view_;
  const void* origin_ = nullptr;
};

/// A number field of a message; "%d" reads it as a signed number.
using Number = std::uint32_t;

/// How one field of a message is written.
enum class Conversion : std::uint8_t { kText, kUnsigned, kSigned, kHex2, kHex4, kHex8, kHex2Lower };

/// A stretch of fixed text and the field behind it; the last part of a message has no field.
struct MessagePart {
  std::uint16_t begin = 0;
  std::uint16_t length = 0;
  Conversion conversion = Conversion::kText;
};

namespace internal {

template <typename Field>
constexpr bool Takes(Conversion conversion) {
  if constexpr (std::is_same_v<Field, Text>) {
    return conversion == Conversion::kText;
  } else {
    return conversion != Conversion::kText;
  }
}

struct ParsedConversion {
  Conversion conversion;
  std::size_t length;  // characters of the conversion, the percent sign included
};

// Compiles only for the conversions that the messages use; any other one is a build error,
// because a throw is no constant expression.
constexpr ParsedConversion ParseConversion(std::string_view at) {
  if (at.starts_with("%s")) return {Conversion::kText, 2};
  if (at.starts_with("%u")) return {Conversion::kUnsigned, 2};
  if (at.starts_with("%d")) return {Conversion::kSigned, 2};
  if (at.starts_with("%02X")) return {Conversion::kHex2, 4};
  if (at.starts_with("%04X")) return {Conversion::kHex4, 4};
  if (at.starts_with("%08X")) return {Conversion::kHex8, 4};
  if (at.starts_with("%02x")) return {Conversion::kHex2Lower, 4};
  throw "a conversion that messages do not use";
}

}  // namespace internal

/// A message with typed fields, written in the notation of printf and taken apart at compile
/// time: a literal whose conversions do not match `Fields` does not compile, and neither does a
/// call of `TextSink::Format` with other fields.
template <typename... Fields>
class Message {
 public:
  static constexpr std::size_t kFieldCount = sizeof...(Fields);

  template <std::size_t N>
  constexpr Message(const char (&literal)[N])  // NOLINT(google-explicit-constructor)
      : text_(literal) {
    constexpr bool (*kTakes[])(Conversion) = {&internal::Takes<Fields>..., nullptr};
    const std::string_view all(literal, N - 1);
    std::size_t field = 0;
    std::size_t begin = 0;
    for (std::size_t i = 0; i < all.size();) {
      if (all[i] != '%') {
        ++i;
        continue;
      }
      const internal::ParsedConversion parsed = internal::ParseConversion(all.substr(i));
      if (field >= kFieldCount) throw "more conversions than fields";
      if (!kTakes[field](parsed.conversion)) throw "a conversion of another type than its field";
      parts_[field] = {static_cast<std::uint16_t>(begin), static_cast<std::uint16_t>(i - begin),
                       parsed.conversion};
      ++field;
      i += parsed.length;
      begin = i;
    }
    if (field != kFieldCount) throw "fewer conversions than fields";
    parts_[field] = {static_cast<std::uint16_t>(begin),
                     static_cast<std::uint16_t>(all.size() - begin), Conversion::kText};
  }

  constexpr const char* text() const { return text_; }
  constexpr const std::array<MessagePart, kFieldCount + 1>& parts() const { return parts_; }

 private:
  const char* text_;
  std::array<MessagePart, kFieldCount + 1> parts_{};
};

namespace internal {
template <typename Field, std::size_t>
using Repeated = Field;
template <typename Field, typename Sequence>
struct UniformMessage;
template <typename Field, std::size_t... I>
struct UniformMessage<Field, std::index_sequence<I...>> {
  using Type = Message<Repeated<Field, I>...>;
};
}  // namespace internal

/// A message with `N` text fields.
template <std::size_t N>
using TextMessage = typename internal::UniformMessage<Text, std::make_index_sequence<N>>::Type;

/// A message with `N` number fields.
template <std::size_t N>
using NumberMessage = typename internal::UniformMessage<Number, std::make_index_sequence<N>>::Type;

/// A message without fields.
using FixedMessage = Message<>;

}  // namespace qvl

#endif  // QVL_ENTRIES_MESSAGE_H_
