#ifndef QVL_TRIAL_NTLM_HELPER_H_
#define QVL_TRIAL_NTLM_HELPER_H_

#include <memory>
#include <string>

#include "trial/rpc_connection.h"

namespace qvl {

/// A logon that Samba's ntlm_auth checks against winbindd, in a process of its own that lives until
/// the logon is decided or dropped. A step that takes longer than 20 seconds has failed.
/// program  the name (searched in PATH) or path of ntlm_auth. Started with the first step.
std::unique_ptr<NtlmLogon> MakeNtlmLogon(const std::string& program);

}  // namespace qvl

#endif  // QVL_TRIAL_NTLM_HELPER_H_
