#ifndef QVL_VIEWER_MODEL_VIEWER_SETTINGS_H_
#define QVL_VIEWER_MODEL_VIEWER_SETTINGS_H_

#include <array>
#include <string>
#include <vector>

#include "viewer/model/filter.h"
#include "viewer/model/list_control.h"
#include "viewer/model/main_window.h"
#include "viewer/model/settings.h"

namespace qvl {

/// The key of all settings, and what stands below it.
inline constexpr const char* kSettingsKey = "Software\\Zelkor\\Quarvel Log Viewer";
std::string SettingsKey(const char* below);

/// The widths of the columns in pixels: each in a key of its own as "width".
std::array<int, kNumberOfColumns> LoadColumnWidths(const Settings& settings);
void SaveColumnWidths(Settings& settings, const ListControl& control);

/// The recently used machines: texts named "0", "1", and so on up to the first that is missing or
/// longer than a machine name can be. Saving leaves higher numbers of earlier runs alone.
std::vector<std::string> LoadMachineNames(const Settings& settings);
void SaveMachineNames(Settings& settings, const std::vector<std::string>& names);

/// The window's place: each field that is remembered replaces the one of `current`. A first run
/// stands in the middle of the screen, 740 by 540 pixels where that leaves 60 free.
WindowPlacement LoadPlacement(const Settings& settings, const WindowPlacement& current,
                              const WorkArea& workArea);
void SavePlacement(Settings& settings, const WindowPlacement& placement);

/// The four choices of the filter. A text that no list offers any more, as after a change of the
/// language, becomes the first choice that begins with it, and else "(All)".
FilterChoices LoadFilterChoices(const Settings& settings);
void SaveFilterChoices(Settings& settings, const FilterChoices& choices);

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_VIEWER_SETTINGS_H_
