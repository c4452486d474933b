#include "viewer/model/text_ranks.h"

#include <algorithm>
#include <cstring>
#include <functional>

namespace qvl {
namespace {

constexpr std::size_t kFirstPlaces = 4096;
constexpr std::size_t kBlockSize = std::size_t{1} << 20U;
constexpr std::size_t kUnit = sizeof(std::uint16_t);
constexpr std::size_t kUnitsPerBlock = kBlockSize / kUnit;
constexpr std::size_t kStep = sizeof(std::uint64_t);

// Eight bytes from `depth` on as a number that orders like them; what lies behind the end counts
// as zeros.
std::uint64_t BytesAt(std::string_view text, std::size_t depth) {
  std::uint64_t bytes = 0;
  if (depth < text.size()) {
    std::memcpy(&bytes, text.data() + depth, std::min(kStep, text.size() - depth));
  }
  return __builtin_bswap64(bytes);
}

}  // namespace

TextRanks::TextRanks() : places_(kFirstPlaces) {}

std::string_view TextRanks::TextOf(std::uint32_t number) const {
  const std::size_t offset = offsets_[number];
  const char* const at = blocks_[offset / kUnitsPerBlock].get() + offset % kUnitsPerBlock * kUnit;
  std::uint16_t length = 0;
  std::memcpy(&length, at, sizeof length);
  return {at + sizeof length, length};
}

std::uint32_t TextRanks::Store(std::string_view text) {
  const std::size_t size = (sizeof(std::uint16_t) + text.size() + kUnit - 1) / kUnit * kUnit;
  if (blocks_.empty() || used_ + size > kBlockSize) {
    blocks_.push_back(std::make_unique_for_overwrite<char[]>(kBlockSize));
    used_ = 0;
  }
  char* const at = blocks_.back().get() + used_;
  const auto length = static_cast<std::uint16_t>(text.size());
  std::memcpy(at, &length, sizeof length);
  std::memcpy(at + sizeof length, text.data(), text.size());
  offsets_.push_back(
      static_cast<std::uint32_t>((blocks_.size() - 1) * kUnitsPerBlock + used_ / kUnit));
  used_ += size;
  return static_cast<std::uint32_t>(offsets_.size() - 1);
}

std::uint32_t TextRanks::Add(std::string_view text) {
  const auto hash = static_cast<std::uint32_t>(std::hash<std::string_view>{}(text));
  const std::size_t mask = places_.size() - 1;
  std::size_t at = hash & mask;
  for (; places_[at].number != 0; at = (at + 1) & mask) {
    if (places_[at].hash == hash && TextOf(places_[at].number - 1) == text) {
      return places_[at].number - 1;
    }
  }
  const std::uint32_t number = Store(text);
  places_[at] = {hash, number + 1};
  if (offsets_.size() * 2 > places_.size()) Grow();
  return number;
}

void TextRanks::Grow() {
  std::vector<Place> larger(places_.size() * 2);
  const std::size_t mask = larger.size() - 1;
  for (const Place& place : places_) {
    if (place.number == 0) continue;
    std::size_t at = place.hash & mask;
    while (larger[at].number != 0) at = (at + 1) & mask;
    larger[at] = place;
  }
  places_.swap(larger);
}

// Orders by eight bytes at a time, so that a comparison reads no text, and goes deeper only where
// texts still agree.
void TextRanks::Order(std::span<Candidate> candidates, std::size_t depth) const {
  for (Candidate& candidate : candidates)
    candidate.bytes = BytesAt(TextOf(candidate.number), depth);
  std::sort(candidates.begin(), candidates.end(),
            [](const Candidate& a, const Candidate& b) { return a.bytes < b.bytes; });
  for (std::size_t begin = 0; begin < candidates.size();) {
    std::size_t end = begin + 1;
    while (end < candidates.size() && candidates[end].bytes == candidates[begin].bytes) ++end;
    if (end - begin > 1) Order(candidates.subspan(begin, end - begin), depth + kStep);
    begin = end;
  }
}

std::vector<std::uint32_t> TextRanks::Ranks() && {
  places_ = std::vector<Place>();
  std::vector<Candidate> order(offsets_.size());
  for (std::uint32_t number = 0; number < order.size(); ++number) order[number] = {0, number};
  Order(order, 0);
  // The one empty text there can be comes after all others.
  if (!order.empty() && TextOf(order.front().number).empty()) {
    std::rotate(order.begin(), order.begin() + 1, order.end());
  }
  std::vector<std::uint32_t> ranks(order.size());
  for (std::uint32_t rank = 0; rank < order.size(); ++rank) ranks[order[rank].number] = rank;
  return ranks;
}

}  // namespace qvl
