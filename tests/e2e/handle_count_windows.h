#ifndef QVL_TESTS_E2E_HANDLE_COUNT_WINDOWS_H_
#define QVL_TESTS_E2E_HANDLE_COUNT_WINDOWS_H_

namespace qvl::test {

/// How many handles of the system a running process holds; 0 when the system does not tell.
/// Wine answers 0 to GetProcessHandleCount, so the list of all handles is counted instead.
unsigned long HandlesOf(unsigned long process);

}  // namespace qvl::test

#endif  // QVL_TESTS_E2E_HANDLE_COUNT_WINDOWS_H_
