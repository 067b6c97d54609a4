// SPDX-License-Identifier: Apache-2.0
#include <zevo/component/LiveObject.h>

#include <atomic>

namespace zevo::component {
namespace {

std::atomic<int> count = 0;

}  // namespace

LiveObject::LiveObject() noexcept { Lock(); }
LiveObject::~LiveObject() { Unlock(); }

int LiveObject::Count() { return count; }
void LiveObject::Lock() { ++count; }
void LiveObject::Unlock() { --count; }

}  // namespace zevo::component
