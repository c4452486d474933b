#include "platform/program_part.h"

#include <unistd.h>

#include <filesystem>
#include <system_error>

namespace qvl {

std::string PathOfProgramPart(const std::string& name) {
  std::error_code error;
  const std::filesystem::path folder =
      std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
  if (error || !folder.is_absolute()) return "";
  std::string beside = (folder / name).string();
  if (::access(beside.c_str(), R_OK) == 0) return beside;
  return (folder / ".." / "libexec" / "quarvel-log-viewer" / name).string();
}

}  // namespace qvl
