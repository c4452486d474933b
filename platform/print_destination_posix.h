#ifndef QVL_PLATFORM_PRINT_DESTINATION_POSIX_H_
#define QVL_PLATFORM_PRINT_DESTINATION_POSIX_H_

#include <cstdio>
#include <memory>
#include <string>

#include "platform/status.h"

namespace qvl {

/// A sheet of paper and the margins that the printer cannot reach, in hundredths of a millimetre.
struct Paper {
  std::string name;  ///< as the spooler knows it; empty when it did not tell
  int width = 21000;
  int length = 29700;
  int left = 635;
  int right = 635;
  int top = 635;
  int bottom = 635;
};

/// POSIX only: the user's default queue of the print spooler.
class PrintDestination {
 public:
  virtual ~PrintDestination() = default;

  /// The paper that the queue takes when nothing else is asked for.
  virtual const Paper& paper() const = 0;

  /// Hands a document to the queue.
  /// pdf     read from its start to its end; not kept.
  /// Errors  the spooler's own text. The spooler then prints nothing of it.
  virtual Status Send(const std::string& title, std::FILE* pdf) = 0;
};

/// Asks the spooler (CUPS_SERVER or its client.conf) for the default queue (lpoptions, LPDEST,
/// PRINTER, or the spooler's own). Null when there is none, or when the spooler keeps silent for
/// 30 seconds (QVL_PRINT_TIMEOUT_MS).
std::unique_ptr<PrintDestination> OpenDefaultPrintDestination();

}  // namespace qvl

#endif  // QVL_PLATFORM_PRINT_DESTINATION_POSIX_H_
