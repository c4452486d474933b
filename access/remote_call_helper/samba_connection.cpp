#include "access/remote_call_helper/samba_connection.h"

#include <array>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "access/remote_call_frames.h"
#include "access/remote_call_helper/call_status.h"
#include "access/remote_call_helper/credentials_file.h"
#include "access/remote_call_helper/samba_headers.h"

namespace qvl {
namespace {

// The interface, which is also the object that the calls are for.
constexpr GUID kInterface = {
    0x5c2e9a41, 0x7b3d, 0x4f08, {0xa6,  0xe2},
       { 0x19, 0xd0, 0x4c, 0x7b, 0x3e, 0x55}
};
constexpr std::uint32_t kInterfaceVersion = 2;  // 2.0: major below, minor above

// Where the service listens on every machine; the machine is filled in apart, so that no name can
// be taken for an option.
constexpr const char* kPipe = "ncacn_np:[\\pipe\\zlkrcmc]";
constexpr const char* kAuthenticationService = "host";

// The program keeps the time and ends this process; the library's own limit must not come first.
constexpr std::uint32_t kNoLimitSeconds = 86'400;

class InterfaceTable {
 public:
  InterfaceTable() {
    table_.name = "remote_monitor";
    table_.syntax_id = {kInterface, kInterfaceVersion};
    table_.endpoints = &endpoints_;
    table_.authservices = &services_;
  }
  InterfaceTable(const InterfaceTable&) = delete;
  InterfaceTable& operator=(const InterfaceTable&) = delete;

  const ndr_interface_table* get() const { return &table_; }

 private:
  const char* endpoint_ = kPipe;
  const char* service_ = kAuthenticationService;
  ndr_interface_string_array endpoints_ = {1, &endpoint_};
  ndr_interface_string_array services_ = {1, &service_};
  ndr_interface_table table_ = {};
};

// What a name may not contain: it could not be a machine's, and Samba or the resolver would take
// it for something else.
bool IsMachineName(const std::string& machine) {
  if (machine.empty() || machine.size() > kLongestMachineName) return false;
  for (const char each : machine) {
    const auto byte = static_cast<unsigned char>(each);
    if (byte <= ' ' || byte == 0x7F) return false;
  }
  return machine.find_first_of("\\/[]@,\"") == std::string::npos;
}

// $SMB_CONF_PATH, else the user's own, else the system's, else Samba's standards.
void LoadSettings(loadparm_context* settings) {
  const char* chosen = std::getenv("SMB_CONF_PATH");  // NOLINT(concurrency-mt-unsafe)
  std::error_code error;
  const std::string own = HomeFolder() + "/.smb/smb.conf";
  if (chosen == nullptr && std::filesystem::exists(own, error)) {
    lpcfg_load(settings, own.c_str());
  } else {
    lpcfg_load_default(settings);
  }
}

}  // namespace

struct SambaConnection::Samba {
  Samba() : memory(talloc_new(nullptr)) {
    dcerpc_init();
    events = samba_tevent_context_init(memory);
    settings = loadparm_init(memory);
    if (events == nullptr || settings == nullptr) std::abort();
    LoadSettings(settings);
  }
  ~Samba() { talloc_free(memory); }
  Samba(const Samba&) = delete;
  Samba& operator=(const Samba&) = delete;

  // An identity of its own for every attempt: Samba notes in it what was tried.
  cli_credentials* NewCredentials() {
    cli_credentials* credentials = cli_credentials_init(memory);
    if (credentials == nullptr) std::abort();
    cli_credentials_set_conf(credentials, settings);
    return credentials;
  }

  // Logs on to the machine, opens the pipe and binds to the interface without authentication.
  NTSTATUS Open(const std::string& machine, bool ndr64, cli_credentials* credentials) {
    dcerpc_binding* made = nullptr;
    NTSTATUS status = dcerpc_parse_binding(memory, kPipe, &made);
    if (NT_STATUS_IS_OK(status)) {
      status = dcerpc_binding_set_string_option(made, "host", machine.c_str());
    }
    if (NT_STATUS_IS_OK(status) && ndr64) status = dcerpc_binding_set_flags(made, DCERPC_NDR64, 0);
    if (!NT_STATUS_IS_OK(status)) return status;
    binding = made;
    return dcerpc_pipe_connect_b(memory, &first, binding, table.get(), credentials, events,
                                 settings);
  }

