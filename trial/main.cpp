#include "platform/standard_streams.h"
#include "trial/log_store.h"
#include "trial/server.h"
#include "trial/trial_options.h"
#include "trial/trial_service.h"

namespace {

int Fail(const qvl::Status& status) {
  qvl::StandardOutput error(qvl::StandardOutput::Stream::kError);
  (void)error.Write("zlkrcmc-trial: " + status.message() + "\n");
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  qvl::TrialOptions options;
  std::string text;
  const std::optional<int> ended =
      qvl::ParseTrialOptions(qvl::ProgramArguments(argc, argv), options, text);
  if (ended) {
    using Stream = qvl::StandardOutput::Stream;
    qvl::StandardOutput out(*ended == 0 ? Stream::kOutput : Stream::kError);
    (void)out.Write(text);
    return *ended;
  }
  qvl::LogStore store;
  qvl::Status status = store.Open(options.logPath);
  if (!status.ok()) return Fail(status);
  qvl::TrialService service(store, options);
  status = service.Start();
  if (!status.ok()) return Fail(status);
  return qvl::Serve(service, options);
}
