#ifndef QVL_TRIAL_RPC_PDU_H_
#define QVL_TRIAL_RPC_PDU_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "trial/wire.h"

namespace qvl {

/// The messages of connection-oriented DCE RPC (The Open Group, C706, chapter 12; NTLM in them:
/// [MS-RPCE], section 2.2.2). Little-endian ones only: every Windows and Samba sends these.

enum class PduType : std::uint8_t {
  kRequest = 0,
  kResponse = 2,
  kFault = 3,
  kBind = 11,
  kBindAck = 12,
  kBindNak = 13,
  kAlterContext = 14,
  kAlterContextResponse = 15,
  kAuth3 = 16,
  kShutdown = 17,
  kCancel = 18,
  kOrphaned = 19,
};

inline constexpr std::size_t kPduHeaderSize = 16;
inline constexpr std::uint8_t kFirstFragment = 0x01;
inline constexpr std::uint8_t kLastFragment = 0x02;
inline constexpr std::uint8_t kHasObject = 0x80;

/// The bytes of a fragment that this server takes and sends.
inline constexpr std::uint16_t kFragmentSize = 4280;

// Fault statuses (C706, appendix E).
inline constexpr std::uint32_t kFaultUnknownProcedure = 0x1C010002;
inline constexpr std::uint32_t kFaultUnknownInterface = 0x1C010003;
inline constexpr std::uint32_t kFaultProtocolError = 0x1C01000B;

inline constexpr std::uint8_t kAuthNtlm = 10;
inline constexpr std::uint8_t kAuthLevelConnect = 2;

/// A proof of identity at the end of a message.
struct PduAuth {
  std::uint8_t type = 0;
  std::uint8_t level = 0;
  std::uint32_t contextId = 0;
  WireBytes token;
};

/// One message as it came. Views into its bytes.
struct Pdu {
  PduType type = PduType::kRequest;
  std::uint8_t flags = 0;
  std::uint32_t callId = 0;
  WireBytes body;  ///< without header, padding before the proof, and proof
  std::optional<PduAuth> auth;
};

/// The length of the message whose first 16 bytes these are; nothing when they begin none.
std::optional<std::size_t> PduLength(WireBytes header);

/// Reads a whole message. Nothing when its lengths contradict each other.
std::optional<Pdu> ParsePdu(WireBytes bytes);

/// An interface or a transfer syntax and its version.
struct SyntaxId {
  std::array<std::uint8_t, 16> uuid{};
  std::uint16_t major = 0;
  std::uint16_t minor = 0;

  friend bool operator==(const SyntaxId&, const SyntaxId&) = default;
};

extern const SyntaxId kNdr;
extern const SyntaxId kNdr64;

/// [MS-RPCE], 3.3.1.5.3: a transfer syntax that only asks what the server can do.
bool IsFeatureNegotiation(const SyntaxId& syntax);

struct PresentationContext {
  std::uint16_t id = 0;
  SyntaxId interface;
  std::vector<SyntaxId> transfers;
};

/// The contexts that a bind or alter-context body offers. Nothing when it is cut short.
std::optional<std::vector<PresentationContext>> ParseContexts(WireBytes body);

/// What a context is answered with.
struct ContextResult {
  std::uint16_t result = 0;  ///< 0 accepted, 2 rejected, 3 features
  std::uint16_t reason = 0;  ///< 1 the interface, 2 the transfer syntaxes
  SyntaxId transfer;
};

struct RequestHead {
  std::uint16_t contextId = 0;
  std::uint16_t procedure = 0;
  WireBytes stub;
};
std::optional<RequestHead> ParseRequest(const Pdu& pdu);

// Whole messages to send. `type` is kBindAck or kAlterContextResponse.
std::vector<std::uint8_t> ContextAnswer(PduType type, std::uint32_t callId,
                                        const std::vector<ContextResult>& results,
                                        const std::optional<PduAuth>& auth);
std::vector<std::uint8_t> BindRefusal(std::uint32_t callId, std::uint16_t reason);
std::vector<std::uint8_t> Response(std::uint32_t callId, std::uint16_t contextId, WireBytes stub);
std::vector<std::uint8_t> Fault(std::uint32_t callId, std::uint16_t contextId,
                                std::uint32_t status);

}  // namespace qvl

#endif  // QVL_TRIAL_RPC_PDU_H_
