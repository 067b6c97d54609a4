// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/ThreadExit.h>

#include <vector>

namespace zevo {
namespace {

struct Call {
  void (*function)(void*);
  void* argument;
};

struct Calls {
  Calls() = default;
  Calls(const Calls&) = delete;
  Calls& operator=(const Calls&) = delete;
  ~Calls() {
    // A loop of this form because a call may add another one.
    while (!calls.empty()) {
      const Call call = calls.back();
      calls.pop_back();
      call.function(call.argument);
    }
  }

  std::vector<Call> calls;
};

}  // namespace

void AtThreadExit(void (*function)(void*), void* argument) {
  static thread_local Calls pending;
  pending.calls.push_back({function, argument});
}

}  // namespace zevo
