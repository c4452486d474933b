#ifndef QVL_ACCESS_REMOTE_CALL_HELPER_CREDENTIALS_FILE_H_
#define QVL_ACCESS_REMOTE_CALL_HELPER_CREDENTIALS_FILE_H_

#include <array>
#include <cstdint>
#include <string>

namespace qvl {

/// A user's name and password for other machines, from a file of lines `username = `,
/// `password = ` and `domain = `. Its bytes are overwritten when it goes out of scope.
class CredentialsFile {
 public:
  enum class Result : std::uint8_t {
    kRead,
    kAbsent,
    kRefused,  ///< reason() says why
  };

  CredentialsFile() = default;
  ~CredentialsFile();
  CredentialsFile(const CredentialsFile&) = delete;
  CredentialsFile& operator=(const CredentialsFile&) = delete;

  /// Call once. A file is refused that is no regular file (a symbolic link included), that belongs
  /// to another user, that its group or others may read or write, that is larger than 4 KiB, or
  /// that lacks a user name or a password. Blank lines and those that start with # or ; are
  /// comments; of two lines for one thing the last stands.
  Result Read(const std::string& path);

  /// Why the file was refused, for its user.
  const std::string& reason() const { return reason_; }

  // Ended by a zero, within this object. A domain can also be in the name: DOMAIN\user.
  const char* userName() const { return userName_; }
  const char* password() const { return password_; }
  const char* domain() const { return domain_; }  ///< null when the file has none

 private:
  Result Refuse(const char* reason);
  Result ReadOpen(int descriptor);
  void Parse();
  void ParseLine(char* line);

  std::array<char, 4097> text_{};
  std::string reason_;
  const char* userName_ = nullptr;
  const char* password_ = nullptr;
  const char* domain_ = nullptr;
};

/// Where the user's credentials file is. `chosen` is true when $QVL_CREDENTIALS names it; else it
/// is quarvel-log-viewer/credentials in $XDG_CONFIG_HOME or ~/.config. Empty without a home.
std::string CredentialsPath(bool& chosen);

/// The user's home folder: $HOME, else the system's. Empty when there is none.
std::string HomeFolder();

}  // namespace qvl

#endif  // QVL_ACCESS_REMOTE_CALL_HELPER_CREDENTIALS_FILE_H_
