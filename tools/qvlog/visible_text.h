#ifndef QVL_TOOLS_QVLOG_VISIBLE_TEXT_H_
#define QVL_TOOLS_QVLOG_VISIBLE_TEXT_H_

#include <string>
#include <string_view>

namespace qvl {

/// A text of a log for a terminal: UTF-8, one line, with control characters written as "\n", "\t"
/// or "\x1B", because firmware and strangers wrote it and a terminal obeys what it is sent.
std::string VisibleText(std::string_view text);

/// The raw bytes with "\n" for a line feed and "\\" for a backslash: one line that a program can
/// turn back.
std::string EscapedBytes(std::string_view text);

}  // namespace qvl

#endif  // QVL_TOOLS_QVLOG_VISIBLE_TEXT_H_
