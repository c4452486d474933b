#include <windows.h>

#include <remote_monitor.h>
#include <rpc.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <system_error>
#include <thread>

#include "access/remote_call_runtime.h"
#include "platform/exclusive_file.h"
#include "platform/interrupt.h"
#include "platform/standard_streams.h"
#include "platform/status.h"
#include "platform/wide_text_windows.h"
#include "trial/server.h"

namespace qvl {
namespace {

constexpr DWORD kLookAroundMilliseconds = 50;

// The run time calls plain functions, from threads of its own.
TrialService* theService = nullptr;

RPC_CSTR AsRpcText(const char* text) {
  return reinterpret_cast<RPC_CSTR>(const_cast<char*>(text));  // none is written to
}

Status Outcome(const char* call, RPC_STATUS status) {
  if (status == RPC_S_OK) return Status::Ok();
  return Status::Failed(std::string(call) + ": " +
                        SystemErrorText(static_cast<unsigned long>(status)));
}

// Runs a procedure and ends the call the way it says. Nothing may be left to destroy where the
// exception is raised. The run time has checked the caller's logon; who it is remains unsaid,
// because Wine's RpcBindingInqAuthClient reads freed memory for a call that names an object.
template <typename Procedure>
error_status_t Answer(Procedure procedure) {
  CallOutcome outcome;
  {
    const Caller caller;
    outcome = procedure(caller);
  }
  if (outcome.end == CallEnd::kDie) ::TerminateProcess(::GetCurrentProcess(), 1);
  if (outcome.end == CallEnd::kFault) ::RpcRaiseException(static_cast<RPC_STATUS>(outcome.status));
  return outcome.status;
}

RemoteText TextOf(const char* bytes) {
  RemoteText text;
  std::copy_n(bytes, text.size(), text.begin());
  return text;
}

std::uint8_t& AsByte(char* byte) {
  return reinterpret_cast<std::uint8_t&>(*byte);
}

// The interface under the version that is asked for.
RPC_SERVER_INTERFACE InterfaceOf(const TrialOptions& options) {
  RPC_SERVER_INTERFACE offered =
      *static_cast<const RPC_SERVER_INTERFACE*>(Serve_remote_monitor_v2_0_s_ifspec);
  offered.InterfaceId.SyntaxVersion.MajorVersion = options.interfaceMajor;
  offered.InterfaceId.SyntaxVersion.MinorVersion = options.interfaceMinor;
  return offered;
}

Status Listen(RPC_SERVER_INTERFACE& offered) {
  Status status =
      Outcome("RpcServerUseProtseqEp",
              ::RpcServerUseProtseqEpA(AsRpcText(kMonitorSequence), RPC_C_PROTSEQ_MAX_REQS_DEFAULT,
                                       AsRpcText(kMonitorEndpoint), nullptr));
  if (!status.ok()) return status;
  status = Outcome("RpcServerRegisterAuthInfo",
                   ::RpcServerRegisterAuthInfoA(nullptr, RPC_C_AUTHN_WINNT, nullptr, nullptr));
  if (!status.ok()) return status;
  // Callers name an object of the interface's own UUID. It stands for no type of its own here, so
  // it means the manager without a type, which is this one. Callers without a logon are refused.
  // Callers through SMB are not, though a trial is for this computer: a viewer names the computer,
  // and then it comes through SMB as those from outside do.
  status = Outcome("RpcServerRegisterIfEx",
                   ::RpcServerRegisterIfEx(&offered, nullptr, nullptr, RPC_IF_ALLOW_SECURE_ONLY,
                                           RPC_C_LISTEN_MAX_CALLS_DEFAULT, nullptr));
  if (!status.ok()) return status;
  return Outcome("RpcServerListen", ::RpcServerListen(1, RPC_C_LISTEN_MAX_CALLS_DEFAULT, TRUE));
}

Status MakeReadyFile(const std::string& path) {
  if (path.empty()) return Status::Ok();
  ExclusiveFile file;
  const Status status = file.Open(path, ExclusiveFile::Mode::kReplace);
  return status.ok() ? file.Close() : status;
}

bool Exists(const std::string& path) {
  return ::GetFileAttributesW(WideFromUtf8(path).c_str()) != INVALID_FILE_ATTRIBUTES;
}

// A script has no Ctrl+C to send from elsewhere, so the ready file's end is the sign too.
void WaitForTheEnd(const std::string& readyPath) {
  while (!InterruptWatch::Interrupted() && (readyPath.empty() || Exists(readyPath))) {
    ::Sleep(kLookAroundMilliseconds);
  }
}

// A read of standard input cannot be called off, so it has a thread that ends with the process.
Status EndWithInput() {
  const auto wait = [] {
    StandardInput input;
    std::array<std::uint8_t, 256> ignored;
    std::size_t got = 0;
    while (input.ReadSome(ignored, got).ok() && got > 0) {
    }
    (void)InterruptWatch::Note();
  };
  try {
    std::thread(wait).detach();
  } catch (const std::system_error& error) {
    return Status::Failed("cannot start a thread: " + error.code().message());
  }
  return Status::Ok();
}

int Complain(const Status& status) {
  StandardOutput error(StandardOutput::Stream::kError);
  (void)error.Write("zlkrcmc-trial: " + status.message() + "\n");
  return 1;
}

}  // namespace

int Serve(TrialService& service, const TrialOptions& options) {
  theService = &service;
  const InterruptWatch watch;
  RPC_SERVER_INTERFACE offered = InterfaceOf(options);
  Status status = Listen(offered);
  if (status.ok() && options.endWithInput) status = EndWithInput();
  if (status.ok()) status = MakeReadyFile(options.readyPath);
  if (!status.ok()) return Complain(status);
  WaitForTheEnd(options.readyPath);
  service.Stop();  // or the calls that are delayed would be waited for
  ::RpcMgmtStopServerListening(nullptr);
  ::RpcServerUnregisterIf(&offered, nullptr, TRUE);
  // An ordinary end stops the run time's own threads wherever they are, and then waits for the
  // locks that they hold. All that was changed is in its file by now.
  ::TerminateProcess(::GetCurrentProcess(), 0);
  return 0;
}

}  // namespace qvl

