#ifndef QVL_TESTS_FAKES_FAKE_PRINTER_H_
#define QVL_TESTS_FAKES_FAKE_PRINTER_H_

#include <string>
#include <string_view>
#include <vector>

#include "platform/printer.h"

namespace qvl::testing {

/// What a fake printer says of itself, and what it was given.
struct PrintRecord {
  PrinterMetrics metrics = {.horizontalResolution = 800,
                            .verticalResolution = 300,
                            .fontHeight = 8,
                            .externalLeading = 2,
                            .averageCharacterWidth = 10};
  bool refusesStart = false;
  bool refusesEnd = false;
  std::vector<std::string> calls;  ///< "document Report", "page", "25,35 text", "end of page", ...
};

/// A printer that only keeps what it was given.
class FakePrinter : public Printer {
 public:
  explicit FakePrinter(PrintRecord& record) : record_(record) {}

  PrinterMetrics Metrics() const override { return record_.metrics; }

  Status StartDocument(const std::string& name) override {
    record_.calls.push_back("document " + name);
    return record_.refusesStart ? Status::Failed("the spooler is asleep") : Status::Ok();
  }
  void StartPage() override { record_.calls.emplace_back("page"); }
  void DrawLine(int x, int y, std::string_view text) override {
    record_.calls.push_back(std::to_string(x) + "," + std::to_string(y) + " " + std::string(text));
  }
  void EndPage() override { record_.calls.emplace_back("end of page"); }
  Status EndDocument() override {
    record_.calls.emplace_back("end of document");
    return record_.refusesEnd ? Status::Failed("out of paper") : Status::Ok();
  }

 private:
  PrintRecord& record_;
};

}  // namespace qvl::testing

#endif  // QVL_TESTS_FAKES_FAKE_PRINTER_H_
