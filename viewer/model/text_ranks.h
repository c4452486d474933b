#ifndef QVL_VIEWER_MODEL_TEXT_RANKS_H_
#define QVL_VIEWER_MODEL_TEXT_RANKS_H_

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace qvl {

/// Numbers texts so that equal texts share a number, and then ranks the numbers: most entries of
/// a log repeat a description, so ordering the distinct ones orders them all.
class TextRanks {
 public:
  TextRanks();

  /// The number of a text; a new one when it was not seen before.
  std::uint32_t Add(std::string_view text);

  /// For each number its place in the order of `CompareTexts`.
  std::vector<std::uint32_t> Ranks() const;

 private:
  struct Place {
    std::uint32_t hash = 0;
    std::uint32_t number = 0;  // plus one; 0 is a free place
  };

  std::string_view TextOf(std::uint32_t number) const;
  void Grow();

  std::vector<Place> places_;
  std::vector<char> bytes_;             // the distinct texts, one after the other
  std::vector<std::uint64_t> offsets_;  // of each text, and of the end
};

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_TEXT_RANKS_H_
