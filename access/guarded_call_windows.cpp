#include "access/guarded_call_windows.h"

#include <windows.h>

namespace qvl {
namespace {

// What the filter of a guard answers (excpt.h names them EXCEPTION_*).
constexpr LONG kExecuteHandler = 1;
constexpr LONG kContinueSearch = 0;

// Not the code itself: run times differ in what they do with an answer other than -1, 0 and 1, and
// a negative one would have a faulting instruction run again, for ever.
LONG AnswerFor(const EXCEPTION_RECORD& record) {
  if (static_cast<LONG>(record.ExceptionCode) > 0) return kExecuteHandler;
  const bool handedOn = (record.ExceptionFlags & EXCEPTION_NONCONTINUABLE) != 0 &&
                        record.NumberParameters == 0 && record.ExceptionRecord == nullptr;
  return handedOn ? kExecuteHandler : kContinueSearch;
}

}  // namespace
}  // namespace qvl

#ifdef _MSC_VER

std::uint32_t qvl::CallGuarded(std::uint32_t (*call)(void*), void* context) {
  __try {
    return call(context);
  } __except (AnswerFor(*GetExceptionInformation()->ExceptionRecord)) {
    return GetExceptionCode();
  }
}

#else

// GCC has no __try. This is what it stands for on x64: a function with a table of what it guards,
// read by the handler that Microsoft's compiler uses too
// (https://learn.microsoft.com/cpp/build/exception-handling-x64). The frame is 40 bytes: 32 for the
// callee's register parameters, then the place where the filter leaves the code.
asm(R"(
    .text
    .p2align 4
    .globl  qvl_call_guarded
    .def    qvl_call_guarded; .scl 2; .type 32; .endef
    .seh_proc qvl_call_guarded
qvl_call_guarded:
    subq    $40, %rsp
    .seh_stackalloc 40
    .seh_endprologue
    movq    %rcx, %rax
    movq    %rdx, %rcx
.Lqvl_guarded_begin:
    callq   *%rax
    nop
.Lqvl_guarded_end:
    addq    $40, %rsp
    retq
.Lqvl_guarded_caught:
    movl    32(%rsp), %eax
    addq    $40, %rsp
    retq
    .seh_handler __C_specific_handler, @except
    .seh_handlerdata
    .long   1
    .rva    .Lqvl_guarded_begin, .Lqvl_guarded_end, qvl_guarded_filter, .Lqvl_guarded_caught
    .text
    .seh_endproc
)");

extern "C" {

std::uint32_t qvl_call_guarded(std::uint32_t (*call)(void*), void* context);

// `frame` is the guard's stack pointer after its prologue.
[[gnu::used]] LONG qvl_guarded_filter(EXCEPTION_POINTERS* exception, char* frame) {
  const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
  *reinterpret_cast<DWORD*>(frame + 32) = record.ExceptionCode;
  return qvl::AnswerFor(record);
}

}  // extern "C"

std::uint32_t qvl::CallGuarded(std::uint32_t (*call)(void*), void* context) {
  return qvl_call_guarded(call, context);
}

#endif
