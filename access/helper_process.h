#ifndef QVL_ACCESS_HELPER_PROCESS_H_
#define QVL_ACCESS_HELPER_PROCESS_H_

#include <chrono>
#include <cstdint>
#include <string>

#include "access/remote_call_frames.h"
#include "access/remote_status.h"

namespace qvl {

/// The helper program that speaks the remote call protocol, as a child of this process. It runs in
/// a session of its own, so that a terminal's Ctrl+C reaches only this program, which then decides.
/// It ends when this process does.
class HelperProcess {
 public:
  /// How an exchange went.
  enum class Outcome : std::uint8_t {
    kAnswered,  ///< one well-formed frame came
    kLate,      ///< nothing came in time
    kGone,      ///< the helper ended, or sent what is no frame
  };

  HelperProcess() = default;
  ~HelperProcess() { Stop(Ending::kPolite); }
  HelperProcess(const HelperProcess&) = delete;
  HelperProcess& operator=(const HelperProcess&) = delete;

  /// Starts the program, which is not running. From then on ended children of this process wait to
  /// be collected, also where SIGCHLD was ignored.
  /// Errors: kHelperMissing when it cannot be executed, kNoMemory when the system is out of
  /// processes or descriptors.
  RemoteStatus Start(const std::string& program);
  bool running() const { return socket_ >= 0; }

  /// Sends a frame and waits for its answer, which lies in `buffer`. `limit` counts anew, once,
  /// when the helper says that it takes the question up only now.
  Outcome Exchange(const Frame& question, std::chrono::milliseconds limit, FrameBytes& buffer,
                   Frame& answer);

  enum class Ending : std::uint8_t {
    kPolite,  ///< closes the connection and waits a moment before it kills
    kAtOnce,
  };

  /// Ends the helper, if it runs, and takes its exit status from the system.
  /// Returns false when it had never come to run: its libraries are not installed.
  bool Stop(Ending ending);

 private:
  Outcome Receive(std::chrono::milliseconds limit, FrameBytes& buffer, Frame& frame);

  int socket_ = -1;
  int process_ = -1;
};

/// Where the helper is: $QVL_RPC_HELPER, else beside this program, else where it is installed.
std::string HelperProgram();

}  // namespace qvl

#endif  // QVL_ACCESS_HELPER_PROCESS_H_
