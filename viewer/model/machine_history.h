#ifndef QVL_VIEWER_MODEL_MACHINE_HISTORY_H_
#define QVL_VIEWER_MODEL_MACHINE_HISTORY_H_

#include <cstddef>
#include <string>
#include <vector>

namespace qvl {

/// The names of the machines that were opened last, newest first.
class MachineHistory {
 public:
  static constexpr std::size_t kLimit = 10;

  const std::vector<std::string>& names() const { return names_; }

  /// Puts names as they were remembered; those beyond the limit are left out.
  void Assign(std::vector<std::string> names);

  /// Puts a name at the head. The first name that begins with it, ignoring case, makes room: not
  /// only the name itself, so opening SRV1 takes SRV12 out. Users' lists have always behaved so.
  /// Where none does, a full list loses its last name.
  void Add(const std::string& name);

 private:
  std::vector<std::string> names_;
};

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_MACHINE_HISTORY_H_
