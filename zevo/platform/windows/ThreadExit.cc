// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/ThreadExit.h>

#include <windows.h>
#include <zevo/platform/windows/Unloading.h>

#include <memory>
#include <mutex>
#include <new>

// thread_local objects with destructors would keep the library loaded until the thread ends, and then have it unload
// itself from inside. The system's own thread storage does not keep the library loaded.

namespace zevo {
namespace {

struct Call {
  void (*function)(void*);
  void* argument;
  Call* before;
};

void WINAPI RunCalls(void* calls) {
  for (auto* call = static_cast<Call*>(calls); call != nullptr;) {
    const std::unique_ptr<Call> done(call);
    call = call->before;
    done->function(done->argument);
  }
}

DWORD slot = FLS_OUT_OF_INDEXES;

DWORD Slot() {
  static std::once_flag once;
  std::call_once(once, [] { slot = FlsAlloc(&RunCalls); });
  return slot;
}

}  // namespace

void AtThreadExit(void (*function)(void*), void* argument) {
  auto* before = static_cast<Call*>(FlsGetValue(Slot()));
  auto call = std::make_unique<Call>(Call{function, argument, before});
  if (FlsSetValue(Slot(), call.get()) == 0) throw std::bad_alloc();
  static_cast<void>(call.release());
}

void RunThreadExits() {
  if (slot != FLS_OUT_OF_INDEXES) FlsFree(slot);
}

}  // namespace zevo
