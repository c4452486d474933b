#ifndef QVL_VIEWER_UI_MESSAGE_BOXES_H_
#define QVL_VIEWER_UI_MESSAGE_BOXES_H_

#include "viewer/model/message_window.h"

namespace qvl {

/// Message boxes over the front window.
class MessageBoxes : public MessageWindow {
 public:
  MessageAnswer Show(const UserMessage& message) override;
};

}  // namespace qvl

#endif  // QVL_VIEWER_UI_MESSAGE_BOXES_H_
