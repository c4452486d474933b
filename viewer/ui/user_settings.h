#ifndef QVL_VIEWER_UI_USER_SETTINGS_H_
#define QVL_VIEWER_UI_USER_SETTINGS_H_

#include <memory>

#include "viewer/model/settings.h"

namespace qvl {

/// The settings of the user who is logged on: HKEY_CURRENT_USER on Windows, else the file
/// quarvel-log-viewer/settings in the user's configuration folder (freedesktop.org's XDG base
/// directories), with the keys as its groups.
std::unique_ptr<Settings> OpenUserSettings();

}  // namespace qvl

#endif  // QVL_VIEWER_UI_USER_SETTINGS_H_
