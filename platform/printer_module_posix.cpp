// The printing of this system as a module, so that a program that does not print loads none of the
// libraries behind it: they would take longer to load than a batch run takes to start.
#include "platform/printer.h"

extern "C" [[gnu::visibility("default")]] qvl::Printer* QvlOpenDefaultPrinter() {
  return qvl::OpenDefaultPrinter().release();
}
