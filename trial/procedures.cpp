#include "trial/procedures.h"

#include <algorithm>
#include <array>

namespace qvl {
namespace {

constexpr CallOutcome kBadStub = {CallEnd::kFault, kBadStubData};

RemoteText TakeText(WireReader& in) {
  RemoteText text{};
  const WireBytes bytes = in.TakeBytes(text.size());
  std::copy(bytes.begin(), bytes.end(), text.begin());
  return text;
}

void AddLong(WireWriter& out, std::int32_t value) {
  out.Align(4);
  out.Add(static_cast<std::uint32_t>(value));
}

using Handler = CallOutcome (*)(TrialService&, const Caller&, WireReader&, WireWriter&);

CallOutcome Administrator(TrialService& service, const Caller& caller, WireReader& /*in*/,
                          WireWriter& out) {
  std::int32_t isAdministrator = 0;
  const CallOutcome outcome = service.QueryAdministratorAccess(caller, isAdministrator);
  AddLong(out, isAdministrator);
  return outcome;
}

CallOutcome Read(TrialService& service, const Caller& caller, WireReader& in, WireWriter& out) {
  const auto number = in.Take<std::uint32_t>();
  const auto reserved = in.Take<std::uint32_t>();
  if (!in.ok()) return kBadStub;
  std::uint8_t status = 0;
  std::int32_t count = 0;
  RawLogEntry record{};
  const CallOutcome outcome = service.ReadLogEntry(caller, number, reserved, status, count, record);
  out.Add(status);
  AddLong(out, count);
  out.AddBytes({reinterpret_cast<const std::uint8_t*>(&record), sizeof record});
  return outcome;
}

CallOutcome Clear(TrialService& service, const Caller& caller, WireReader& in, WireWriter& out) {
  const auto flag = in.Take<std::uint8_t>();
  const RemoteText userName = TakeText(in);
  if (!in.ok()) return kBadStub;
  std::uint8_t cleared = 0;
  const CallOutcome outcome = service.RemoteClearLog(caller, flag, userName, cleared);
  out.Add(cleared);
  return outcome;
}

CallOutcome Note(TrialService& service, const Caller& caller, WireReader& in, WireWriter& out) {
  const RemoteText note = TakeText(in);
  if (!in.ok()) return kBadStub;
  std::uint8_t written = 0;
  std::int32_t result = 0;
  const CallOutcome outcome = service.RemoteWriteMaintenanceNote(caller, note, written, result);
  out.Add(written);
  AddLong(out, result);
  return outcome;
}

CallOutcome Unused(TrialService& service, const Caller& caller, WireReader& /*in*/,
                   WireWriter& out) {
  std::uint8_t value = 0;
  const CallOutcome outcome = service.Reserved4(caller, value);
  out.Add(value);
  return outcome;
}

CallOutcome Present(TrialService& service, const Caller& caller, WireReader& /*in*/,
                    WireWriter& out) {
  std::uint8_t hasLog = 0;
  const CallOutcome outcome = service.QueryLogPresent(caller, hasLog);
  out.Add(hasLog);
  return outcome;
}

CallOutcome Repair(TrialService& service, const Caller& caller, WireReader& in, WireWriter& out) {
  const auto number = in.Take<std::uint32_t>();
  if (!in.ok()) return kBadStub;
  std::uint8_t status = 0;
  const CallOutcome outcome = service.MarkEntryRepaired(caller, number, status);
  out.Add(status);
  return outcome;
}

constexpr std::array<Handler, kProcedures> kHandlers = {Administrator, Read,    Clear, Note,
                                                        Unused,        Present, Repair};

}  // namespace

CallOutcome Dispatch(TrialService& service, const Caller& caller, std::uint16_t procedure,
                     WireBytes stub, std::vector<std::uint8_t>& reply) {
  WireReader in(stub);
  WireWriter out;
  const CallOutcome outcome = kHandlers[procedure](service, caller, in, out);
  out.Align(4);
  out.Add(outcome.status);
  reply = out.bytes();
  return outcome;
}

}  // namespace qvl
