#include <sys/prctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdio>
#include <string_view>

#include "access/remote_call_frames.h"
#include "access/remote_call_helper/frame_service.h"
#include "access/remote_call_helper/samba_connection.h"

namespace {

constexpr const char* kHelp =
    "The Quarvel Log Viewer starts this program to call other machines.\n"
    "By hand it has one use:\n"
    "  zlkqvxv-rpc --identity   says who the user is towards other machines\n";

int RunByHand(int count, char** arguments) {
  if (count == 2 && std::string_view(arguments[1]) == "--identity") {
    std::fputs(qvl::SambaConnection().DescribeIdentities().c_str(), stdout);
    return 0;
  }
  const bool help = count == 2 && std::string_view(arguments[1]) == "--help";
  std::fputs(kHelp, help ? stdout : stderr);
  return help ? 0 : 2;
}

bool StartedByProgram() {
  int type = 0;
  socklen_t size = sizeof type;
  return ::getsockopt(qvl::kHelperSocket, SOL_SOCKET, SO_TYPE, &type, &size) == 0 &&
         type == SOCK_SEQPACKET;
}

}  // namespace

int main(int count, char** arguments) {
  // A core file of this process would hold the user's password.
  ::prctl(PR_SET_DUMPABLE, 0);
  if (count != 1 || !StartedByProgram()) return RunByHand(count, arguments);
  const int status = qvl::ServeFrames(qvl::kHelperSocket);
  // Not through exit(): the other thread still waits, and nothing is left to write.
  ::_exit(status);
}
