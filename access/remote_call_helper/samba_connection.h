#ifndef QVL_ACCESS_REMOTE_CALL_HELPER_SAMBA_CONNECTION_H_
#define QVL_ACCESS_REMOTE_CALL_HELPER_SAMBA_CONNECTION_H_

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "access/remote_call_helper/call_result.h"
#include "access/remote_call_helper/identity.h"
#include "access/remote_status.h"

namespace qvl {

/// A connection to a machine's remote monitor service through Samba's libraries, on one thread.
class SambaConnection {
 public:
  SambaConnection();
  ~SambaConnection();
  SambaConnection(const SambaConnection&) = delete;
  SambaConnection& operator=(const SambaConnection&) = delete;

  /// Connects once, with the first of the user's identities that the machine accepts, and binds to
  /// the interface. Blocks for as long as the machine takes.
  RemoteStatus Connect(const std::string& machine);

  /// Calls a procedure of the connected machine.
  CallResult Call(std::uint32_t procedure, std::span<const std::uint8_t> request);

  /// One line for each identity there is or is not, without any password.
  std::string DescribeIdentities();

 private:
  struct Samba;
  RemoteStatus ConnectAs(IdentitySource source, cli_credentials* credentials,
                         const std::string& machine);

  std::unique_ptr<Samba> samba_;
};

}  // namespace qvl

#endif  // QVL_ACCESS_REMOTE_CALL_HELPER_SAMBA_CONNECTION_H_
