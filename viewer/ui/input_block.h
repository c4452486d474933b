#ifndef QVL_VIEWER_UI_INPUT_BLOCK_H_
#define QVL_VIEWER_UI_INPUT_BLOCK_H_

#include <wx/window.h>

#include <memory>

namespace qvl {

/// While it lives, the user's input reaches one window alone; every window is still painted.
class InputBlock {
 public:
  /// allowed  null for none.
  explicit InputBlock(wxWindow* allowed);
  ~InputBlock();
  InputBlock(const InputBlock&) = delete;
  InputBlock& operator=(const InputBlock&) = delete;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace qvl

#endif  // QVL_VIEWER_UI_INPUT_BLOCK_H_
