#ifndef QVL_VIEWER_MODEL_RECENT_FILES_H_
#define QVL_VIEWER_MODEL_RECENT_FILES_H_

#include <string>
#include <vector>

#include "viewer/model/settings.h"

namespace qvl {

/// The log files that were opened or saved last, newest first, at most four; remembered as "File1"
/// to "File4" in the key "Recent File List", UTF-8. What other windows of the program remembered
/// meanwhile is kept: the list is read again before it changes, and written at once.
class RecentFiles {
 public:
  static constexpr std::size_t kLimit = 4;

  /// settings  outlives the list.
  explicit RecentFiles(Settings& settings);

  /// As this list showed them last.
  const std::vector<std::string>& paths() const { return paths_; }

  /// Paths as the model has them; a relative one is made absolute.
  void Add(const std::string& path);
  /// A file that is gone.
  void Remove(const std::string& path);

 private:
  void Load();
  void Save();

  Settings& settings_;
  std::vector<std::string> paths_;
};

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_RECENT_FILES_H_
