#ifndef QVL_VIEWER_UI_FILE_TYPE_REGISTRATION_H_
#define QVL_VIEWER_UI_FILE_TYPE_REGISTRATION_H_

namespace qvl {

/// Makes the desktop open log files with this program, for the user who started it. What is there
/// already is not written again; what another program registered for the extension stays. Failures
/// are passed over: the program runs as well without.
/// On Windows these are the keys of docs/file_type.md, and packaging/windows/file_type.nsh takes
/// them away again. Elsewhere the installed desktop file says it, and nothing is done.
void RegisterFileType();

}  // namespace qvl

#endif  // QVL_VIEWER_UI_FILE_TYPE_REGISTRATION_H_
