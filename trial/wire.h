#ifndef QVL_TRIAL_WIRE_H_
#define QVL_TRIAL_WIRE_H_

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace qvl {

using WireBytes = std::span<const std::uint8_t>;

/// Reads little-endian values one after the other from bytes that cannot be trusted. A read beyond
/// the end gives zeros and makes every later one fail: ask `ok()` before values are used.
class WireReader {
 public:
  explicit WireReader(WireBytes bytes) : bytes_(bytes) {}

  template <typename Number>
  Number Take() {
    static_assert(std::is_unsigned_v<Number>);
    const WireBytes taken = TakeBytes(sizeof(Number));
    Number value = 0;
    if (ok_) std::memcpy(&value, taken.data(), sizeof value);
    return value;
  }

  /// Exactly `count` bytes, or none.
  WireBytes TakeBytes(std::size_t count) {
    if (!ok_ || bytes_.size() - position_ < count) {
      ok_ = false;
      return {};
    }
    const WireBytes taken = bytes_.subspan(position_, count);
    position_ += count;
    return taken;
  }

  void Skip(std::size_t count) { TakeBytes(count); }

  /// Goes on at a multiple of `size`, counted from the first byte.
  void Align(std::size_t size) { Skip((size - position_ % size) % size); }

  bool ok() const { return ok_; }
  std::size_t left() const { return ok_ ? bytes_.size() - position_ : 0; }

 private:
  WireBytes bytes_;
  std::size_t position_ = 0;
  bool ok_ = true;
};

/// Puts little-endian values together.
class WireWriter {
 public:
  template <typename Number>
  void Add(Number value) {
    static_assert(std::is_unsigned_v<Number>);
    const auto* const raw = reinterpret_cast<const std::uint8_t*>(&value);
    bytes_.insert(bytes_.end(), raw, raw + sizeof value);
  }

  void AddBytes(WireBytes bytes) { bytes_.insert(bytes_.end(), bytes.begin(), bytes.end()); }

  /// Fills with zeros up to a multiple of `size`.
  void Align(std::size_t size) { bytes_.resize((bytes_.size() + size - 1) / size * size); }

  /// Writes over what stands at `offset`.
  void SetU16(std::size_t offset, std::size_t value) {
    const auto number = static_cast<std::uint16_t>(value);
    std::memcpy(bytes_.data() + offset, &number, sizeof number);
  }

  const std::vector<std::uint8_t>& bytes() const { return bytes_; }
  std::size_t size() const { return bytes_.size(); }

 private:
  std::vector<std::uint8_t> bytes_;
};

}  // namespace qvl

#endif  // QVL_TRIAL_WIRE_H_