  // On a named pipe the library leaves authentication to SMB. The service wants it in the call as
  // well: the pipe is opened a second time and bound with NTLM.
  NTSTATUS Authenticate(cli_credentials* credentials) {
    NTSTATUS status =
        dcerpc_secondary_connection_recv(dcerpc_secondary_connection_send(first, binding), &pipe);
    if (!NT_STATUS_IS_OK(status)) return status;
    return dcerpc_bind_auth(pipe, table.get(), credentials, lpcfg_gensec_settings(memory, settings),
                            DCERPC_AUTH_TYPE_NTLMSSP, DCERPC_AUTH_LEVEL_CONNECT,
                            kAuthenticationService);
  }

  TALLOC_CTX* memory;
  InterfaceTable table;
  tevent_context* events = nullptr;
  loadparm_context* settings = nullptr;
  dcerpc_binding* binding = nullptr;
  dcerpc_pipe* first = nullptr;  ///< holds the SMB connection
  dcerpc_pipe* pipe = nullptr;   ///< the one that calls go through
};

SambaConnection::SambaConnection() : samba_(std::make_unique<Samba>()) {}
SambaConnection::~SambaConnection() = default;

RemoteStatus SambaConnection::Connect(const std::string& machine) {
  // No service answers under such a name.
  if (!IsMachineName(machine)) return kServerUnavailable;
  RemoteStatus status = kAccessDenied;  // also without any identity
  for (const IdentitySource source : IdentitySources()) {
    std::string reason;
    cli_credentials* credentials = samba_->NewCredentials();
    if (!FillCredentials(source, credentials, samba_->settings, reason)) continue;
    status = ConnectAs(source, credentials, machine);
    // The next identity may be the one that this machine knows; and a machine outside of the
    // ticket's realm cannot be told from one that does not answer.
    const bool unreached =
        source == IdentitySource::kKerberosTicket && status == kServerUnavailable;
    if (status != kAccessDenied && !unreached) return status;
  }
  return status;
}

RemoteStatus SambaConnection::ConnectAs(IdentitySource source, cli_credentials* credentials,
                                        const std::string& machine) {
  NTSTATUS status = samba_->Open(machine, false, credentials);
  if (IsRefusedSyntax(NT_STATUS_V(status))) status = samba_->Open(machine, true, credentials);
  if (NT_STATUS_IS_OK(status)) {
    // A ticket proves who calls to SMB, but cannot do NTLM.
    if (source == IdentitySource::kKerberosTicket) {
      samba_->pipe = samba_->first;
    } else {
      status = samba_->Authenticate(credentials);
    }
  }
  if (NT_STATUS_IS_OK(status)) {
    dcerpc_binding_handle_set_timeout(samba_->pipe->binding_handle, kNoLimitSeconds);
    return kRemoteOk;
  }
  samba_->pipe = nullptr;
  return StatusOfFailedConnect(NT_STATUS_V(status));
}

CallResult SambaConnection::Call(std::uint32_t procedure, std::span<const std::uint8_t> request) {
  CallResult result;
  if (samba_->pipe == nullptr) return {CallEnd::kLost, kServerUnavailable, {}};
  TALLOC_CTX* scratch = talloc_new(samba_->memory);
  std::uint8_t* bytes = nullptr;
  std::size_t size = 0;
  std::uint32_t flags = 0;
  samba_->pipe->last_fault_code = 0;
  const NTSTATUS status = dcerpc_binding_handle_raw_call(
      samba_->pipe->binding_handle, &kInterface, procedure, 0, request.data(), request.size(),
      scratch, &bytes, &size, &flags);
  const std::uint32_t fault = samba_->pipe->last_fault_code;
  if (NT_STATUS_IS_OK(status) && size > kLargestPayload) {
    result = {CallEnd::kRefused, kBadStubData, {}};
  } else if (NT_STATUS_IS_OK(status)) {
    result = {
        CallEnd::kReturned, kRemoteOk, {bytes, bytes + size}
    };
  } else if (fault != 0) {
    result = {CallEnd::kRefused, StatusOfFault(fault), {}};
  } else {
    result = {CallEnd::kLost, StatusOfFailedCall(NT_STATUS_V(status)), {}};
  }
  talloc_free(scratch);
  return result;
}

std::string SambaConnection::DescribeIdentities() {
  std::string text;
  for (const IdentitySource source : IdentitySources()) {
    std::string reason;
    cli_credentials* credentials = samba_->NewCredentials();
    const bool found = FillCredentials(source, credentials, samba_->settings, reason);
    constexpr std::array kNames = {"winbind logon", "Kerberos ticket", "credentials file"};
    text += kNames[static_cast<std::size_t>(source)];
    text += ": ";
    if (found) {
      char* name = cli_credentials_get_unparsed_name(credentials, samba_->memory);
      text += name == nullptr ? "found" : name;
    } else {
      text += reason;
    }
    text += '\n';
  }
  return text;
}

}  // namespace qvl
