#include "entries/text_sink.h"

#include <charconv>

namespace qvl {
namespace {

// The digits of any number, and more than `Append` copies without a call.
constexpr std::size_t kDigitRoom = 24;

}  // namespace

void TextSink::AppendDecimal(std::uint32_t value) {
  // Most numbers of a log are counts of one and small slots.
  if (value < 10) {
    const char digit = static_cast<char>('0' + value);
    Append(std::string_view(&digit, 1));
    return;
  }
  std::array<char, kDigitRoom> digits;
  const std::to_chars_result end =
      std::to_chars(digits.data(), digits.data() + digits.size(), value);
  Append(std::string_view(digits.data(), static_cast<std::size_t>(end.ptr - digits.data())));
}

void TextSink::AppendSigned(std::int32_t value) {
  if (value < 0) Append(std::string_view("-"));
  const auto bits = static_cast<std::uint32_t>(value);
  AppendDecimal(value < 0 ? 0U - bits : bits);
}

void TextSink::AppendHex(std::uint32_t value, int digits, bool upperCase) {
  const char* const alphabet = upperCase ? "0123456789ABCDEF" : "0123456789abcdef";
  std::array<char, kDigitRoom> text;
  std::size_t begin = text.size();
  while (value != 0 || static_cast<int>(text.size() - begin) < digits) {
    text[--begin] = alphabet[value & 15U];
    value >>= 4U;
  }
  Append(std::string_view(text.data() + begin, text.size() - begin));
}

void TextSink::AppendArgument(Conversion conversion, const Argument& argument) {
  switch (conversion) {
    case Conversion::kText:
      Append(argument.text);
      break;
    case Conversion::kUnsigned:
      AppendDecimal(argument.number);
      break;
    case Conversion::kSigned:
      AppendSigned(static_cast<std::int32_t>(argument.number));
      break;
    case Conversion::kHex2:
      AppendHex(argument.number, 2);
      break;
    case Conversion::kHex4:
      AppendHex(argument.number, 4);
      break;
    case Conversion::kHex8:
      AppendHex(argument.number, 8);
      break;
    case Conversion::kHex2Lower:
      AppendHex(argument.number, 2, false);
      break;
  }
}

void TextSink::FormatParts(const char* text, std::span<const MessagePart> parts,
                           std::span<const Argument> arguments) {
  for (std::size_t i = 0; i < parts.size(); ++i) {
    Append(std::string_view(text + parts[i].begin, parts[i].length));
    if (i < arguments.size()) AppendArgument(parts[i].conversion, arguments[i]);
  }
}

}  // namespace qvl
