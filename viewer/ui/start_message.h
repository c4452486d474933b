#ifndef QVL_VIEWER_UI_START_MESSAGE_H_
#define QVL_VIEWER_UI_START_MESSAGE_H_

#include <string_view>

namespace qvl {

/// Tells the user why the program does not start: on standard error, and on Windows in a message
/// box where there is none. UTF-8.
void ShowStartMessage(std::string_view text);

}  // namespace qvl

#endif  // QVL_VIEWER_UI_START_MESSAGE_H_
