#ifndef QVL_TRIAL_TRIAL_OPTIONS_H_
#define QVL_TRIAL_TRIAL_OPTIONS_H_

#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "access/remote_status.h"

namespace qvl {

/// What the substitute service is told to do differently from a healthy one. docs/trial.md
/// describes every switch.
struct TrialOptions {
  std::string logPath;  ///< the .qvx file that holds the log; every change is written back to it

  bool notAdministrator = false;
  bool noLog = false;
  bool noDriver = false;
  bool refuseNote = false;
  bool refuseClear = false;
  bool refuseRepair = false;

  /// By call, counted from 1. 1700 to 1999, the run time's own codes, fail the call as a fault;
  /// any other one the procedure returns.
  std::map<std::uint64_t, RemoteStatus> failCalls;
  std::map<std::uint32_t, RemoteStatus> failEntries;  ///< by the entry number asked for
  std::uint64_t dieInCall = 0;                        ///< counted from 1; 0 for never
  std::chrono::milliseconds delay{0};                 ///< before every answer

  std::uint32_t sparseStep = 1;         ///< delivered entry numbers are multiplied by this
  std::uint64_t numberFallsBackAt = 0;  ///< the delivered record, counted from 1, and every later
                                        ///< one repeats the number before it; 0 for never

  std::uint16_t interfaceMajor = 2;  ///< the version that is offered; the client asks for 2.0
  std::uint16_t interfaceMinor = 0;

  std::chrono::milliseconds eventEvery{0};  ///< the newest event occurs again so often; 0: never

  std::string callLogPath;  ///< one line is appended for every call; empty for none

  std::string readyPath;      ///< a file that is made when the service listens; empty for none
  bool endWithInput = false;  ///< end when standard input does

  std::string socketPath;                ///< POSIX: the pipe's socket in Samba's ncalrpc folder
  bool requireRpcAuth = false;           ///< POSIX: do not take Samba's word for who calls
  std::string ntlmHelper = "ntlm_auth";  ///< POSIX: Samba's program that checks NTLM
};

/// Reads a command line, without the program's name.
/// Returns the exit status that the program is to end with now (0 after --help or --version, 2 for
/// a mistake, with what to print in `text`), or nothing when it is to serve.
std::optional<int> ParseTrialOptions(const std::vector<std::string>& arguments,
                                     TrialOptions& options, std::string& text);

}  // namespace qvl

#endif  // QVL_TRIAL_TRIAL_OPTIONS_H_
