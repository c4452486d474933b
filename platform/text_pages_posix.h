#ifndef QVL_PLATFORM_TEXT_PAGES_POSIX_H_
#define QVL_PLATFORM_TEXT_PAGES_POSIX_H_

#include <cstdio>
#include <memory>
#include <string_view>

#include "platform/print_destination_posix.h"
#include "platform/printer.h"

namespace qvl {

/// POSIX only: pages of text in a fixed-width font of 10 points, as a PDF file. Device units are
/// 600 to the inch, counted from the upper left corner of the paper's printable area.
class TextPages {
 public:
  explicit TextPages(const Paper& paper);
  ~TextPages();
  TextPages(const TextPages&) = delete;
  TextPages& operator=(const TextPages&) = delete;

  PrinterMetrics Metrics() const;

  /// Starts a document.
  /// out     where the bytes go; must outlive the document.
  /// Errors  no memory.
  bool Start(std::string_view title, std::FILE* out);
  void DrawLine(int x, int y, std::string_view text);
  void EndPage();
  /// Ends the document. False when not all of it could be drawn and written.
  bool Finish();

 private:
  struct Drawing;

  Paper paper_;
  std::unique_ptr<Drawing> drawing_;
};

}  // namespace qvl

#endif  // QVL_PLATFORM_TEXT_PAGES_POSIX_H_
