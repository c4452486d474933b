#include <wx/utils.h>

#include "viewer/ui/input_block.h"

namespace qvl {

struct InputBlock::State {
  explicit State(wxWindow* allowed) : disabler(allowed) {}
  wxWindowDisabler disabler;
};

InputBlock::InputBlock(wxWindow* allowed) : state_(std::make_unique<State>(allowed)) {}
InputBlock::~InputBlock() = default;

}  // namespace qvl
