#include <windows.h>

#include <rpc.h>

// The generated stubs call these two by name. Every block starts as zeros.
extern "C" void* __RPC_USER MIDL_user_allocate(SIZE_T size) {
  return ::HeapAlloc(::GetProcessHeap(), HEAP_ZERO_MEMORY, size);
}

extern "C" void __RPC_USER MIDL_user_free(void* block) {
  ::HeapFree(::GetProcessHeap(), 0, block);
}
