#ifndef QVL_TOOLS_SAMPLE_DATA_WRITER_H_
#define QVL_TOOLS_SAMPLE_DATA_WRITER_H_

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "tools/sample/scenarios.h"

namespace qvl::sample {

inline void PutByte(Scene& scene, std::size_t offset, std::uint32_t value) {
  scene.data[offset] = static_cast<std::uint8_t>(value);
}
inline void PutLe16(Scene& scene, std::size_t offset, std::uint32_t value) {
  PutByte(scene, offset, value);
  PutByte(scene, offset + 1, value >> 8U);
}
inline void PutLe32(Scene& scene, std::size_t offset, std::uint32_t value) {
  PutLe16(scene, offset, value);
  PutLe16(scene, offset + 2, value >> 16U);
}
inline void PutBe16(Scene& scene, std::size_t offset, std::uint32_t value) {
  PutByte(scene, offset, value >> 8U);
  PutByte(scene, offset + 1, value);
}
inline void PutBe32(Scene& scene, std::size_t offset, std::uint32_t value) {
  PutBe16(scene, offset, value >> 16U);
  PutBe16(scene, offset + 2, value);
}

/// Writes a text into the data, whose zeros end it; the last data byte stays its NUL.
class TextWriter {
 public:
  TextWriter(Scene& scene, std::size_t offset) : data_(scene.data), position_(offset) {}

  void Add(char character) {
    if (position_ + 1 < data_.size()) data_[position_++] = static_cast<std::uint8_t>(character);
  }
  void Add(std::string_view text) {
    for (const char character : text) Add(character);
  }
  void AddNumber(std::uint32_t value) {
    std::uint32_t unit = 1;
    while (value / unit >= 10) unit *= 10;
    for (; unit > 0; unit /= 10) Add(static_cast<char>('0' + value / unit % 10));
  }
  void AddHex(std::uint32_t value, unsigned digits) {
    for (; digits > 0; --digits) Add("0123456789ABCDEF"[value >> 4U * (digits - 1) & 0xFU]);
  }
  /// `length` letters and digits that depend on `key` alone.
  void AddSerial(std::uint64_t key, int length) {
    constexpr std::string_view kSymbols = "0123456789ABCDEFGHJKLMNPRSTUVWXY";
    static_assert(kSymbols.size() == 32);
    for (std::uint64_t bits = Random::Mix(key); length > 0; --length, bits >>= 5U) {
      Add(kSymbols[bits & 31U]);
    }
  }
  /// The first offset behind the text and its NUL.
  std::size_t End() const { return position_ + 1; }

 private:
  std::span<std::uint8_t, EventData::kSize> data_;
  std::size_t position_;
};

// The functions below return the first offset behind the text's NUL.

std::size_t PutName(Scene& scene, std::size_t offset, std::string_view name);
/// One of the kind's texts with its parts filled in, or none where the kind has none.
std::size_t PutText(Scene& scene, std::size_t offset);
/// A blade (4) or power (5) enclosure: type, address and, for most, a serial number.
std::size_t PutEnclosure(Scene& scene, std::uint32_t type, std::size_t textOffset);
/// The chassis type, number or slot, and name of the story's place.
std::size_t PutPlace(Scene& scene, std::size_t textOffset);

/// The parts of a storage enclosure that its events share, at the offsets of each.
void PutStorageBox(Scene& scene, std::size_t port, std::size_t box, std::size_t texts);
/// The texts by which such an event names the storage system and the controller.
void PutStorageNames(Scene& scene, std::size_t offset);

/// Modules are numbered by what carries them: a board, or behind those a processor.
inline constexpr std::size_t kFirstProcessorCarrier = 8;
void AddModuleSerial(Scene& scene, std::size_t carrier, std::size_t module, TextWriter& out);

std::string_view CabinetName(const Cast& cast);
std::string_view StorageName(const Cast& cast);

}  // namespace qvl::sample

#endif  // QVL_TOOLS_SAMPLE_DATA_WRITER_H_
