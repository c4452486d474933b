#include "bench/measuring.h"

#include <spawn.h>

#include <algorithm>

extern char** environ;

namespace qvl::bench {

double Seconds(Clock::duration duration) {
  return std::chrono::duration<double>(duration).count();
}

double SecondsSince(Clock::time_point begun) {
  return Seconds(Clock::now() - begun);
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

const char* Verdict(bool met) {
  return met ? "met" : "MISSED";
}

std::optional<pid_t> StartProgram(std::vector<std::string> words, int output) {
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  if (output >= 0) posix_spawn_file_actions_adddup2(&actions, output, 1);
  pid_t process = 0;
  const int failure =
      ::posix_spawn(&process, arguments[0], &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (failure != 0) return std::nullopt;
  return process;
}

}  // namespace qvl::bench
