#ifndef QVL_VIEWER_UI_EVENT_VIEWER_APP_H_
#define QVL_VIEWER_UI_EVENT_VIEWER_APP_H_

#include <wx/app.h>

#include <memory>
#include <string>
#include <vector>

#include "viewer/model/settings.h"

namespace qvl {

/// The interactive program. Batch mode was decided before the toolkit started.
class CEventViewerApp : public wxApp {
 public:
  /// arguments  without the program's name, as `ProgramArguments` gives them.
  explicit CEventViewerApp(std::vector<std::string> arguments);

  bool OnInit() override;

  /// Memory that runs out is told, and the window stays; any other exception ends the program.
  bool OnExceptionInMainLoop() override;

  /// A mistake in using the toolkit is told on standard error and never to the user.
  void OnAssertFailure(const wxChar* file, int line, const wxChar* function,
                       const wxChar* condition, const wxChar* message) override;

 private:
  std::vector<std::string> arguments_;
  std::unique_ptr<Settings> settings_;
};

/// Makes it the toolkit's application; wxEntry follows.
void InstallEventViewerApp(std::vector<std::string> arguments);

}  // namespace qvl

#endif  // QVL_VIEWER_UI_EVENT_VIEWER_APP_H_
