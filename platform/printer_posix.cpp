#include "platform/printer.h"

#include <cstdio>
#include <utility>

#include "platform/print_destination_posix.h"
#include "platform/text_pages_posix.h"

namespace qvl {
namespace {

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

// Draws into a file without a name and hands that over when it is whole, so that the spooler never
// prints a part of a document.
class SpooledPrinter : public Printer {
 public:
  explicit SpooledPrinter(std::unique_ptr<PrintDestination> destination)
      : destination_(std::move(destination)), pages_(destination_->paper()) {}

  PrinterMetrics Metrics() const override { return pages_.Metrics(); }

  Status StartDocument(const std::string& name) override {
    name_ = name;
    file_.reset(std::tmpfile());
    if (file_ == nullptr) return Status::Failed("cannot make a temporary file for printing");
    if (!pages_.Start(name, file_.get())) return Status::Failed("cannot draw pages");
    return Status::Ok();
  }

  void StartPage() override {}
  void DrawLine(int x, int y, std::string_view text) override { pages_.DrawLine(x, y, text); }
  void EndPage() override { pages_.EndPage(); }

  Status EndDocument() override {
    const bool drawn = pages_.Finish();
    if (!drawn || std::fflush(file_.get()) != 0) {
      return Status::Failed("cannot write pages into a temporary file");
    }
    return destination_->Send(name_, file_.get());
  }

 private:
  std::unique_ptr<PrintDestination> destination_;
  std::string name_;
  // In front of the pages, which write into it when they go.
  std::unique_ptr<std::FILE, CloseFile> file_;
  TextPages pages_;
};

}  // namespace

std::unique_ptr<Printer> OpenDefaultPrinter() {
  std::unique_ptr<PrintDestination> destination = OpenDefaultPrintDestination();
  if (destination == nullptr) return nullptr;
  return std::make_unique<SpooledPrinter>(std::move(destination));
}

}  // namespace qvl
