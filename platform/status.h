#ifndef QVL_PLATFORM_STATUS_H_
#define QVL_PLATFORM_STATUS_H_

#include <string>
#include <utility>

namespace qvl {

/// The outcome of an operation on the system: success, or a message that names the operation and
/// carries the system's own text. Never thrown, and a compiler warning when ignored.
class [[nodiscard]] Status {
 public:
  static Status Ok() { return Status(); }
  static Status Failed(std::string message) {
    Status status;
    status.ok_ = false;
    status.message_ = std::move(message);
    return status;
  }

  bool ok() const { return ok_; }
  const std::string& message() const { return message_; }

 private:
  Status() = default;

  bool ok_ = true;
  std::string message_;
};

}  // namespace qvl

#endif  // QVL_PLATFORM_STATUS_H_
