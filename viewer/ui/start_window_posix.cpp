#include "viewer/ui/start_window.h"

#include <unistd.h>

#include <string>
#include <vector>

#include "platform/program_part.h"
#include "texts/strings.h"
#include "viewer/ui/start_message.h"

namespace qvl {

int StartWindow(const std::vector<std::string>& arguments) {
  std::vector<std::string> copies = arguments;  // execv wants them writable
  std::string program = PathOfProgramPart("zlkqvxv-window");
  std::vector<char*> words = {program.data()};
  for (std::string& argument : copies) words.push_back(argument.data());
  words.push_back(nullptr);
  ::execv(program.c_str(), words.data());
  ShowStartMessage(GetString(StringId::kWindowNotInstalled));
  return 1;
}

}  // namespace qvl
