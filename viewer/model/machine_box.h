#ifndef QVL_VIEWER_MODEL_MACHINE_BOX_H_
#define QVL_VIEWER_MODEL_MACHINE_BOX_H_

#include <cstddef>
#include <string>
#include <vector>

namespace qvl {

/// The editable drop-down of machine names. Texts are UTF-8.
class MachineBox {
 public:
  virtual ~MachineBox() = default;

  virtual std::string Text() const = 0;
  virtual void SetText(const std::string& text) = 0;
  /// Replaces the list; the text stays.
  virtual void SetNames(const std::vector<std::string>& names) = 0;
  /// Shows a name of the list as the text.
  virtual void Select(std::size_t index) = 0;
  /// No name is selected and the text is empty.
  virtual void SelectNothing() = 0;
};

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_MACHINE_BOX_H_
