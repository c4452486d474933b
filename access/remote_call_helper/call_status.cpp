#include "access/remote_call_helper/call_status.h"

#include <algorithm>
#include <iterator>

namespace qvl {
namespace {

struct FaultRow {
  std::uint32_t fault;
  RemoteStatus status;
};

constexpr FaultRow kFaults[] = {
    {0x1C000001, 1767                }, // integer division by zero
    {0x1C000002, 1768                }, // address error
    {0x1C000006, 1733                }, // invalid tag
    {0x1C000007, 1734                }, // invalid bound
    {0x1C00000D, 1818                }, // cancelled
    {0x1C000012, kCallFailed         }, // unspecified
    {0x1C00001B, 14                  }, // out of memory
    {0x1C00001D, kAccessDenied       }, // authentication level too low
    {0x1C010001, 1820                }, // communication failure
    {0x1C010002, kProcedureOutOfRange},
    {0x1C010003, kUnknownInterface   },
    {0x1C010009, kCallFailed         }, // the server has crashed meanwhile
    {0x1C01000B, 1728                }, // protocol error
    {0x1C010013, 1130                }, // answer too large for the server
    {0x1C010014, 1723                }, // too busy
    {0x1C010017, 1732                }, // unsupported type
};

// Refusals of a logon, of an account or of access.
constexpr std::uint32_t kRefusals[] = {
    0xC0000022,  // access denied
    0xC000005E,  // no logon servers
    0xC000005F,  // no such logon session
    0xC0000061,  // privilege not held
    0xC0000064,  // no such user
    0xC000006A,  // wrong password
    0xC000006D,  // logon failure
    0xC000006E,  // account restriction
    0xC000006F,  // logon hours
    0xC0000070,  // workstation
    0xC0000071,  // password expired
    0xC0000072,  // account disabled
    0xC00000CA,  // network access denied
    0xC0000133,  // clocks too far apart for a ticket
    0xC000015B,  // logon type not granted
    0xC000018C,  // trust between domains
    0xC000018D,  // trust of the computer
    0xC0000193,  // account expired
    0xC0000224,  // password must change
    0xC0000234,  // account locked out
    0xC0000413,  // logon not allowed on this machine
};

bool IsRefusal(std::uint32_t failure) {
  return std::find(std::begin(kRefusals), std::end(kRefusals), failure) != std::end(kRefusals);
}

}  // namespace

RemoteStatus StatusOfFault(std::uint32_t fault) {
  const auto* row = std::find_if(std::begin(kFaults), std::end(kFaults),
                                 [fault](const FaultRow& each) { return each.fault == fault; });
  return row == std::end(kFaults) ? fault : row->status;
}

RemoteStatus StatusOfFailedConnect(std::uint32_t failure) {
  if (IsRefusedSyntax(failure)) return kUnknownInterface;
  return IsRefusal(failure) ? kAccessDenied : kServerUnavailable;
}

RemoteStatus StatusOfFailedCall(std::uint32_t failure) {
  return IsRefusal(failure) ? kAccessDenied : kCallFailed;
}

bool IsRefusedSyntax(std::uint32_t failure) {
  // RPC_NT_UNSUPPORTED_NAME_SYNTAX stands for every refused presentation context.
  return failure == 0xC0020026;
}

}  // namespace qvl
