#ifndef QVL_TRIAL_RPC_CONNECTION_H_
#define QVL_TRIAL_RPC_CONNECTION_H_

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "trial/rpc_pdu.h"
#include "trial/trial_options.h"
#include "trial/trial_service.h"
#include "trial/wire.h"

namespace qvl {

/// The server's half of one NTLM logon. Either step may fail; nothing is known of the caller then.
class NtlmLogon {
 public:
  virtual ~NtlmLogon() = default;

  virtual bool Challenge(WireBytes negotiate, std::vector<std::uint8_t>& challenge) = 0;

  /// who  becomes DOMAIN\user.
  virtual bool Verify(WireBytes authenticate, std::string& who) = 0;
};

/// One client's conversation on the pipe, without the pipe: bytes in, messages out. Nothing that
/// comes in is trusted. For one thread.
class RpcConnection {
 public:
  enum class After : std::uint8_t {
    kGoOn,
    kClose,  ///< what came is no DCE RPC; the replies are still to be sent
    kDie,    ///< the process is to end, without the replies
  };

  /// service and options must outlive the connection.
  /// caller  as Samba knows it.
  RpcConnection(TrialService& service, const TrialOptions& options, Caller caller,
                std::unique_ptr<NtlmLogon> logon);

  /// Takes the next bytes, wherever they are cut, and puts the messages to send into `replies`.
  After Take(WireBytes bytes, std::vector<std::vector<std::uint8_t>>& replies);

 private:
  enum class Proof : std::uint8_t {
    kNone,     ///< not tried: Samba's word must do
    kPending,  ///< the challenge is out
    kGiven,
    kFailed,
  };

  /// A request whose fragments are still coming.
  struct Gathering {
    std::uint32_t callId = 0;
    std::uint16_t contextId = 0;
    std::uint16_t procedure = 0;
    std::vector<std::uint8_t> stub;
  };

  using Replies = std::vector<std::vector<std::uint8_t>>;

  After Handle(const Pdu& pdu, Replies& replies);
  After Bind(const Pdu& pdu, Replies& replies);
  After AlterContext(const Pdu& pdu, Replies& replies);
  After Authenticate(const Pdu& pdu);
  After Request(const Pdu& pdu, Replies& replies);
  After Call(const Gathering& request, Replies& replies);
  ContextResult Judge(const PresentationContext& context);
  bool Admitted() const;

  TrialService& service_;
  const TrialOptions& options_;
  Caller caller_;
  std::unique_ptr<NtlmLogon> logon_;
  Proof proof_ = Proof::kNone;
  bool bound_ = false;
  std::set<std::uint16_t> contexts_;  ///< the accepted ones
  bool gathers_ = false;
  Gathering gathering_;
  std::vector<std::uint8_t> pending_;  ///< the begin of a message whose end has not come
};

}  // namespace qvl

#endif  // QVL_TRIAL_RPC_CONNECTION_H_
