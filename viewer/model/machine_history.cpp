#include "viewer/model/machine_history.h"

#include <algorithm>
#include <utility>

#include "entries/ascii_case.h"

namespace qvl {
void MachineHistory::Assign(std::vector<std::string> names) {
  names_ = std::move(names);
  if (names_.size() > kLimit) names_.resize(kLimit);
}

void MachineHistory::Add(const std::string& name) {
  const auto found = std::find_if(
      names_.begin(), names_.end(),
      [&name](const std::string& candidate) { return BeginsIgnoringCase(candidate, name); });
  if (found != names_.end()) {
    names_.erase(found);
  } else if (names_.size() >= kLimit) {
    names_.resize(kLimit - 1);
  }
  names_.insert(names_.begin(), name);
}

}  // namespace qvl
