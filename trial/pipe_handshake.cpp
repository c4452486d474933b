#include "trial/pipe_handshake.h"

#include <algorithm>
#include <array>

namespace qvl {
namespace {

constexpr std::uint32_t kLevel = 7;
constexpr std::array<std::uint8_t, 4> kMagic = {'N', 'P', 'A', 'M'};

// A referent of a pointer that may be null follows later, in the order of the pointers.
bool TakePointer(WireReader& in) {
  in.Align(4);
  return in.Take<std::uint32_t>() != 0;
}

std::string TakeString(WireReader& in) {
  in.Align(4);
  in.Skip(4);  // most characters
  const auto offset = in.Take<std::uint32_t>();
  const auto length = in.Take<std::uint32_t>();
  const WireBytes bytes = in.TakeBytes(length);
  if (offset != 0) return {};
  const auto end = std::find(bytes.begin(), bytes.end(), std::uint8_t{0});
  return {bytes.begin(), end};
}

// An array whose length is told twice, in front and in its structure.
std::uint32_t TakeArrayLength(WireReader& in) {
  in.Align(4);
  return in.Take<std::uint32_t>();
}

void SkipSecurityToken(WireReader& in) {
  constexpr std::size_t kSidHead = 8;
  constexpr std::size_t kMostSubAuthorities = 15;
  const std::uint32_t sids = TakeArrayLength(in);
  in.Skip(4);
  for (std::uint32_t i = 0; i < sids && in.ok(); ++i) {
    in.Align(4);
    in.Skip(1);
    const auto subAuthorities = in.Take<std::uint8_t>();
    if (subAuthorities > kMostSubAuthorities) return in.Skip(in.left() + 1);
    in.Skip(kSidHead - 2 + std::size_t{4} * subAuthorities);
  }
  in.Align(8);
  in.Skip(8 + 4);  // privileges, rights
}

void SkipUnixToken(WireReader& in) {
  const std::uint32_t groups = TakeArrayLength(in);
  in.Align(8);
  in.Skip(8 + 8 + 4);  // user, group, number of groups
  in.Align(8);
  in.Skip(std::size_t{8} * groups);
}

PipeClient TakeUserInfo(WireReader& in) {
  const bool account = TakePointer(in);
  const bool principal = TakePointer(in);
  in.Skip(1);
  const bool domain = TakePointer(in);
  for (int i = 0; i < 7; ++i) TakePointer(in);  // from the DNS domain to the logon server
  in.Align(4);
  in.Skip(std::size_t{6} * 8);  // times, of two 4-byte halves each
  in.Skip(2 + 2 + 4 + 1);       // logon counts, account flags, authenticated
  in.Align(4);
  PipeClient client;
  if (account) client.account = TakeString(in);
  if (principal) TakeString(in);
  if (domain) client.domain = TakeString(in);
  return client;
}

PipeClient TakeSession(WireReader& in) {
  if (!TakePointer(in)) return {};
  in.Skip(4);  // length of the exported credentials, which follow last
  const bool securityToken = TakePointer(in);
  const bool unixToken = TakePointer(in);
  const bool userInfo = TakePointer(in);
  TakePointer(in);  // unix information, which follows the user's
  in.Skip(4);
  in.Skip(in.Take<std::uint32_t>());  // session key
  in.Align(4);
  in.Skip(4 + 16 + 4);  // credentials, the token's UUID, kind of ticket
  if (securityToken) SkipSecurityToken(in);
  if (unixToken) SkipUnixToken(in);
  return userInfo ? TakeUserInfo(in) : PipeClient{};
}

}  // namespace

std::optional<std::size_t> HandshakeLength(WireBytes lengthField) {
  if (lengthField.size() != kHandshakeLengthSize) return std::nullopt;
  std::size_t length = 0;
  for (const std::uint8_t byte : lengthField) length = length << 8U | byte;
  if (length < kMagic.size() || length > kLongestHandshake) return std::nullopt;
  return length;
}

std::optional<PipeClient> ParseHandshake(WireBytes request) {
  WireReader in(request);
  in.Skip(kHandshakeLengthSize);
  const WireBytes magic = in.TakeBytes(kMagic.size());
  const auto level = in.Take<std::uint32_t>();
  const auto unionLevel = in.Take<std::uint32_t>();
  if (!in.ok() || !std::equal(magic.begin(), magic.end(), kMagic.begin())) return std::nullopt;
  if (level != kLevel || unionLevel != kLevel) return std::nullopt;
  in.Skip(1);  // transport
  std::array<bool, 4> strings{};
  strings[0] = TakePointer(in);
  strings[1] = TakePointer(in);
  in.Skip(2);  // the client's port
  strings[2] = TakePointer(in);
  strings[3] = TakePointer(in);
  in.Skip(2);  // the server's port
  const bool session = TakePointer(in);
  for (const bool present : strings) {
    if (present) TakeString(in);
  }
  // Who calls is told by Samba for the log of calls. One that tells it in another way has still
  // checked its client.
  PipeClient client;
  if (session) client = TakeSession(in);
  return in.ok() ? client : PipeClient{};
}

std::vector<std::uint8_t> HandshakeReply() {
  constexpr std::uint8_t kLength = 32;
  constexpr std::uint16_t kMessageMode = 2;
  constexpr std::uint16_t kDeviceState = 0x5FF;
  constexpr std::uint64_t kAllocation = 4096;
  WireWriter out;
  out.AddBytes(std::array<std::uint8_t, 4>{0, 0, 0, kLength});
  out.AddBytes(kMagic);
  out.Add(kLevel);
  out.Add(kLevel);
  out.Add(kMessageMode);
  out.Add(kDeviceState);
  out.Align(8);
  out.Add(kAllocation);
  out.Add(std::uint32_t{0});  // success
  return out.bytes();
}

}  // namespace qvl
