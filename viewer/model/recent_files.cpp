#include "viewer/model/recent_files.h"

#include <algorithm>

#include "viewer/model/file_names.h"
#include "viewer/model/viewer_settings.h"

namespace qvl {
namespace {

std::string NameOf(std::size_t index) {
  return "File" + std::to_string(index + 1);
}

std::string Key() {
  return SettingsKey("Recent File List");
}

}  // namespace

RecentFiles::RecentFiles(Settings& settings) : settings_(settings) {
  Load();
}

void RecentFiles::Load() {
  paths_.clear();
  for (std::size_t i = 0; i < kLimit; ++i) {
    std::optional<std::string> path = settings_.GetText(Key(), NameOf(i));
    if (path && !path->empty()) paths_.push_back(std::move(*path));
  }
}

void RecentFiles::Add(const std::string& path) {
  settings_.Synchronise();
  Load();
  const std::string added = AbsolutePath(path);
  std::erase_if(paths_, [&added](const std::string& known) { return IsSamePath(known, added); });
  paths_.insert(paths_.begin(), added);
  if (paths_.size() > kLimit) paths_.resize(kLimit);
  Save();
}

void RecentFiles::Remove(const std::string& path) {
  settings_.Synchronise();
  Load();
  std::erase(paths_, path);
  Save();
}

void RecentFiles::Save() {
  for (std::size_t i = 0; i < kLimit; ++i) {
    settings_.SetText(Key(), NameOf(i), i < paths_.size() ? paths_[i] : std::string());
  }
  settings_.Synchronise();
}

}  // namespace qvl
