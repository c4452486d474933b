#ifndef QVL_ACCESS_REMOTE_CALL_HELPER_SAMBA_HEADERS_H_
#define QVL_ACCESS_REMOTE_CALL_HELPER_SAMBA_HEADERS_H_

// Samba's headers are C: they forward-declare two enumerations, which C++ takes only for names that
// it knows already. Nothing here uses them. The function for an event context that works with the
// other libraries is exported and declared nowhere.

#include <cstddef>
#include <cstdint>

enum smb_signing_setting { kUnusedSigningSetting };
enum smb_encryption_setting { kUnusedEncryptionSetting };

extern "C" {
#include <core/ntstatus.h>
#include <credentials.h>
#include <dcerpc.h>
#include <param.h>
#include <talloc.h>
#include <tevent.h>

struct tevent_context* samba_tevent_context_init(TALLOC_CTX* mem_ctx);
}

#endif  // QVL_ACCESS_REMOTE_CALL_HELPER_SAMBA_HEADERS_H_
