#include <zevo/platform/HostMessages.h>

#ifdef _WIN32
#include <windows.h>
#else
#include <chrono>
#include <thread>
#endif

namespace zevo {

void AwaitHostMessages() {
#ifdef _WIN32
  SleepEx(1000, FALSE);
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
#else
  std::this_thread::sleep_for(std::chrono::seconds(1));
#endif
}

}  // namespace zevo
