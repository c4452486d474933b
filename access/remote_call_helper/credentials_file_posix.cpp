#include <fcntl.h>
#include <pwd.h>
#include <string.h>
#include <strings.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string_view>
#include <system_error>
#include <vector>

#include "access/remote_call_helper/credentials_file.h"

namespace qvl {
namespace {

const char* Variable(const char* name) {
  const char* value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe): nothing sets one
  return value != nullptr && *value != '\0' ? value : nullptr;
}

char* SkipBlanks(char* text) {
  return text + ::strspn(text, " \t");
}

}  // namespace

CredentialsFile::~CredentialsFile() {
  // A plain assignment to an object that ends here would be optimised away.
  ::explicit_bzero(text_.data(), text_.size());
}

CredentialsFile::Result CredentialsFile::Refuse(const char* reason) {
  reason_ = reason;
  return Result::kRefused;
}

CredentialsFile::Result CredentialsFile::Read(const std::string& path) {
  // Not blocking: a FIFO in the file's place must not hold the program up.
  const int descriptor =
      ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY);
  if (descriptor < 0) {
    const int error = errno;
    if (error == ENOENT || error == ENOTDIR) return Result::kAbsent;
    if (error == ELOOP) return Refuse("is a symbolic link");
    return Refuse(("cannot be opened: " + std::generic_category().message(error)).c_str());
  }
  const Result result = ReadOpen(descriptor);
  ::close(descriptor);
  return result;
}

CredentialsFile::Result CredentialsFile::ReadOpen(int descriptor) {
  struct stat properties = {};
  if (::fstat(descriptor, &properties) != 0) return Refuse("cannot be examined");
  if (!S_ISREG(properties.st_mode)) return Refuse("is not a regular file");
  if (properties.st_uid != ::geteuid()) return Refuse("belongs to another user");
  if ((properties.st_mode & (S_IRWXG | S_IRWXO)) != 0) {
    return Refuse("is open to its group or to others; chmod 600 closes it");
  }
  std::size_t size = 0;
  while (size < text_.size()) {
    const ssize_t got = ::read(descriptor, text_.data() + size, text_.size() - size);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return Refuse("cannot be read");
    if (got == 0) break;
    size += static_cast<std::size_t>(got);
  }
  if (size == text_.size()) return Refuse("is larger than 4096 bytes");
  text_[size] = '\0';
  if (::strlen(text_.data()) != size) return Refuse("is not a text file");
  Parse();
  if (userName_ == nullptr || *userName_ == '\0') return Refuse("has no username line");
  if (password_ == nullptr) return Refuse("has no password line");
  return Result::kRead;
}

void CredentialsFile::Parse() {
  for (char* line = text_.data(); line != nullptr;) {
    char* end = ::strchr(line, '\n');
    if (end != nullptr) {
      *end = '\0';
      if (end != line && end[-1] == '\r') end[-1] = '\0';
    }
    ParseLine(SkipBlanks(line));
    line = end == nullptr ? nullptr : end + 1;
  }
}

void CredentialsFile::ParseLine(char* line) {
  if (*line == '#' || *line == ';') return;
  char* equals = ::strchr(line, '=');
  if (equals == nullptr) return;
  std::string_view key(line, static_cast<std::size_t>(equals - line));
  while (!key.empty() && (key.back() == ' ' || key.back() == '\t')) key.remove_suffix(1);
  const auto is = [key](std::string_view name) {
    return key.size() == name.size() && ::strncasecmp(key.data(), name.data(), name.size()) == 0;
  };
  // Blanks at a value's end belong to it: a password may end in one.
  const char* value = SkipBlanks(equals + 1);
  if (is("username")) userName_ = value;
  if (is("password")) password_ = value;
  if (is("domain")) domain_ = value;
}

std::string HomeFolder() {
  if (const char* home = Variable("HOME")) return home;
  std::vector<char> buffer(16384);
  struct passwd entry = {};
  struct passwd* found = nullptr;
  const int error = ::getpwuid_r(::geteuid(), &entry, buffer.data(), buffer.size(), &found);
  return error == 0 && found != nullptr ? found->pw_dir : "";
}

std::string CredentialsPath(bool& chosen) {
  const char* named = Variable("QVL_CREDENTIALS");
  chosen = named != nullptr;
  if (chosen) return named;
  constexpr const char* kFile = "/quarvel-log-viewer/credentials";
  // A relative folder is to be ignored (freedesktop.org's XDG base directories).
  const char* config = Variable("XDG_CONFIG_HOME");
  if (config != nullptr && *config == '/') return std::string(config) + kFile;
  const std::string home = HomeFolder();
  return home.empty() ? "" : home + "/.config" + kFile;
}

}  // namespace qvl
