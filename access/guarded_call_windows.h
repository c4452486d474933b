#ifndef QVL_ACCESS_GUARDED_CALL_WINDOWS_H_
#define QVL_ACCESS_GUARDED_CALL_WINDOWS_H_

#include <cstdint>

namespace qvl {

/// Windows only: runs `call` under a structured exception guard.
/// Returns what the call returned, or the code of an exception that it raised. The guard's filter
/// goes by the code: a positive one, as every failure of the remote call run time is, is caught. A
/// negative one is a fault of this program (0xC0000005, an access violation) and goes on to the
/// outer handlers, unless it was raised as not continuable and without parameters: so the run time
/// hands on a status that the other side made up.
/// What the call holds when it raises is not destroyed, so it must hold nothing that needs it.
std::uint32_t CallGuarded(std::uint32_t (*call)(void*), void* context);

/// The same for a callable object.
template <typename Function>
std::uint32_t CallGuarded(Function function) {
  return CallGuarded([](void* context) { return (*static_cast<Function*>(context))(); }, &function);
}

}  // namespace qvl

#endif  // QVL_ACCESS_GUARDED_CALL_WINDOWS_H_
