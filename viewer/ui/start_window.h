#ifndef QVL_VIEWER_UI_START_WINDOW_H_
#define QVL_VIEWER_UI_START_WINDOW_H_

#include <string>
#include <vector>

namespace qvl {

/// Runs the interactive viewer: in this process on Windows; elsewhere a program of its own takes
/// this process's place, so that batch mode never loads a toolkit's libraries.
/// arguments  without the program's name.
/// Returns the exit status; 1, after telling why, when there is no window to be had.
int StartWindow(const std::vector<std::string>& arguments);

}  // namespace qvl

#endif  // QVL_VIEWER_UI_START_WINDOW_H_
