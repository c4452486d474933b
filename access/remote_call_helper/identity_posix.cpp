#include <pwd.h>
#include <unistd.h>

#include <array>
#include <cstring>

#include "access/remote_call_helper/credentials_file.h"
#include "access/remote_call_helper/identity.h"
#include "access/remote_call_helper/samba_headers.h"

extern "C" {
#include <wbclient.h>
}

namespace qvl {
namespace {

// GENSEC_FEATURE_NTLM_CCACHE of Samba's security library, which has no public header.
constexpr std::uint32_t kWinbindCache = 0x200;

// The name under which winbind keeps the user's logon, as DOMAIN\user or user.
std::string UnixUser() {
  std::array<char, 16384> buffer{};
  struct passwd entry = {};
  struct passwd* found = nullptr;
  const int error = ::getpwuid_r(::geteuid(), &entry, buffer.data(), buffer.size(), &found);
  return error == 0 && found != nullptr ? found->pw_name : "";
}

// Negotiation and challenge of an NTLM logon (MS-NLMP 2.2.1.1 and 2.2.1.2), as a machine without a
// name would send them: winbind computes an answer if it holds the user's logon.
constexpr std::array<std::uint8_t, 32> kNegotiate = {'N', 'T', 'L', 'M', 'S',  'S',  'P',  0,
                                                     1,   0,   0,   0,   0x05, 0x02, 0x08, 0x00};
constexpr std::array<std::uint8_t, 52> kChallenge = {
    'N', 'T', 'L', 'M', 'S', 'S', 'P', 0, 2,    0,    0,    0,                 // type
    0,   0,   0,   0,   48,  0,   0,   0, 0x05, 0x02, 0x88, 0x00,              // target name, flags
    1,   2,   3,   4,   5,   6,   7,   8, 0,    0,    0,    0,    0, 0, 0, 0,  // challenge
    4,   0,   4,   0,   48,  0,   0,   0, 0,    0,    0,    0};  // target information: its end

template <std::size_t kSize>
wbcNamedBlob Blob(const char* name, std::array<std::uint8_t, kSize>& bytes) {
  wbcNamedBlob blob = {};
  blob.name = name;
  blob.blob.data = bytes.data();
  blob.blob.length = bytes.size();
  return blob;
}

// Asks winbind itself, so that a machine is not asked to log on a user without a logon.
bool WinbindHoldsLogon(const char* user, const char* domain) {
  auto negotiate = kNegotiate;
  auto challenge = kChallenge;
  std::array<wbcNamedBlob, 2> blobs = {Blob("initial_blob", negotiate),
                                       Blob("challenge_blob", challenge)};
  wbcCredentialCacheParams question = {};
  question.account_name = user;
  question.domain_name = domain;
  question.level = wbcCredentialCacheParams::WBC_CREDENTIAL_CACHE_LEVEL_NTLMSSP;
  question.num_blobs = blobs.size();
  question.blobs = blobs.data();
  wbcCredentialCacheInfo* answer = nullptr;
  wbcAuthErrorInfo* error = nullptr;
  const wbcErr status = wbcCredentialCache(&question, &answer, &error);
  wbcFreeMemory(answer);
  wbcFreeMemory(error);
  return status == WBC_ERR_SUCCESS;
}

bool FillFromWinbind(cli_credentials* credentials, loadparm_context* samba, std::string& reason) {
  const std::string user = UnixUser();
  cli_credentials_guess(credentials, samba);
  cli_credentials_parse_string(credentials, user.c_str(), CRED_SPECIFIED);
  const char* name = cli_credentials_get_username(credentials);
  const char* domain = cli_credentials_get_domain(credentials);
  if (name == nullptr || domain == nullptr || !WinbindHoldsLogon(name, domain)) {
    reason = "winbind does not run or holds no logon of " + user;
    return false;
  }
  cli_credentials_set_gensec_features(credentials, kWinbindCache, CRED_SPECIFIED);
  cli_credentials_set_kerberos_state(credentials, CRED_USE_KERBEROS_DISABLED, CRED_SPECIFIED);
  return true;
}

bool FillFromTickets(cli_credentials* credentials, loadparm_context* samba, std::string& reason) {
  cli_credentials_guess(credentials, samba);
  const char* error = nullptr;
  credentials_obtained obtained = CRED_UNINITIALISED;
  const bool opened =
      cli_credentials_set_ccache(credentials, samba, nullptr, CRED_SPECIFIED, &error) == 0;
  talloc_free(cli_credentials_get_principal_and_obtained(credentials, credentials, &obtained));
  // A cache that is absent or empty is no error to Samba: the name is then still the guessed one.
  if (!opened || obtained != CRED_SPECIFIED) {
    reason = "the ticket cache is empty";
    return false;
  }
  cli_credentials_set_kerberos_state(credentials, CRED_USE_KERBEROS_REQUIRED, CRED_SPECIFIED);
  return true;
}

bool FillFromFile(cli_credentials* credentials, std::string& reason) {
  bool chosen = false;
  const std::string path = CredentialsPath(chosen);
  CredentialsFile file;
  switch (file.Read(path)) {
    case CredentialsFile::Result::kAbsent:
      reason = path + " does not exist";
      return false;
    case CredentialsFile::Result::kRefused:
      reason = path + ' ' + file.reason();
      return false;
    case CredentialsFile::Result::kRead:
      break;
  }
  // The name's own domain, if any, is the more specific one.
  if (file.domain() != nullptr) {
    cli_credentials_set_domain(credentials, file.domain(), CRED_SPECIFIED);
  }
  cli_credentials_parse_string(credentials, file.userName(), CRED_SPECIFIED);
  cli_credentials_set_password(credentials, file.password(), CRED_SPECIFIED);
  cli_credentials_set_kerberos_state(credentials, CRED_USE_KERBEROS_DISABLED, CRED_SPECIFIED);
  return true;
}

}  // namespace

std::vector<IdentitySource> IdentitySources() {
  bool chosen = false;
  CredentialsPath(chosen);
  if (chosen) return {IdentitySource::kCredentialsFile};
  return {IdentitySource::kWinbindLogon, IdentitySource::kKerberosTicket,
          IdentitySource::kCredentialsFile};
}

bool FillCredentials(IdentitySource source, cli_credentials* credentials, loadparm_context* samba,
                     std::string& reason) {
  switch (source) {
    case IdentitySource::kWinbindLogon:
      return FillFromWinbind(credentials, samba, reason);
    case IdentitySource::kKerberosTicket:
      return FillFromTickets(credentials, samba, reason);
    case IdentitySource::kCredentialsFile:
      return FillFromFile(credentials, reason);
  }
  return false;
}

}  // namespace qvl
