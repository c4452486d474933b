#include <wx/fileconf.h>
#include <wx/filename.h>
#include <wx/utils.h>

#include <map>
#include <memory>

#include "viewer/ui/user_settings.h"
#include "viewer/ui/wx_text.h"

namespace qvl {
namespace {

wxString SettingsPath() {
  wxString folder;
  if (!wxGetEnv("XDG_CONFIG_HOME", &folder) || !folder.StartsWith("/")) {
    folder = wxFileName::GetHomeDir() + "/.config";
  }
  folder += "/quarvel-log-viewer";
  // Nobody but the user: the folder also keeps the credentials.
  wxFileName::Mkdir(folder, wxS_DIR_DEFAULT & ~0077, wxPATH_MKDIR_FULL);
  return folder + "/settings";
}

/// The file as it was read, and what was set since: only that is written, over what the file holds
/// by then, so that two windows of the program do not take each other's settings away.
class FileSettings : public Settings {
 public:
  FileSettings() { Read(); }
  ~FileSettings() override { Write(); }
  FileSettings(const FileSettings&) = delete;
  FileSettings& operator=(const FileSettings&) = delete;

  bool HasKey(const std::string& key) const override { return file_->HasGroup(Group(key)); }

  std::optional<std::uint32_t> GetNumber(const std::string& key,
                                         const std::string& name) const override {
    const std::optional<std::string> text = GetText(key, name);
    unsigned long number = 0;
    if (!text || !ToWx(*text).ToULong(&number) || number > 0xFFFFFFFF) return std::nullopt;
    return static_cast<std::uint32_t>(number);
  }

  std::optional<std::string> GetText(const std::string& key,
                                     const std::string& name) const override {
    // Asked first: reading makes the groups on the way.
    const wxString path = Path(key, name);
    wxString text;
    if (!file_->HasEntry(path) || !file_->Read(path, &text)) return std::nullopt;
    return FromWx(text);
  }

  void SetNumber(const std::string& key, const std::string& name, std::uint32_t number) override {
    SetText(key, name, std::to_string(number));
  }

  void SetText(const std::string& key, const std::string& name, const std::string& text) override {
    if (GetText(key, name) == text) return;
    const wxString path = Path(key, name);
    file_->Write(path, ToWx(text));
    changed_[path] = ToWx(text);
  }

  void Synchronise() override {
    Write();
    Read();
  }

 private:
  static wxString Group(const std::string& key) {
    wxString group = "/" + ToWx(key);
    group.Replace("\\", "/");
    return group;
  }
  static wxString Path(const std::string& key, const std::string& name) {
    return Group(key) + "/" + ToWx(name);
  }

  void Read() {
    file_ = std::make_unique<wxFileConfig>(wxString(), wxString(), SettingsPath(), wxString(),
                                           wxCONFIG_USE_LOCAL_FILE);
    file_->SetExpandEnvVars(false);
  }

  void Write() {
    if (changed_.empty()) return;
    file_->DisableAutoSave();
    Read();
    for (const auto& [path, text] : changed_) file_->Write(path, text);
    changed_.clear();
    file_->Flush();
  }

  std::unique_ptr<wxFileConfig> file_;
  std::map<wxString, wxString> changed_;
};

}  // namespace

std::unique_ptr<Settings> OpenUserSettings() {
  return std::make_unique<FileSettings>();
}

}  // namespace qvl
