#include "viewer/model/viewer_settings.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string_view>

#include "viewer/model/list_model.h"
#include "viewer/model/machine_history.h"

namespace qvl {
namespace {

constexpr const char* kWidth = "width";
constexpr const char* kMachinesKey = "MRU";
constexpr const char* kFilterKey = "Filter";
constexpr const char* kFilterActive = "active";

// No screen is wider: such a number was not written by this program.
constexpr std::uint32_t kWidestColumn = 32767;

// A machine's name, its terminating zero included.
constexpr std::size_t kMachineNameSize = 260;

constexpr int kLargestWidth = 740;
constexpr int kLargestHeight = 540;
constexpr int kLeftFree = 60;

struct FilterField {
  const char* name;
  std::string FilterChoices::*text;
  std::vector<std::string_view> (*choices)();
};
constexpr FilterField kFilterFields[] = {
    {"class",    &FilterChoices::eventClass,  ClassChoices   },
    {"severity", &FilterChoices::severity,    SeverityChoices},
    {"update",   &FilterChoices::updateTime,  TimeChoices    },
    {"initial",  &FilterChoices::initialTime, TimeChoices    },
};

struct PlacementField {
  const char* name;
  int WindowPlacement::*number;
};
constexpr PlacementField kRectangle[] = {
    {"bottom", &WindowPlacement::bottom},
    {"right",  &WindowPlacement::right },
    {"top",    &WindowPlacement::top   },
    {"left",   &WindowPlacement::left  },
};

WindowPlacement FirstPlacement(const WorkArea& workArea) {
  const int width = std::min(workArea.width - kLeftFree, kLargestWidth);
  const int height = std::min(workArea.height - kLeftFree, kLargestHeight);
  WindowPlacement placement;
  placement.left = workArea.width / 2 - width / 2;
  placement.top = workArea.height / 2 - height / 2;
  placement.right = placement.left + width;
  placement.bottom = placement.top + height;
  placement.state = WindowPlacement::kNormal;
  return placement;
}

}  // namespace

std::string SettingsKey(const char* below) {
  return std::string(kSettingsKey).append("\\").append(below);
}

std::array<int, kNumberOfColumns> LoadColumnWidths(const Settings& settings) {
  std::array<int, kNumberOfColumns> widths{};
  std::size_t i = 0;
  for (const ListColumn& column : ListColumns()) {
    const std::optional<std::uint32_t> width =
        settings.GetNumber(SettingsKey(column.settingsKey), kWidth);
    const bool usable = width && *width <= kWidestColumn;
    widths[i++] = usable ? static_cast<int>(*width) : column.defaultWidth;
  }
  return widths;
}

void SaveColumnWidths(Settings& settings, const ListControl& control) {
  int i = 0;
  for (const ListColumn& column : ListColumns()) {
    settings.SetNumber(SettingsKey(column.settingsKey), kWidth,
                       static_cast<std::uint32_t>(control.GetColumnWidth(i++)));
  }
}

std::vector<std::string> LoadMachineNames(const Settings& settings) {
  const std::string key = SettingsKey(kMachinesKey);
  std::vector<std::string> names;
  while (names.size() < MachineHistory::kLimit) {
    std::optional<std::string> name = settings.GetText(key, std::to_string(names.size()));
    if (!name || name->size() >= kMachineNameSize) break;
    names.push_back(std::move(*name));
  }
  return names;
}

void SaveMachineNames(Settings& settings, const std::vector<std::string>& names) {
  const std::string key = SettingsKey(kMachinesKey);
  for (std::size_t i = 0; i < names.size(); ++i) settings.SetText(key, std::to_string(i), names[i]);
}

WindowPlacement LoadPlacement(const Settings& settings, const WindowPlacement& current,
                              const WorkArea& workArea) {
  if (!settings.HasKey(kSettingsKey)) return FirstPlacement(workArea);
  WindowPlacement placement = current;
  for (const PlacementField& field : kRectangle) {
    const std::optional<std::uint32_t> number = settings.GetNumber(kSettingsKey, field.name);
    if (number) placement.*field.number = static_cast<int>(*number);
  }
  placement.state = settings.GetNumber(kSettingsKey, "state").value_or(current.state);
  placement.flags = settings.GetNumber(kSettingsKey, "flags").value_or(current.flags);
  return placement;
}

void SavePlacement(Settings& settings, const WindowPlacement& placement) {
  for (const PlacementField& field : kRectangle) {
    settings.SetNumber(kSettingsKey, field.name,
                       static_cast<std::uint32_t>(placement.*field.number));
  }
  settings.SetNumber(kSettingsKey, "state", placement.state);
  settings.SetNumber(kSettingsKey, "flags", placement.flags);
}

FilterChoices LoadFilterChoices(const Settings& settings) {
  const std::string key = SettingsKey(kFilterKey);
  FilterChoices choices;
  if (settings.GetNumber(key, kFilterActive).value_or(0) == 0) return choices;
  for (const FilterField& field : kFilterFields) {
    const std::vector<std::string_view> offered = field.choices();
    const std::size_t at = FindChoice(offered, settings.GetText(key, field.name).value_or(""));
    if (at != kNoChoice) choices.*field.text = offered[at];
  }
  return choices;
}

void SaveFilterChoices(Settings& settings, const FilterChoices& choices) {
  const std::string key = SettingsKey(kFilterKey);
  for (const FilterField& field : kFilterFields) {
    settings.SetText(key, field.name, choices.*field.text);
  }
  settings.SetNumber(key, kFilterActive, choices.IsActive() ? 1 : 0);
}

}  // namespace qvl
