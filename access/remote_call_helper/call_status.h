#ifndef QVL_ACCESS_REMOTE_CALL_HELPER_CALL_STATUS_H_
#define QVL_ACCESS_REMOTE_CALL_HELPER_CALL_STATUS_H_

#include <cstdint>

#include "access/remote_status.h"

namespace qvl {

/// What a server refuses a call with (DCE 1.1 RPC, appendix E, and MS-RPCE 2.2.2.8: also any of
/// Windows' error codes), as a caller on Windows gets it. Codes without a rule stay as they are.
/// fault  not 0.
RemoteStatus StatusOfFault(std::uint32_t fault);

/// What a failed connection means. `failure` is an NTSTATUS (MS-ERREF 2.3.1).
RemoteStatus StatusOfFailedConnect(std::uint32_t failure);

/// What a call that failed without a fault means: kCallFailed but for a refusal.
RemoteStatus StatusOfFailedCall(std::uint32_t failure);

/// The server does not offer the interface in this version, or not in this transfer syntax; the
/// answer to a bind is the same for both.
bool IsRefusedSyntax(std::uint32_t failure);

}  // namespace qvl

#endif  // QVL_ACCESS_REMOTE_CALL_HELPER_CALL_STATUS_H_
