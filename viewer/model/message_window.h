#ifndef QVL_VIEWER_MODEL_MESSAGE_WINDOW_H_
#define QVL_VIEWER_MODEL_MESSAGE_WINDOW_H_

#include <cstdint>
#include <string>

#include "access/remote_status.h"
#include "texts/strings.h"

namespace qvl {

enum class MessageIcon : std::uint8_t { kExclamation, kQuestion };
enum class MessageAnswer : std::uint8_t { kOk, kYes, kNo, kCancel };

/// A message for the user, UTF-8. Without labels it has one OK button; with them the two labelled
/// buttons and one that cancels.
struct UserMessage {
  std::string caption;
  std::string text;
  MessageIcon icon = MessageIcon::kExclamation;
  std::string yesLabel;
  std::string noLabel;
};

/// Shows a message over whichever window of the program is in front, and waits for the answer.
class MessageWindow {
 public:
  virtual ~MessageWindow() = default;

  virtual MessageAnswer Show(const UserMessage& message) = 0;
};

/// A text under the program's title, with an OK button.
MessageAnswer ShowTextMessage(MessageWindow& window, std::string text,
                              MessageIcon icon = MessageIcon::kExclamation);

/// The text of a number.
MessageAnswer ShowResourceMessage(MessageWindow& window, StringId id,
                                  MessageIcon icon = MessageIcon::kExclamation);

/// What a status says to the viewer's user.
MessageAnswer ShowStatusMessage(MessageWindow& window, RemoteStatus status,
                                MessageIcon icon = MessageIcon::kExclamation);

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_MESSAGE_WINDOW_H_
