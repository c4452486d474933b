#ifndef QVL_ENTRIES_EVENT_DATA_H_
#define QVL_ENTRIES_EVENT_DATA_H_

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>

namespace qvl {

/// The 228 class-specific bytes of a record, read with checks: an offset fixed in the code is
/// checked by the compiler, one computed from the data reads nothing beyond the last byte.
/// Views into it live as long as the record does.
class EventData {
 public:
  static constexpr std::size_t kSize = 228;

  explicit constexpr EventData(std::span<const std::uint8_t, kSize> bytes) : bytes_(bytes) {}

  template <std::size_t Offset>
  constexpr std::uint8_t Byte() const {
    static_assert(Offset < kSize);
    return bytes_[Offset];
  }

  /// Little-endian, at any alignment.
  template <std::size_t Offset>
  constexpr std::uint16_t Le16() const {
    return static_cast<std::uint16_t>(LittleEndian<Offset, 2>());
  }
  template <std::size_t Offset>
  constexpr std::uint32_t Le32() const {
    return LittleEndian<Offset, 4>();
  }

  /// Big-endian, at any alignment (the node controllers' byte order).
  template <std::size_t Offset>
  constexpr std::uint32_t Be16() const {
    return BigEndian<Offset, 2>();
  }
  template <std::size_t Offset>
  constexpr std::uint32_t Be32() const {
    return BigEndian<Offset, 4>();
  }

  /// Bytes from `begin` up to `end`, both limited to the data.
  constexpr std::span<const std::uint8_t> Bytes(std::size_t begin, std::size_t end) const {
    const std::size_t last = end < kSize ? end : kSize;
    if (begin >= last) return {};
    return bytes_.subspan(begin, last - begin);
  }

  /// The text that begins at `offset` and ends at its NUL or with the last data byte.
  /// An offset at or beyond the end gives an empty text.
  std::string_view TextAt(std::size_t offset) const {
    if (offset >= kSize) return {};
    const void* const begin = bytes_.data() + offset;
    const std::size_t room = kSize - offset;
    const void* const nul = std::memchr(begin, 0, room);
    const auto* const text = static_cast<const char*>(begin);
    return {text,
            nul == nullptr ? room : static_cast<std::size_t>(static_cast<const char*>(nul) - text)};
  }

  /// The text right behind the terminating NUL of `text`, which `TextAt` or `TextAfter` gave.
  std::string_view TextAfter(std::string_view text) const {
    if (text.data() == nullptr) return {};
    const auto* const begin = static_cast<const void*>(bytes_.data());
    const auto offset =
        static_cast<std::size_t>(text.data() - static_cast<const char*>(begin)) + text.size() + 1;
    return TextAt(offset);
  }

 private:
  template <std::size_t Offset, std::size_t Width>
  constexpr std::uint32_t LittleEndian() const {
    static_assert(Offset + Width <= kSize);
    std::uint32_t value = 0;
    for (std::size_t i = Width; i > 0; --i) value = value << 8U | bytes_[Offset + i - 1];
    return value;
  }
  template <std::size_t Offset, std::size_t Width>
  constexpr std::uint32_t BigEndian() const {
    static_assert(Offset + Width <= kSize);
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < Width; ++i) value = value << 8U | bytes_[Offset + i];
    return value;
  }

  std::span<const std::uint8_t, kSize> bytes_;
};

}  // namespace qvl

#endif  // QVL_ENTRIES_EVENT_DATA_H_
