#ifndef QVL_ACCESS_REMOTE_CALL_HELPER_FRAME_SERVICE_H_
#define QVL_ACCESS_REMOTE_CALL_HELPER_FRAME_SERVICE_H_

namespace qvl {

/// Answers the program's frames until it closes its end of the socket, or sends what is no frame.
/// Returns the exit status for this process.
int ServeFrames(int socket);

}  // namespace qvl

#endif  // QVL_ACCESS_REMOTE_CALL_HELPER_FRAME_SERVICE_H_
