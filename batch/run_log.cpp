#include "batch/run_log.h"

#include "texts/filled_text.h"

namespace qvl {
namespace {

constexpr std::string_view kIndent = "   ";
constexpr std::string_view kSeparator = "  \n";

bool IsContinuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

}  // namespace

std::string_view CutText(std::string_view text, std::size_t size) {
  if (text.size() <= size) return text;
  // A character has at most three continuation bytes; more of them are no UTF-8, and are cut
  // anywhere.
  std::size_t end = size;
  while (end > 0 && size - end < 3 && IsContinuation(text[end])) --end;
  const bool startsCharacter = static_cast<unsigned char>(text[end]) >= 0xC0U;
  return text.substr(0, startsCharacter ? end : size);
}

Status RunLog::Open(const std::string& path) {
  return file_.Open(path, ExclusiveFile::Mode::kAppend);
}

void RunLog::Write(std::string_view text) {
  std::string bytes;
  for (const char c : text) {
    if (c == '\n') {
      bytes += lineEnd_;
    } else {
      bytes += c;
    }
  }
  if (!file_.Write(bytes).ok()) complete_ = false;
}

void RunLog::WriteMessage(std::string_view text) {
  std::string line(kIndent);
  line += CutText(text, kRunLogTextSize - 1);
  line += '\n';
  Write(line);
}

void RunLog::WriteMessage(StringId id, std::initializer_list<std::string_view> arguments) {
  WriteMessage(FilledText(id, arguments));
}

void RunLog::Close() {
  Write(kSeparator);
  if (!file_.Close().ok()) complete_ = false;
}

}  // namespace qvl
