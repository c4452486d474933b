#ifndef QVL_PLATFORM_PRINTER_H_
#define QVL_PLATFORM_PRINTER_H_

#include <memory>
#include <string>
#include <string_view>

#include "platform/status.h"

namespace qvl {

/// What a printer says of itself and of its font, in device units.
struct PrinterMetrics {
  int horizontalResolution = 0;
  int verticalResolution = 0;
  int fontHeight = 0;
  int externalLeading = 0;
  int averageCharacterWidth = 0;
};

/// A printer on which lines of text are drawn in its own font. Text is UTF-8 and is never wrapped;
/// what goes beyond the printable area is lost. The origin is the area's upper left corner.
/// Only what starts and ends a document reports: the end also tells of pages that failed.
/// A document that is never ended is not printed.
class Printer {
 public:
  virtual ~Printer() = default;

  virtual PrinterMetrics Metrics() const = 0;

  /// Starts a document under a name that the spooler shows.
  virtual Status StartDocument(const std::string& name) = 0;
  virtual void StartPage() = 0;
  /// Draws one line; x and y are its upper left corner, in device units.
  virtual void DrawLine(int x, int y, std::string_view text) = 0;
  virtual void EndPage() = 0;
  /// Hands the document to the spooler.
  virtual Status EndDocument() = 0;
};

/// Opens the user's default printer without asking anything and without a window; null when there
/// is none, or none that answers in time.
std::unique_ptr<Printer> OpenDefaultPrinter();

}  // namespace qvl

#endif  // QVL_PLATFORM_PRINTER_H_
