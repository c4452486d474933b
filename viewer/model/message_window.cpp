#include "viewer/model/message_window.h"

#include <utility>

#include "access/status_texts.h"
#include "files/unicode_text.h"
#include "texts/filled_text.h"

namespace qvl {

MessageAnswer ShowTextMessage(MessageWindow& window, std::string text, MessageIcon icon) {
  return window.Show({.caption = FilledText(StringId::kApplicationTitle),
                      .text = std::move(text),
                      .icon = icon,
                      .yesLabel = {},
                      .noLabel = {}});
}

MessageAnswer ShowResourceMessage(MessageWindow& window, StringId id, MessageIcon icon) {
  return ShowTextMessage(window, FilledText(id), icon);
}

MessageAnswer ShowStatusMessage(MessageWindow& window, RemoteStatus status, MessageIcon icon) {
  // The system's own texts come in its 8-bit code page.
  return ShowTextMessage(window, Utf8FromText(StatusText(status, StatusReader::kViewer)), icon);
}

}  // namespace qvl
