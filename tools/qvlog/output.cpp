#include "tools/qvlog/output.h"

#include "tools/qvlog/log_input.h"

namespace qvl {

bool Output::Open() {
  if (path_ == "-") {
    writer_ = std::make_unique<BufferedWriter>(console_.output);
    return true;
  }
  const Status status = file_.Open(path_, mode_);
  if (status.ok()) {
    writer_ = std::make_unique<BufferedWriter>(file_);
  } else {
    Report(console_, status.message());
  }
  return status.ok();
}

bool Output::Finish() {
  if (writer_ == nullptr) return false;
  Status status = Complete();
  if (status.ok()) ReportStaleTail();
  const Status closed = file_.Close();
  if (status.ok()) status = closed;
  if (!status.ok()) Report(console_, status.message());
  return status.ok();
}

Status Output::Complete() {
  Status status = writer_->Finish();
  const bool stores = path_ != "-" && safety_ == Safety::kStored;
  if (status.ok() && stores) status = file_.Flush();
  return status;
}

void Output::ReportStaleTail() {
  std::uint64_t size = 0;
  if (path_ == "-" || !file_.Size(size).ok() || size <= writer_->written()) return;
  Report(console_, "warning: '" + path_ + "' was longer; its last " +
                       std::to_string(size - writer_->written()) + " bytes remain");
}

}  // namespace qvl