// What the generated stub calls, in the order of the interface.
extern "C" {

error_status_t Serve_QueryAdministratorAccess(handle_t /*binding*/, LONG* isAdministrator) {
  return qvl::Answer([&](const qvl::Caller& caller) {
    std::int32_t answer = 0;
    const qvl::CallOutcome outcome = qvl::theService->QueryAdministratorAccess(caller, answer);
    *isAdministrator = answer;
    return outcome;
  });
}

error_status_t Serve_ReadLogEntry(handle_t /*binding*/, LONG entryNumber, LONG reserved,
                                  char* entryStatus, LONG* entryCount, char record[256]) {
  return qvl::Answer([&](const qvl::Caller& caller) {
    std::int32_t count = 0;
    const qvl::CallOutcome outcome = qvl::theService->ReadLogEntry(
        caller, static_cast<std::uint32_t>(entryNumber), static_cast<std::uint32_t>(reserved),
        qvl::AsByte(entryStatus), count, *reinterpret_cast<qvl::RawLogEntry*>(record));
    *entryCount = count;
    return outcome;
  });
}

error_status_t Serve_RemoteClearLog(handle_t /*binding*/, small clearFlag, char userName[228],
                                    small* cleared) {
  return qvl::Answer([&](const qvl::Caller& caller) {
    return qvl::theService->RemoteClearLog(caller, static_cast<std::uint8_t>(clearFlag),
                                           qvl::TextOf(userName), qvl::AsByte(cleared));
  });
}

error_status_t Serve_RemoteWriteMaintenanceNote(handle_t /*binding*/, char note[228], char* written,
                                                LONG* noteResult) {
  return qvl::Answer([&](const qvl::Caller& caller) {
    std::int32_t result = 0;
    const qvl::CallOutcome outcome = qvl::theService->RemoteWriteMaintenanceNote(
        caller, qvl::TextOf(note), qvl::AsByte(written), result);
    *noteResult = result;
    return outcome;
  });
}

error_status_t Serve_UnusedProcedure(handle_t /*binding*/, small* result) {
  return qvl::Answer([&](const qvl::Caller& caller) {
    return qvl::theService->Reserved4(caller, qvl::AsByte(result));
  });
}

error_status_t Serve_QueryLogPresent(handle_t /*binding*/, small* hasLog) {
  return qvl::Answer([&](const qvl::Caller& caller) {
    return qvl::theService->QueryLogPresent(caller, qvl::AsByte(hasLog));
  });
}

error_status_t Serve_MarkEntryRepaired(handle_t /*binding*/, LONG entryNumber, char* repairStatus) {
  return qvl::Answer([&](const qvl::Caller& caller) {
    return qvl::theService->MarkEntryRepaired(caller, static_cast<std::uint32_t>(entryNumber),
                                              qvl::AsByte(repairStatus));
  });
}

}  // extern "C"
