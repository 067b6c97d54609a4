// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/HostMessages.h>

#include <windows.h>

namespace zevo {

void AwaitHostMessages() {
  SleepEx(1000, FALSE);
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

}  // namespace zevo
