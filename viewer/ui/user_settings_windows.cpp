#include <wx/buffer.h>
#include <wx/string.h>
// After the two above, which it needs.
#include <wx/msw/registry.h>

#include "viewer/ui/user_settings.h"
#include "viewer/ui/wx_text.h"

namespace qvl {
namespace {

class RegistrySettings : public Settings {
 public:
  bool HasKey(const std::string& key) const override { return Key(key).Exists(); }

  std::optional<std::uint32_t> GetNumber(const std::string& key,
                                         const std::string& name) const override {
    const wxRegKey place = Key(key);
    if (!Holds(place, name, wxRegKey::Type_Dword)) return std::nullopt;
    long number = 0;
    if (!place.QueryValue(ToWx(name), &number)) return std::nullopt;
    return static_cast<std::uint32_t>(number);
  }

  std::optional<std::string> GetText(const std::string& key,
                                     const std::string& name) const override {
    const wxRegKey place = Key(key);
    if (!Holds(place, name, wxRegKey::Type_String)) return std::nullopt;
    wxString text;
    if (!place.QueryValue(ToWx(name), text)) return std::nullopt;
    return FromWx(text);
  }

  void SetNumber(const std::string& key, const std::string& name, std::uint32_t number) override {
    wxRegKey place = Key(key);
    static_cast<void>(place.Create() && place.SetValue(ToWx(name), static_cast<long>(number)));
  }

  void SetText(const std::string& key, const std::string& name, const std::string& text) override {
    wxRegKey place = Key(key);
    static_cast<void>(place.Create() && place.SetValue(ToWx(name), ToWx(text)));
  }

  // The registry is one for all programs, and written at once.
  void Synchronise() override {}

 private:
  static wxRegKey Key(const std::string& key) { return wxRegKey(wxRegKey::HKCU, ToWx(key)); }

  static bool Holds(const wxRegKey& place, const std::string& name, wxRegKey::ValueType type) {
    return place.Exists() && place.HasValue(ToWx(name)) && place.GetValueType(ToWx(name)) == type;
  }
};

}  // namespace

std::unique_ptr<Settings> OpenUserSettings() {
  return std::make_unique<RegistrySettings>();
}

}  // namespace qvl
