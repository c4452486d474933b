#ifndef QVL_ACCESS_REMOTE_CALL_HELPER_IDENTITY_H_
#define QVL_ACCESS_REMOTE_CALL_HELPER_IDENTITY_H_

#include <cstdint>
#include <string>
#include <vector>

struct cli_credentials;
struct loadparm_context;

namespace qvl {

/// Where the user's identity towards other machines comes from.
enum class IdentitySource : std::uint8_t {
  kWinbindLogon,     ///< the logon that winbind keeps for the user
  kKerberosTicket,   ///< the user's ticket cache
  kCredentialsFile,  ///< user name and password
};

/// The sources to try, in this order: only the file when $QVL_CREDENTIALS names one.
std::vector<IdentitySource> IdentitySources();

/// Fills `credentials` from a source. All of them are looked up on this computer alone.
/// Returns false when the source has no identity; `reason` then says why, for its user.
bool FillCredentials(IdentitySource source, cli_credentials* credentials, loadparm_context* samba,
                     std::string& reason);

}  // namespace qvl

#endif  // QVL_ACCESS_REMOTE_CALL_HELPER_IDENTITY_H_
