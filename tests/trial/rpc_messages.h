#ifndef QVL_TESTS_TRIAL_RPC_MESSAGES_H_
#define QVL_TESTS_TRIAL_RPC_MESSAGES_H_

#include <cstdint>
#include <string_view>
#include <vector>

#include "trial/rpc_pdu.h"
#include "trial/wire.h"

namespace qvl::testing {

using Message = std::vector<std::uint8_t>;

/// The interface of the remote monitor as a client asks for it, in the bytes of the wire.
inline const SyntaxId kRemoteMonitor = {
    {0x41, 0x9a, 0x2e, 0x5c, 0x3d, 0x7b, 0x08, 0x4f, 0xa6, 0xe2, 0x19, 0xd0, 0x4c, 0x7b, 0x3e,
     0x55},
    2,
    0
};

inline WireBytes Token(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

/// A message of a client. auth  the bytes of an NTLM token at level CONNECT; empty for none.
inline Message ClientMessage(PduType type, WireBytes body, std::string_view auth = {},
                             std::uint8_t flags = kFirstFragment | kLastFragment,
                             std::uint8_t authType = kAuthNtlm,
                             std::uint8_t authLevel = kAuthLevelConnect) {
  const std::size_t padding = auth.empty() ? 0 : (4 - body.size() % 4) % 4;
  const std::size_t authSize = auth.empty() ? 0 : padding + 8 + auth.size();
  WireWriter out;
  out.AddBytes(
      std::vector<std::uint8_t>{5, 0, static_cast<std::uint8_t>(type), flags, 0x10, 0, 0, 0});
  out.Add(static_cast<std::uint16_t>(kPduHeaderSize + body.size() + authSize));
  out.Add(static_cast<std::uint16_t>(auth.size()));
  out.Add(std::uint32_t{77});
  out.AddBytes(body);
  if (!auth.empty()) {
    out.Align(4);
    out.AddBytes(std::vector<std::uint8_t>{authType, authLevel, static_cast<std::uint8_t>(padding),
                                           0, 9, 0, 0, 0});
    out.AddBytes(Token(auth));
  }
  return out.bytes();
}

inline Message BindBody(const SyntaxId& interface, const std::vector<SyntaxId>& transfers,
                        std::uint16_t contextId = 0) {
  WireWriter out;
  out.Add(std::uint16_t{4280});
  out.Add(std::uint16_t{4280});
  out.Add(std::uint32_t{0});
  out.Add(std::uint32_t{1});  // one context
  out.Add(contextId);
  out.Add(static_cast<std::uint16_t>(transfers.size()));
  const auto add = [&out](const SyntaxId& id) {
    out.AddBytes(id.uuid);
    out.Add(id.major);
    out.Add(id.minor);
  };
  add(interface);
  for (const SyntaxId& transfer : transfers) add(transfer);
  return out.bytes();
}

inline Message RequestBody(std::uint16_t procedure, WireBytes stub, std::uint16_t contextId = 0) {
  WireWriter out;
  out.Add(static_cast<std::uint32_t>(stub.size()));
  out.Add(contextId);
  out.Add(procedure);
  out.AddBytes(stub);
  return out.bytes();
}

inline Message ReadStub(std::uint32_t number) {
  WireWriter out;
  out.Add(number);
  out.Add(std::uint32_t{0});
  return out.bytes();
}

inline Message BindMessage(std::string_view auth = {}) {
  return ClientMessage(PduType::kBind, BindBody(kRemoteMonitor, {kNdr}), auth);
}

inline Message RequestMessage(std::uint16_t procedure, WireBytes stub,
                              std::uint16_t contextId = 0) {
  return ClientMessage(PduType::kRequest, RequestBody(procedure, stub, contextId));
}

inline Message Auth3Message(std::string_view token) {
  const Message padding(4);
  return ClientMessage(PduType::kAuth3, padding, token);
}

}  // namespace qvl::testing

#endif  // QVL_TESTS_TRIAL_RPC_MESSAGES_H_
