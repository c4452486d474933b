#ifndef QVL_VIEWER_MODEL_SETTINGS_H_
#define QVL_VIEWER_MODEL_SETTINGS_H_

#include <cstdint>
#include <optional>
#include <string>

namespace qvl {

/// What the program remembers for its user: the user's part of the registry on Windows, a
/// configuration file with the same keys and names elsewhere. Keys are paths with backslashes,
/// texts UTF-8. What cannot be read is not there; what cannot be written is lost without a word,
/// because nobody is asked to do anything about a window's place.
class Settings {
 public:
  virtual ~Settings() = default;

  virtual bool HasKey(const std::string& key) const = 0;
  /// A 32-bit number; nothing for a value of another type.
  virtual std::optional<std::uint32_t> GetNumber(const std::string& key,
                                                 const std::string& name) const = 0;
  virtual std::optional<std::string> GetText(const std::string& key,
                                             const std::string& name) const = 0;
  /// Both create the key where it is missing.
  virtual void SetNumber(const std::string& key, const std::string& name, std::uint32_t number) = 0;
  virtual void SetText(const std::string& key, const std::string& name,
                       const std::string& text) = 0;

  /// What was set is kept, and what other programs have set meanwhile is seen.
  virtual void Synchronise() = 0;
};

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_SETTINGS_H_
