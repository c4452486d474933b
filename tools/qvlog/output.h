#ifndef QVL_TOOLS_QVLOG_OUTPUT_H_
#define QVL_TOOLS_QVLOG_OUTPUT_H_

#include <cstdint>
#include <memory>
#include <string>

#include "files/buffered_writer.h"
#include "platform/exclusive_file.h"
#include "tools/qvlog/qvlog.h"

namespace qvl {

/// Where a command writes: standard output, or a file that is opened only when there is something
/// to write, so that a mistyped input harms no older output.
class Output {
 public:
  /// What success means for a file: handed to the system, or on its storage.
  enum class Safety : std::uint8_t { kTaken, kStored };

  /// path  "-" is the console's output.
  Output(std::string path, ExclusiveFile::Mode mode, Safety safety, Console& console)
      : path_(std::move(path)), mode_(mode), safety_(safety), console_(console) {}

  /// False, and reported, when the file cannot be opened.
  bool Open();

  /// Only after a successful `Open`.
  BufferedWriter& writer() { return *writer_; }

  /// True, and nothing reported, when every byte is as safe as was asked for. False when nothing
  /// was opened.
  bool Finish();

 private:
  Status Complete();
  void ReportStaleTail();

  std::string path_;
  ExclusiveFile::Mode mode_;
  Safety safety_;
  Console& console_;
  ExclusiveFile file_;
  std::unique_ptr<BufferedWriter> writer_;
};

}  // namespace qvl

#endif  // QVL_TOOLS_QVLOG_OUTPUT_H_
