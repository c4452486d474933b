#ifndef QVL_VIEWER_MODEL_TEXT_RANKS_H_
#define QVL_VIEWER_MODEL_TEXT_RANKS_H_

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace qvl {

/// Numbers texts so that equal texts share a number, and then ranks the numbers: most entries of
/// a log repeat a description, so ordering the distinct ones orders them all. Texts hold no NUL
/// and at most 65535 bytes.
class TextRanks {
 public:
  TextRanks();

  /// The number of a text; a new one when it was not seen before.
  std::uint32_t Add(std::string_view text);

  /// For each number its place in the order of `CompareTexts`. Ends the object's life.
  std::vector<std::uint32_t> Ranks() &&;

 private:
  struct Place {
    std::uint32_t hash = 0;
    std::uint32_t number = 0;  // plus one; 0 is a free place
  };
  // A text that is being ordered, and the eight bytes of it that are compared next.
  struct Candidate {
    std::uint64_t bytes;
    std::uint32_t number;
  };

  std::string_view TextOf(std::uint32_t number) const;
  std::uint32_t Store(std::string_view text);
  void Grow();
  void Order(std::span<Candidate> candidates, std::size_t depth) const;

  std::vector<Place> places_;
  std::vector<std::unique_ptr<char[]>> blocks_;  // each text behind its length
  std::size_t used_ = 0;                         // bytes of the last block
  std::vector<std::uint32_t> offsets_;           // of each text, in units of two bytes
};

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_TEXT_RANKS_H_
