#ifndef QVL_TRIAL_SERVER_H_
#define QVL_TRIAL_SERVER_H_

#include "trial/trial_options.h"
#include "trial/trial_service.h"

namespace qvl {

/// Serves the remote monitor interface at "\pipe\zlkrcmc" until the process is told to end: through
/// rpcrt4 on Windows; elsewhere behind a smbd, which passes the pipe's connections on to a socket.
/// Writes `options.readyPath` once callers can come, and complaints to standard error.
/// Returns the exit status of the program: 0 when it was told to end.
int Serve(TrialService& service, const TrialOptions& options);

}  // namespace qvl

#endif  // QVL_TRIAL_SERVER_H_
