#ifndef QVL_ACCESS_REMOTE_CALL_CODEC_H_
#define QVL_ACCESS_REMOTE_CALL_CODEC_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "access/remote_call_runtime.h"
#include "access/remote_status.h"
#include "entries/raw_log_entry.h"

namespace qvl {

/// The procedures of the interface, as numbered on the wire (remote_monitor.idl).
enum class RemoteProcedure : std::uint8_t {
  kQueryAdministratorAccess = 0,
  kReadLogEntry = 1,
  kRemoteClearLog = 2,
  kRemoteWriteMaintenanceNote = 3,
  kQueryLogPresent = 5,
  kMarkEntryRepaired = 6,
};

/// The largest of the stubs below: the answer to ReadLogEntry.
inline constexpr std::size_t kLargestStub = 268;

/// The parameters of one call, or of its answer, as they travel: NDR, little-endian (DCE 1.1 RPC,
/// chapter 14). Numbers of one and four bytes and arrays of bytes only, which NDR64 lays out alike.
struct StubData {
  std::array<std::uint8_t, kLargestStub> bytes{};
  std::size_t size = 0;

  std::span<const std::uint8_t> View() const { return {bytes.data(), size}; }
};

/// The parameters that a call takes. The procedures that are not here take none.
StubData EncodeReadLogEntry(std::uint32_t entryNumber, std::uint32_t reserved);
StubData EncodeRemoteClearLog(std::uint8_t clearFlag, const RemoteText& userName);
StubData EncodeRemoteWriteMaintenanceNote(const RemoteText& note);
StubData EncodeMarkEntryRepaired(std::uint32_t entryNumber);

/// The number that an encoded ReadLogEntry asks for. Returns false for any other bytes, and for a
/// `reserved` that is not 0.
bool DecodeReadRequest(std::span<const std::uint8_t> request, std::uint32_t& entryNumber);

/// What an answer says: sets the outputs and returns the procedure's own status, whatever it is.
/// Errors: kBadStubData for bytes that are no answer of the procedure; the outputs stay.
RemoteStatus DecodeQueryAdministratorAccess(std::span<const std::uint8_t> reply,
                                            std::int32_t& isAdministrator);
RemoteStatus DecodeReadLogEntry(std::span<const std::uint8_t> reply, std::uint8_t& entryStatus,
                                std::int32_t& entryCount, RawLogEntry& record);
RemoteStatus DecodeRemoteClearLog(std::span<const std::uint8_t> reply, std::uint8_t& cleared);
RemoteStatus DecodeRemoteWriteMaintenanceNote(std::span<const std::uint8_t> reply,
                                              std::uint8_t& written, std::int32_t& noteResult);
RemoteStatus DecodeQueryLogPresent(std::span<const std::uint8_t> reply, std::uint8_t& hasLog);
RemoteStatus DecodeMarkEntryRepaired(std::span<const std::uint8_t> reply,
                                     std::uint8_t& repairStatus);

}  // namespace qvl

#endif  // QVL_ACCESS_REMOTE_CALL_CODEC_H_
