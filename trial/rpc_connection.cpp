#include "trial/rpc_connection.h"

#include <algorithm>
#include <utility>

#include "trial/procedures.h"

namespace qvl {
namespace {

// The longest request is a flag and a text.
constexpr std::size_t kLongestStub = 4096;

constexpr std::uint16_t kAccepted = 0;
constexpr std::uint16_t kProviderRejection = 2;
constexpr std::uint16_t kFeatures = 3;
constexpr std::uint16_t kUnknownInterfaceReason = 1;
constexpr std::uint16_t kNoTransferSyntaxReason = 2;

// Reasons of a refused bind (C706, 12.6.4.5, and [MS-RPCE], 2.2.2.5).
constexpr std::uint16_t kReasonUnspecified = 0;
constexpr std::uint16_t kReasonAuthenticationType = 8;

// 5c2e9a41-7b3d-4f08-a6e2-19d04c7b3e55, as access/remote_monitor.idl has it.
constexpr std::array<std::uint8_t, 16> kInterfaceUuid = {
    0x41, 0x9a, 0x2e, 0x5c, 0x3d, 0x7b, 0x08, 0x4f, 0xa6, 0xe2, 0x19, 0xd0, 0x4c, 0x7b, 0x3e, 0x55};

}  // namespace

RpcConnection::RpcConnection(TrialService& service, const TrialOptions& options, Caller caller,
                             std::unique_ptr<NtlmLogon> logon)
    : service_(service), options_(options), caller_(std::move(caller)), logon_(std::move(logon)) {}

RpcConnection::After RpcConnection::Take(WireBytes bytes, Replies& replies) {
  pending_.insert(pending_.end(), bytes.begin(), bytes.end());
  std::size_t at = 0;
  After after = After::kGoOn;
  while (after == After::kGoOn && pending_.size() - at >= kPduHeaderSize) {
    const WireBytes left = WireBytes(pending_).subspan(at);
    const std::optional<std::size_t> length = PduLength(left.first(kPduHeaderSize));
    if (!length) return After::kClose;
    if (left.size() < *length) break;
    const std::optional<Pdu> pdu = ParsePdu(left.first(*length));
    if (!pdu) return After::kClose;
    after = Handle(*pdu, replies);
    at += *length;
  }
  pending_.erase(pending_.begin(), pending_.begin() + static_cast<std::ptrdiff_t>(at));
  return after;
}

RpcConnection::After RpcConnection::Handle(const Pdu& pdu, Replies& replies) {
  switch (pdu.type) {
    case PduType::kBind:
      return Bind(pdu, replies);
    case PduType::kAlterContext:
      return AlterContext(pdu, replies);
    case PduType::kAuth3:
      return Authenticate(pdu);
    case PduType::kRequest:
      return Request(pdu, replies);
    case PduType::kCancel:
    case PduType::kOrphaned:
      // The call runs to its end all the same; the client does not wait for it.
      return After::kGoOn;
    default:
      return After::kClose;
  }
}

RpcConnection::After RpcConnection::Bind(const Pdu& pdu, Replies& replies) {
  const auto contexts = ParseContexts(pdu.body);
  if (bound_ || !contexts) {
    replies.push_back(BindRefusal(pdu.callId, kReasonUnspecified));
    return After::kClose;
  }
  std::optional<PduAuth> auth = pdu.auth;
  std::vector<std::uint8_t> challenge;
  if (auth) {
    const bool known = auth->type == kAuthNtlm && auth->level == kAuthLevelConnect;
    if (!known || !logon_->Challenge(auth->token, challenge)) {
      replies.push_back(BindRefusal(pdu.callId, kReasonAuthenticationType));
      return After::kGoOn;
    }
    auth->token = challenge;
    proof_ = Proof::kPending;
  }
  std::vector<ContextResult> results;
  for (const PresentationContext& context : *contexts) results.push_back(Judge(context));
  bound_ = true;
  replies.push_back(ContextAnswer(PduType::kBindAck, pdu.callId, results, auth));
  return After::kGoOn;
}

RpcConnection::After RpcConnection::AlterContext(const Pdu& pdu, Replies& replies) {
  const auto contexts = ParseContexts(pdu.body);
  if (!bound_ || !contexts || pdu.auth) {
    replies.push_back(Fault(pdu.callId, 0, kFaultProtocolError));
    return After::kClose;
  }
  std::vector<ContextResult> results;
  for (const PresentationContext& context : *contexts) results.push_back(Judge(context));
  replies.push_back(
      ContextAnswer(PduType::kAlterContextResponse, pdu.callId, results, std::nullopt));
  return After::kGoOn;
}

ContextResult RpcConnection::Judge(const PresentationContext& context) {
  const auto offers = [&](const auto& test) {
    return std::find_if(context.transfers.begin(), context.transfers.end(), test);
  };
  if (offers(IsFeatureNegotiation) != context.transfers.end()) return {kFeatures, 0, {}};
  if (context.interface.uuid != kInterfaceUuid ||
      context.interface.major != options_.interfaceMajor ||
      context.interface.minor > options_.interfaceMinor) {
    return {kProviderRejection, kUnknownInterfaceReason, {}};
  }
  const auto transfer = offers([](const SyntaxId& id) { return id == kNdr || id == kNdr64; });
  if (transfer == context.transfers.end()) {
    return {kProviderRejection, kNoTransferSyntaxReason, {}};
  }
  contexts_.insert(context.id);
  return {kAccepted, 0, *transfer};
}

// Has no answer of its own: a caller who failed learns it from the first call.
RpcConnection::After RpcConnection::Authenticate(const Pdu& pdu) {
  if (proof_ != Proof::kPending || !pdu.auth) return After::kClose;
  std::string who;
  const bool verified = pdu.auth->type == kAuthNtlm && pdu.auth->level == kAuthLevelConnect &&
                        logon_->Verify(pdu.auth->token, who);
  proof_ = verified ? Proof::kGiven : Proof::kFailed;
  if (verified) caller_ = {who, "ntlm"};
  return After::kGoOn;
}

RpcConnection::After RpcConnection::Request(const Pdu& pdu, Replies& replies) {
  const std::optional<RequestHead> head = ParseRequest(pdu);
  if (!head) return After::kClose;
  const bool first = (pdu.flags & kFirstFragment) != 0;
  if (first == gathers_) return After::kClose;
  if (first) gathering_ = {pdu.callId, head->contextId, head->procedure, {}};
  if (gathering_.callId != pdu.callId) return After::kClose;
  if (gathering_.stub.size() + head->stub.size() > kLongestStub) {
    replies.push_back(Fault(pdu.callId, head->contextId, kFaultProtocolError));
    return After::kClose;
  }
  gathering_.stub.insert(gathering_.stub.end(), head->stub.begin(), head->stub.end());
  gathers_ = (pdu.flags & kLastFragment) == 0;
  return gathers_ ? After::kGoOn : Call(gathering_, replies);
}

RpcConnection::After RpcConnection::Call(const Gathering& request, Replies& replies) {
  const auto fault = [&](std::uint32_t status) {
    replies.push_back(Fault(request.callId, request.contextId, status));
    return After::kGoOn;
  };
  if (contexts_.count(request.contextId) == 0) return fault(kFaultUnknownInterface);
  if (!Admitted()) return fault(kAccessDenied);
  if (request.procedure >= kProcedures) return fault(kFaultUnknownProcedure);
  std::vector<std::uint8_t> stub;
  const CallOutcome outcome = Dispatch(service_, caller_, request.procedure, request.stub, stub);
  if (outcome.end == CallEnd::kDie) return After::kDie;
  if (outcome.end == CallEnd::kFault) return fault(outcome.status);
  replies.push_back(Response(request.callId, request.contextId, stub));
  return After::kGoOn;
}

bool RpcConnection::Admitted() const {
  if (proof_ == Proof::kNone) return !options_.requireRpcAuth;
  return proof_ == Proof::kGiven;
}

}  // namespace qvl
