// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/HostMessages.h>

#include <chrono>
#include <thread>

namespace zevo {

void AwaitHostMessages() { std::this_thread::sleep_for(std::chrono::seconds(1)); }

}  // namespace zevo
