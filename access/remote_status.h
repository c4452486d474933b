#ifndef QVL_ACCESS_REMOTE_STATUS_H_
#define QVL_ACCESS_REMOTE_STATUS_H_

#include <cstdint>

namespace qvl {

/// What every operation on a machine's log answers: 0 for success, one of this program's or the
/// service's own codes, or the system's code for a failed remote call (the numbers of Windows'
/// error codes on every system: https://learn.microsoft.com/windows/win32/rpc/rpc-return-values).
using RemoteStatus = std::uint32_t;

inline constexpr RemoteStatus kRemoteOk = 0;

// From the client.
inline constexpr RemoteStatus RM_E_ALREADY_OPEN = 0xE0000000;
inline constexpr RemoteStatus RM_E_NOT_OPEN = 0xE0000001;

// From the service.
inline constexpr RemoteStatus RM_E_NO_DRIVER = 0xE0000002;
inline constexpr RemoteStatus RM_E_NOT_ADMINISTRATOR = 0xE0000004;

// From the system; under names of our own, because Windows' headers define theirs as macros.
inline constexpr RemoteStatus kAccessDenied = 5;
inline constexpr RemoteStatus kNoMemory = 8;
inline constexpr RemoteStatus kInvalidArgument = 87;
inline constexpr RemoteStatus kHelperMissing = 1157;
inline constexpr RemoteStatus kInvalidBinding = 1702;
inline constexpr RemoteStatus kUnsupportedSequence = 1703;
inline constexpr RemoteStatus kInvalidEndpoint = 1706;
inline constexpr RemoteStatus kUnknownInterface = 1717;
inline constexpr RemoteStatus kServerUnavailable = 1722;
inline constexpr RemoteStatus kCallFailed = 1726;
inline constexpr RemoteStatus kUnsupportedTransferSyntax = 1730;
inline constexpr RemoteStatus kProcedureOutOfRange = 1745;
inline constexpr RemoteStatus kUnknownAuthenticationService = 1747;
inline constexpr RemoteStatus kBadStubData = 1783;

/// The status byte of an answer that delivered no entry, or did nothing.
inline constexpr std::uint8_t ENTRY_STATUS_NONE = 135;

}  // namespace qvl

#endif  // QVL_ACCESS_REMOTE_STATUS_H_
