#include "entries/field_formatters.h"

#include "entries/text_sink.h"

namespace qvl {
namespace {

constexpr std::uint8_t kUnknownByte = 255;
constexpr std::uint32_t kUnknownDword = 0xFFFFFFFF;
constexpr std::size_t kSerialNumberLength = 16;

struct ByteText {
  std::array<char, 3> digits{};
  std::uint8_t length = 0;
};

constexpr std::array<ByteText, 256> MakeByteTexts() {
  std::array<ByteText, 256> texts{};
  for (unsigned value = 0; value < 256; ++value) {
    ByteText& text = texts[value];
    if (value >= 100) text.digits[text.length++] = static_cast<char>('0' + value / 100);
    if (value >= 10) text.digits[text.length++] = static_cast<char>('0' + value / 10 % 10);
    text.digits[text.length++] = static_cast<char>('0' + value % 10);
  }
  return texts;
}
constexpr std::array<ByteText, 256> kByteTexts = MakeByteTexts();

constexpr std::array<char, 256> MakeCharacters() {
  std::array<char, 256> characters{};
  for (unsigned value = 0; value < 256; ++value) characters[value] = static_cast<char>(value);
  return characters;
}
constexpr std::array<char, 256> kCharacters = MakeCharacters();

constexpr Name kLocationNames[] = {
    "System",          "System Board", "I/O Board",  "CPU",     "Memory",       "Storage",
    "Removable Media", "Power Supply", "Ambient",    "Chassis", "Bridge Board", "Management Board",
    "Backplane",       "Network Slot", "Blade Slot", "Virtual", "Unknown"};

constexpr Name kUpperLowerNames[] = {"Upper", "Lower", "Unknown"};
constexpr Name kStorageEnclosureSides[] = {"External", "Internal", ""};

constexpr Message<Number> kTemperature = "%uC";
constexpr Message<Text> kChassisPrefix = "Chassis %s, ";
constexpr Message<Text> kEnclosureSerialNumber = "Enclosure Serial Number %s";
constexpr Message<Number> kEnclosureAddress = "Enclosure Address %04X";

}  // namespace

Text FormatByteOrUnknown(std::uint8_t value) {
  if (value == kUnknownByte) return kUnknown;
  const ByteText& text = kByteTexts[value];
  return std::string_view(text.digits.data(), text.length);
}

Text FormatDwordOrUnknown(std::uint32_t value, Scratch& scratch) {
  if (value == kUnknownDword) return kUnknown;
  TextSink out(scratch);
  out.AppendDecimal(value);
  return out.view();
}

Text FormatCharOrUnknown(std::uint8_t value) {
  if (value == kUnknownByte) return kUnknown;
  if (value == 0) return std::string_view();
  return std::string_view(&kCharacters[value], 1);
}

Text FormatHex32(std::uint32_t value, Scratch& scratch) {
  TextSink out(scratch);
  out.Append(std::string_view("0x"));
  out.AppendHex(value, 8);
  return out.view();
}

Text FormatTemperature(std::uint8_t degrees, Scratch& scratch) {
  if (degrees == kUnknownByte) return kUnknown;
  TextSink out(scratch);
  out.Format(kTemperature, degrees);
  return out.view();
}

Text FormatNameOrNumber(std::uint8_t number, std::string_view name) {
  return name.empty() ? FormatByteOrUnknown(number) : Text(name);
}

Text FormatChassisPrefix(std::string_view chassis, Scratch& scratch) {
  if (chassis.empty()) return std::string_view();
  TextSink out(scratch);
  out.Format(kChassisPrefix, chassis);
  return out.view();
}

Text FormatEnclosureId(std::string_view serialNumber, EventData data, Scratch& scratch) {
  TextSink out(scratch);
  if (!serialNumber.empty() && IsAsciiAlnum(serialNumber.front())) {
    out.Format(kEnclosureSerialNumber, serialNumber.substr(0, kSerialNumberLength));
  } else {
    out.Format(kEnclosureAddress, data.Byte<1>() * 256U + data.Byte<2>());
  }
  return out.view();
}

const Name& GetLocationName(std::uint8_t code) {
  constexpr std::size_t kLast = std::size(kLocationNames) - 1;
  return kLocationNames[code < kLast ? code : kLast];
}

const Name& GetUpperLowerName(std::uint8_t value) {
  return kUpperLowerNames[value == 1 ? 0 : value == 2 ? 1 : 2];
}

const Name& GetStorageEnclosureSide(EventData data) {
  const std::uint8_t side = data.Byte<0>();
  return kStorageEnclosureSides[side == 2 ? 0 : side == 3 ? 1 : 2];
}

Text FormatTwoChars(std::uint8_t first, std::uint8_t second, Scratch& scratch) {
  scratch[0] = static_cast<char>(first);
  scratch[1] = static_cast<char>(second);
  if (first == 0) return std::string_view();
  return std::string_view(scratch.data(), second == 0 ? 1 : 2);
}

Text FormatBayLocation(std::string_view chassis, EventData data, Scratch& scratch) {
  TextSink out(scratch);
  if (!chassis.empty()) out.Format(kChassisPrefix, chassis);
  const std::string_view bay = data.TextAfter(chassis);
  if (bay.empty()) {
    out.Append(std::string_view("Slot "));
    out.Append(FormatByteOrUnknown(data.Byte<1>()));
  } else {
    out.Append(bay);
  }
  return out.view();
}

Text CollapseWhitespace(std::string_view text, Scratch& scratch) {
  TextSink out(scratch);
  bool pendingBlank = false;
  for (std::size_t i = 0; i < text.size();) {
    if (IsAsciiSpace(text[i])) {
      pendingBlank = !out.empty();
      ++i;
      continue;
    }
    std::size_t end = i;
    while (end < text.size() && !IsAsciiSpace(text[end])) ++end;
    if (pendingBlank) out.Append(std::string_view(" "));
    out.Append(text.substr(i, end - i));
    i = end;
  }
  return out.view();
}

std::span<const Name> LocationNames() {
  return kLocationNames;
}
std::span<const Name> UpperLowerNames() {
  return kUpperLowerNames;
}
std::span<const Name> StorageEnclosureSides() {
  return kStorageEnclosureSides;
}

}  // namespace qvl
