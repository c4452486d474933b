#ifndef QVL_ENTRIES_FIELD_FORMATTERS_H_
#define QVL_ENTRIES_FIELD_FORMATTERS_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "entries/event_data.h"
#include "entries/message.h"

namespace qvl {

/// Room for one composed field. Two texts of one record and their labels always fit.
using Scratch = std::array<char, 352>;

/// The names that the shared formatters and several decoders use.
inline constexpr Name kUnknown{"Unknown"};

/// A byte in decimal; 255 reads "Unknown". The text is constant.
Text FormatByteOrUnknown(std::uint8_t value);

/// A 32-bit number in decimal; all bits set reads "Unknown".
Text FormatDwordOrUnknown(std::uint32_t value, Scratch& scratch);

/// A byte as one character (a NUL gives an empty field); 255 reads "Unknown".
Text FormatCharOrUnknown(std::uint8_t value);

/// "0x" and eight upper-case hexadecimal digits.
Text FormatHex32(std::uint32_t value, Scratch& scratch);

/// Degrees Celsius as "40C"; 255 reads "Unknown".
Text FormatTemperature(std::uint8_t degrees, Scratch& scratch);

/// `name` when it is not empty, else the number as `FormatByteOrUnknown` gives it.
Text FormatNameOrNumber(std::uint8_t number, std::string_view name);

/// "Chassis NAME, " with its trailing blank, or an empty text for an empty name.
Text FormatChassisPrefix(std::string_view chassis, Scratch& scratch);

/// An enclosure by its serial number (at most 16 characters) when that begins with an ASCII
/// letter or digit, else by its address, data byte 1 times 256 plus data byte 2.
Text FormatEnclosureId(std::string_view serialNumber, EventData data, Scratch& scratch);

/// The name of a location code; 16 and above read "Unknown".
const Name& GetLocationName(std::uint8_t code);

/// 1 "Upper", 2 "Lower", anything else "Unknown".
const Name& GetUpperLowerName(std::uint8_t value);

/// The side of a storage enclosure from data byte 0: 2 "External", 3 "Internal", else empty.
const Name& GetStorageEnclosureSide(EventData data);

/// Two bytes as characters (a port name); a NUL ends the field.
Text FormatTwoChars(std::uint8_t first, std::uint8_t second, Scratch& scratch);

/// A position in a storage enclosure. `chassis` is the first text of a pair, as
/// `EventData::TextAt` gave it; the bay's name follows it in the data. A bay without a name reads
/// as the slot of data byte 1.
Text FormatBayLocation(std::string_view chassis, EventData data, Scratch& scratch);

/// `text` with its white space tidied: none at either end, one blank for each run inside.
/// Cut at the scratch buffer's end.
Text CollapseWhitespace(std::string_view text, Scratch& scratch);

/// The lookup tables behind the formatters, for the test that looks for unreached names.
std::span<const Name> LocationNames();
std::span<const Name> UpperLowerNames();
std::span<const Name> StorageEnclosureSides();

/// ASCII rules for bytes, whatever the process's locale says.
constexpr bool IsAsciiSpace(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}
constexpr bool IsAsciiAlnum(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

}  // namespace qvl

#endif  // QVL_ENTRIES_FIELD_FORMATTERS_H_
