#include "viewer/model/text_ranks.h"

#include <algorithm>
#include <functional>
#include <numeric>

#include "entries/event_log_entry.h"

namespace qvl {
namespace {

constexpr std::size_t kFirstPlaces = 4096;

// The first eight bytes as a number that orders like them; shorter texts count as ending in zeros.
std::uint64_t Prefix(std::string_view text) {
  std::uint64_t prefix = 0;
  for (std::size_t i = 0; i < sizeof prefix; ++i) {
    prefix = prefix << 8U | (i < text.size() ? static_cast<std::uint8_t>(text[i]) : 0U);
  }
  return prefix;
}

}  // namespace

TextRanks::TextRanks() : places_(kFirstPlaces), offsets_{0} {}

std::string_view TextRanks::TextOf(std::uint32_t number) const {
  return {bytes_.data() + offsets_[number],
          static_cast<std::size_t>(offsets_[number + 1] - offsets_[number])};
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
  const auto number = static_cast<std::uint32_t>(offsets_.size() - 1);
  bytes_.insert(bytes_.end(), text.begin(), text.end());
  offsets_.push_back(bytes_.size());
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

std::vector<std::uint32_t> TextRanks::Ranks() const {
  struct Candidate {
    std::uint64_t prefix;
    std::uint32_t number;
  };
  std::vector<Candidate> order(offsets_.size() - 1);
  for (std::uint32_t number = 0; number < order.size(); ++number) {
    order[number] = {Prefix(TextOf(number)), number};
  }
  std::sort(order.begin(), order.end(), [this](const Candidate& a, const Candidate& b) {
    const std::string_view textA = TextOf(a.number);
    const std::string_view textB = TextOf(b.number);
    if (a.prefix != b.prefix && !textA.empty() && !textB.empty()) return a.prefix < b.prefix;
    return CompareTexts(textA, textB) < 0;
  });
  std::vector<std::uint32_t> ranks(order.size());
  for (std::uint32_t rank = 0; rank < order.size(); ++rank) ranks[order[rank].number] = rank;
  return ranks;
}

}  // namespace qvl
