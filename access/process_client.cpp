#include <memory>

#include "access/remote_call_runtime.h"
#include "access/remote_monitor_client.h"

namespace qvl {

RemoteMonitorClient& ProcessRemoteMonitorClient() {
  static const std::unique_ptr<RemoteCallRuntime> runtime = MakeSystemRuntime();
  static RemoteMonitorClient client(*runtime);
  return client;
}

}  // namespace qvl
