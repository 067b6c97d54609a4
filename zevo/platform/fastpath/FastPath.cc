// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/fastpath/FastPath.h>

#ifndef ZEVO_NO_FAST_PATH
#include <atomic>
#include <cstdlib>
#include <string_view>
#endif

namespace zevo {

#ifdef ZEVO_NO_FAST_PATH

bool IsFastPathOn() { return false; }
void SetFastPath(bool) {}

#else

namespace {

bool IsOnAtFirst() {
  const char* const set = std::getenv("ZEVO_FAST_PATH");
  return set == nullptr || std::string_view(set) != "off";
}

std::atomic<bool>& Switch() {
  static std::atomic<bool> on = IsOnAtFirst();
  return on;
}

}  // namespace

bool IsFastPathOn() { return Switch().load(std::memory_order_relaxed); }
void SetFastPath(bool on) { Switch().store(on, std::memory_order_relaxed); }

#endif

}  // namespace zevo
