// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/KeySet.h>

#include <utility>

namespace zevo {
namespace {

constexpr size_t kFirstSize = 16;

}  // namespace

// Where a digest is, or would be put.
size_t KeySet::SlotOf(const Digest& digest) const {
  const size_t mask = slots_.size() - 1;
  size_t slot = static_cast<size_t>(digest[0]) & mask;
  while (slots_[slot] != Digest{} && slots_[slot] != digest) slot = (slot + 1) & mask;
  return slot;
}

bool KeySet::Has(const Digest& digest) const { return count_ > 0 && slots_[SlotOf(digest)] == digest; }

bool KeySet::Add(const Digest& digest) {
  if (4 * (count_ + 1) > 3 * slots_.size()) Grow();
  Digest& slot = slots_[SlotOf(digest)];
  if (slot == digest) return false;
  slot = digest;
  ++count_;
  return true;
}

void KeySet::Grow() {
  std::vector<Digest> grown(slots_.empty() ? kFirstSize : 2 * slots_.size());
  std::swap(slots_, grown);
  for (const Digest& digest : grown) {
    if (digest != Digest{}) slots_[SlotOf(digest)] = digest;
  }
}

}  // namespace zevo
