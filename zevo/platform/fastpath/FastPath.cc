// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/fastpath/FastPath.h>

#include <atomic>
#include <cstdlib>
#include <string_view>

namespace zevo {
namespace {

bool IsOnAtFirst() {
  const char* const set = std::getenv("ZEVO_FAST_PATH");
  return kHasFastPath && (set == nullptr || std::string_view(set) != "off");
}

std::atomic<bool>& Switch() {
  static std::atomic<bool> on = IsOnAtFirst();
  return on;
}

}  // namespace

bool IsFastPathOn() { return Switch().load(std::memory_order_relaxed); }
void SetFastPath(bool on) { Switch().store(kHasFastPath && on, std::memory_order_relaxed); }

}  // namespace zevo
