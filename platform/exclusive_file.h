#ifndef QVL_PLATFORM_EXCLUSIVE_FILE_H_
#define QVL_PLATFORM_EXCLUSIVE_FILE_H_

#include <cstdint>
#include <memory>
#include <string>

#include "platform/byte_stream.h"

namespace qvl {

/// A file opened so that no other program can write it meanwhile: by share modes on Windows, by
/// advisory locks elsewhere (there only programs that lock are kept out). Readers may share.
/// Paths are UTF-8 on Windows and bytes elsewhere.
/// Errors: a Status naming the operation, the path and the system's text; never throws.
class ExclusiveFile : public ByteSource, public ByteSink {
 public:
  enum class Mode : std::uint8_t {
    kRead,       ///< an existing file
    kOverwrite,  ///< written over from its beginning without being truncated; created if missing
    kOverwriteShared,  ///< the same, but others may read meanwhile
    kReplace,          ///< truncated; created if missing
    kAppend,           ///< written at its end; created if missing
  };

  ExclusiveFile();
  ~ExclusiveFile() override;
  ExclusiveFile(const ExclusiveFile&) = delete;
  ExclusiveFile& operator=(const ExclusiveFile&) = delete;

  Status Open(const std::string& path, Mode mode);
  Status Read(std::span<std::uint8_t> into, std::size_t& got) override;
  Status Write(std::string_view bytes) override;

  /// The file's length in bytes; 0 for what has none, a pipe for one.
  Status Size(std::uint64_t& size);

  /// Ends the file at the place that was written last; what has no length stays as it is.
  Status CutTail();

  /// Waits until the system has the bytes on its storage, where the file is on one.
  Status Flush();

  /// Closes the file. A file that was written must be closed through this call, because some
  /// systems report a full disk or a lost share only now.
  Status Close();

 private:
  struct Handle;
  std::unique_ptr<Handle> handle_;
  std::string path_;
};

}  // namespace qvl

#endif  // QVL_PLATFORM_EXCLUSIVE_FILE_H_
