#ifndef QVL_TRIAL_PIPE_SOCKET_H_
#define QVL_TRIAL_PIPE_SOCKET_H_

#include <string>

#include "platform/status.h"
#include "trial/trial_options.h"
#include "trial/trial_service.h"

namespace qvl {

/// Listens at a socket that only this user can connect to. One that a dead service left is taken
/// over.
/// descriptor  the caller's to close.
Status ListenAt(const std::string& path, int& descriptor);

/// Serves one connection that smbd made, until either side ends it: handshake, then the messages of
/// the pipe. Ends the process in a call that is to die.
/// descriptor  stays open.
void ServePipe(int descriptor, TrialService& service, const TrialOptions& options);

}  // namespace qvl

#endif  // QVL_TRIAL_PIPE_SOCKET_H_
