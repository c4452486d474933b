#ifndef QVL_TRIAL_PROCEDURES_H_
#define QVL_TRIAL_PROCEDURES_H_

#include <cstdint>
#include <vector>

#include "trial/trial_service.h"
#include "trial/wire.h"

namespace qvl {

inline constexpr std::uint16_t kProcedures = 7;

/// Takes a call's parameters from its stub bytes, lets the service answer, and puts its outputs and
/// status into `reply`. Scalars of one and four bytes and octet arrays only: the bytes are the same
/// in both transfer syntaxes.
/// procedure  below kProcedures.
/// Returns a fault with kBadStubData, without calling the service, when parameters are missing.
CallOutcome Dispatch(TrialService& service, const Caller& caller, std::uint16_t procedure,
                     WireBytes stub, std::vector<std::uint8_t>& reply);

}  // namespace qvl

#endif  // QVL_TRIAL_PROCEDURES_H_
