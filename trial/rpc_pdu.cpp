#include "trial/rpc_pdu.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "access/remote_call_runtime.h"

namespace qvl {
namespace {

constexpr std::uint8_t kVersion = 5;
constexpr std::uint8_t kLittleEndian = 0x10;
constexpr std::size_t kFragmentLengthAt = 8;
constexpr std::size_t kAuthLengthAt = 10;
constexpr std::size_t kAuthHeadSize = 8;
constexpr std::size_t kObjectSize = 16;

WireWriter Begin(PduType type, std::uint32_t callId) {
  WireWriter out;
  out.Add(kVersion);
  out.Add(std::uint8_t{0});
  out.Add(static_cast<std::uint8_t>(type));
  out.Add(static_cast<std::uint8_t>(kFirstFragment | kLastFragment));
  out.AddBytes(std::array<std::uint8_t, 4>{kLittleEndian, 0, 0, 0});
  out.Add(std::uint16_t{0});  // length, set at the end
  out.Add(std::uint16_t{0});
  out.Add(callId);
  return out;
}

std::vector<std::uint8_t> End(WireWriter& out) {
  out.SetU16(kFragmentLengthAt, out.size());
  return out.bytes();
}

SyntaxId TakeSyntax(WireReader& in) {
  SyntaxId syntax;
  const WireBytes uuid = in.TakeBytes(syntax.uuid.size());
  std::copy(uuid.begin(), uuid.end(), syntax.uuid.begin());
  syntax.major = in.Take<std::uint16_t>();
  syntax.minor = in.Take<std::uint16_t>();
  return syntax;
}

void AddSyntax(WireWriter& out, const SyntaxId& syntax) {
  out.AddBytes(syntax.uuid);
  out.Add(syntax.major);
  out.Add(syntax.minor);
}

// Takes the proof of identity off the end of a body.
bool TakeAuth(std::size_t length, Pdu& pdu) {
  if (length == 0) return true;
  if (pdu.body.size() < length + kAuthHeadSize) return false;
  const std::size_t at = pdu.body.size() - length - kAuthHeadSize;
  WireReader in(pdu.body.subspan(at));
  PduAuth auth;
  auth.type = in.Take<std::uint8_t>();
  auth.level = in.Take<std::uint8_t>();
  const auto padding = in.Take<std::uint8_t>();
  in.Skip(1);
  auth.contextId = in.Take<std::uint32_t>();
  auth.token = in.TakeBytes(length);
  if (padding > at) return false;
  pdu.body = pdu.body.first(at - padding);
  pdu.auth = auth;
  return true;
}

}  // namespace

const SyntaxId kNdr = {
    {0x04, 0x5d, 0x88, 0x8a, 0xeb, 0x1c, 0xc9, 0x11, 0x9f, 0xe8, 0x08, 0x00, 0x2b, 0x10, 0x48,
     0x60},
    2,
    0
};
const SyntaxId kNdr64 = {
    {0x33, 0x05, 0x71, 0x71, 0xba, 0xbe, 0x37, 0x49, 0x83, 0x19, 0xb5, 0xdb, 0xef, 0x9c, 0xcc,
     0x36},
    1,
    0
};

bool IsFeatureNegotiation(const SyntaxId& syntax) {
  // 6cb71c2c-9812-4540 and eight bytes of flags.
  constexpr std::array<std::uint8_t, 8> kPrefix = {0x2c, 0x1c, 0xb7, 0x6c, 0x12, 0x98, 0x40, 0x45};
  return std::equal(kPrefix.begin(), kPrefix.end(), syntax.uuid.begin());
}

std::optional<std::size_t> PduLength(WireBytes header) {
  WireReader in(header);
  const auto version = in.Take<std::uint8_t>();
  in.Skip(3);
  const auto representation = in.Take<std::uint8_t>();
  in.Skip(3);
  const auto length = in.Take<std::uint16_t>();
  in.Skip(kPduHeaderSize - kAuthLengthAt);
  if (!in.ok() || version != kVersion || representation != kLittleEndian) return std::nullopt;
  if (length < kPduHeaderSize) return std::nullopt;
  return length;
}

std::optional<Pdu> ParsePdu(WireBytes bytes) {
  if (PduLength(bytes) != bytes.size()) return std::nullopt;
  WireReader in(bytes);
  Pdu pdu;
  in.Skip(2);
  pdu.type = static_cast<PduType>(in.Take<std::uint8_t>());
  pdu.flags = in.Take<std::uint8_t>();
  in.Skip(kAuthLengthAt - 4);
  const std::size_t authLength = in.Take<std::uint16_t>();
  pdu.callId = in.Take<std::uint32_t>();
  pdu.body = in.TakeBytes(in.left());
  if (!TakeAuth(authLength, pdu)) return std::nullopt;
  return pdu;
}

std::optional<std::vector<PresentationContext>> ParseContexts(WireBytes body) {
  WireReader in(body);
  in.Skip(2 + 2 + 4);  // the client's fragments, its association group
  const auto count = in.Take<std::uint8_t>();
  in.Skip(3);
  std::vector<PresentationContext> contexts;
  for (std::uint8_t i = 0; i < count && in.ok(); ++i) {
    PresentationContext context;
    context.id = in.Take<std::uint16_t>();
    const auto transfers = in.Take<std::uint8_t>();
    in.Skip(1);
    context.interface = TakeSyntax(in);
    for (std::uint8_t k = 0; k < transfers && in.ok(); ++k) {
      context.transfers.push_back(TakeSyntax(in));
    }
    contexts.push_back(std::move(context));
  }
  if (!in.ok() || contexts.empty()) return std::nullopt;
  return contexts;
}

std::optional<RequestHead> ParseRequest(const Pdu& pdu) {
  WireReader in(pdu.body);
  RequestHead head;
  in.Skip(4);  // a hint
  head.contextId = in.Take<std::uint16_t>();
  head.procedure = in.Take<std::uint16_t>();
  if ((pdu.flags & kHasObject) != 0) in.Skip(kObjectSize);
  head.stub = in.TakeBytes(in.left());
  if (!in.ok()) return std::nullopt;
  return head;
}

std::vector<std::uint8_t> ContextAnswer(PduType type, std::uint32_t callId,
                                        const std::vector<ContextResult>& results,
                                        const std::optional<PduAuth>& auth) {
  constexpr std::uint32_t kAssociationGroup = 0x51564C;
  // With its terminating zero.
  constexpr std::string_view kAddress(kMonitorEndpoint,
                                      std::char_traits<char>::length(kMonitorEndpoint) + 1);
  const std::string_view address = type == PduType::kBindAck ? kAddress : std::string_view();
  WireWriter out = Begin(type, callId);
  out.Add(kFragmentSize);
  out.Add(kFragmentSize);
  out.Add(kAssociationGroup);
  out.Add(static_cast<std::uint16_t>(address.size()));
  out.AddBytes({reinterpret_cast<const std::uint8_t*>(address.data()), address.size()});
  out.Align(4);
  out.Add(static_cast<std::uint8_t>(results.size()));
  out.Align(4);
  for (const ContextResult& result : results) {
    out.Add(result.result);
    out.Add(result.reason);
    AddSyntax(out, result.transfer);
  }
  if (auth) {
    out.Add(auth->type);
    out.Add(auth->level);
    out.Add(std::uint16_t{0});  // no padding was needed
    out.Add(auth->contextId);
    out.AddBytes(auth->token);
    out.SetU16(kAuthLengthAt, auth->token.size());
  }
  return End(out);
}

std::vector<std::uint8_t> BindRefusal(std::uint32_t callId, std::uint16_t reason) {
  WireWriter out = Begin(PduType::kBindNak, callId);
  out.Add(reason);
  out.AddBytes(std::array<std::uint8_t, 3>{1, kVersion, 0});  // the one version that is spoken
  out.Align(4);
  return End(out);
}

std::vector<std::uint8_t> Response(std::uint32_t callId, std::uint16_t contextId, WireBytes stub) {
  WireWriter out = Begin(PduType::kResponse, callId);
  out.Add(static_cast<std::uint32_t>(stub.size()));
  out.Add(contextId);
  out.Add(std::uint16_t{0});
  out.AddBytes(stub);
  return End(out);
}

std::vector<std::uint8_t> Fault(std::uint32_t callId, std::uint16_t contextId,
                                std::uint32_t status) {
  constexpr std::uint32_t kHint = 32;
  WireWriter out = Begin(PduType::kFault, callId);
  out.Add(kHint);
  out.Add(contextId);
  out.Add(std::uint16_t{0});
  out.Add(status);
  out.Add(std::uint32_t{0});
  return End(out);
}

}  // namespace qvl
