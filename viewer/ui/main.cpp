#include "batch/batch_runner.h"
#include "platform/standard_streams.h"
#include "platform/system_names.h"
#include "texts/strings.h"
#include "viewer/ui/file_type_registration.h"
#include "viewer/ui/start_window.h"

int main(int argc, char** argv) {
  qvl::PrepareStandardStreams();
  if (qvl::UserReadsJapanese()) qvl::SetCurrentLanguage(qvl::Language::kJapanese);
  qvl::RegisterFileType();
  // Before any toolkit starts: batch mode needs no display.
  const std::vector<std::string> arguments = qvl::ProgramArguments(argc, argv);
  if (qvl::IsBatchCommandLine(arguments)) {
    return qvl::BatchRunner(qvl::ProcessBatchEnvironment(argc, argv)).Run(arguments);
  }
  return qvl::StartWindow(arguments);
}
