// SPDX-License-Identifier: Apache-2.0
#include <zevo/component/Identities.h>

namespace zevo::component {

Identities& Identities::OfThisProcess() {
  static Identities identities;
  return identities;
}

void* Identities::Find(const void* object) {
  const std::scoped_lock lock(mutex_);
  const auto found = faces_.find(object);
  return found == faces_.end() ? nullptr : found->second;
}

void Identities::Add(const void* object, void* face) {
  const std::scoped_lock lock(mutex_);
  faces_.emplace(object, face);
}

void Identities::Remove(const void* object) noexcept {
  const std::scoped_lock lock(mutex_);
  faces_.erase(object);
}

}  // namespace zevo::component
