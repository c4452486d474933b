#include "access/remote_monitor_client.h"
#include "platform/standard_streams.h"
#include "tools/qvlog/qvlog.h"

int main(int argc, char** argv) {
  qvl::PrepareStandardStreams();
  qvl::StandardInput input;
  qvl::StandardOutput output(qvl::StandardOutput::Stream::kOutput);
  qvl::StandardOutput error(qvl::StandardOutput::Stream::kError);
  qvl::Console console{.input = input,
                       .output = output,
                       .error = error,
                       .now = qvl::Now(),
                       .client = qvl::ProcessRemoteMonitorClient,
                       .outputIsTerminal = output.IsTerminal(),
                       .errorIsTerminal = error.IsTerminal()};
  return qvl::RunQvlog(qvl::ProgramArguments(argc, argv), console);
}
