#include <dlfcn.h>

#include "platform/printer.h"
#include "platform/program_part.h"

namespace qvl {

// A computer without the libraries of a spooler has no printer. The module stays loaded: what it
// uses does not all unload cleanly.
std::unique_ptr<Printer> OpenDefaultPrinter() {
  void* const module = ::dlopen(PathOfProgramPart("zlkqvxv-print.so").c_str(), RTLD_NOW);
  if (module == nullptr) return nullptr;
  const auto open = reinterpret_cast<Printer* (*)()>(::dlsym(module, "QvlOpenDefaultPrinter"));
  return std::unique_ptr<Printer>(open == nullptr ? nullptr : open());
}

}  // namespace qvl
