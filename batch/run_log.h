#ifndef QVL_BATCH_RUN_LOG_H_
#define QVL_BATCH_RUN_LOG_H_

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>

#include "platform/exclusive_file.h"
#include "platform/status.h"
#include "texts/strings.h"

namespace qvl {

/// Room for the text of a message in the run log, its terminating zero included.
inline constexpr std::size_t kRunLogTextSize = 512;

/// `text` cut to at most `size` bytes, not in the middle of a UTF-8 character.
std::string_view CutText(std::string_view text, std::size_t size);

/// The text file in which a batch run tells what it did. Nothing is buffered: what stands in it
/// after a run was killed did happen.
class RunLog {
 public:
  /// lineEnd  replaces every line feed.
  explicit RunLog(std::string lineEnd) : lineEnd_(std::move(lineEnd)) {}

  /// Opens a file for appending, for this program alone.
  Status Open(const std::string& path);

  /// Writes a text as it is, but for its line ends.
  void Write(std::string_view text);

  /// Writes three blanks, the text, cut to `kRunLogTextSize`, and a line end.
  void WriteMessage(std::string_view text);
  /// The same with the text of a number in the process's language.
  void WriteMessage(StringId id, std::initializer_list<std::string_view> arguments = {});

  /// Writes the two blanks and the line end that stand between runs, and closes the file.
  void Close();

  /// False when the system did not take every byte so far.
  bool complete() const { return complete_; }

 private:
  ExclusiveFile file_;
  std::string lineEnd_;
  bool complete_ = true;
};

}  // namespace qvl

#endif  // QVL_BATCH_RUN_LOG_H_
