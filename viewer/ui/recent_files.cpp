#include "viewer/ui/recent_files.h"

#include <wx/filename.h>

#include <algorithm>

#include "viewer/model/viewer_settings.h"
#include "viewer/ui/wx_text.h"

namespace qvl {
namespace {

constexpr std::size_t kLimit = 4;

std::string NameOf(std::size_t index) {
  return "File" + std::to_string(index + 1);
}

std::string Key() {
  return SettingsKey("Recent File List");
}

}  // namespace

RecentFiles::RecentFiles(Settings& settings) : settings_(settings) {
  for (std::size_t i = 0; i < kLimit; ++i) {
    const std::optional<std::string> path = settings_.GetText(Key(), NameOf(i));
    if (path && !path->empty()) paths_.push_back(PathFromWx(ToWx(*path)));
  }
}

void RecentFiles::Add(const std::string& path) {
  wxFileName name(PathToWx(path));
  name.MakeAbsolute();
  std::erase_if(paths_, [&name](const std::string& known) {
    return name.SameAs(wxFileName(PathToWx(known)));
  });
  paths_.insert(paths_.begin(), PathFromWx(name.GetFullPath()));
  if (paths_.size() > kLimit) paths_.resize(kLimit);
  Save();
}

void RecentFiles::Remove(const std::string& path) {
  std::erase(paths_, path);
  Save();
}

void RecentFiles::Save() {
  for (std::size_t i = 0; i < kLimit; ++i) {
    settings_.SetText(Key(), NameOf(i),
                      i < paths_.size() ? FromWx(PathToWx(paths_[i])) : std::string());
  }
}

}  // namespace qvl
