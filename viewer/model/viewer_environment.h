#ifndef QVL_VIEWER_MODEL_VIEWER_ENVIRONMENT_H_
#define QVL_VIEWER_MODEL_VIEWER_ENVIRONMENT_H_

#include <cstddef>
#include <functional>
#include <string>

#include "access/remote_monitor_client.h"
#include "viewer/model/blocking_work.h"
#include "viewer/model/clock.h"
#include "viewer/model/file_dialogs.h"
#include "viewer/model/list_control.h"
#include "viewer/model/machine_box.h"
#include "viewer/model/main_window.h"
#include "viewer/model/message_window.h"
#include "viewer/model/progress_window.h"
#include "viewer/model/settings.h"
#include "viewer/model/viewer_dialogs.h"

namespace qvl {

/// What the viewer's logic works on. Everything in it outlives the model.
struct ViewerEnvironment {
  RemoteMonitorClient& client;
  BlockingWork& work;
  ProgressWindow& progress;
  MessageWindow& messages;
  FileDialogs& files;
  ViewerDialogs& dialogs;
  MainWindow& window;
  MachineBox& machineBox;
  ListControl& list;
  Clock& clock;
  Settings& settings;
  /// As `ComputerName` and `LoggedOnUserName` of the platform.
  std::function<std::string()> computerName;
  std::function<bool(std::size_t capacity, std::string& name)> userName;
  /// The end of a line in texts that are copied for other programs.
  std::string lineEnd;
};

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_VIEWER_ENVIRONMENT_H_
