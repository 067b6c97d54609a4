// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/DigestSet.h>

#include <algorithm>
#include <utility>

namespace zevo {
namespace {

constexpr size_t kFirstSize = 16;
constexpr size_t kFew = 512;  // keys in one segment
constexpr size_t kSegments = 64;

bool IsEmpty(const Digest& slot) { return slot[1] == 0; }

}  // namespace

// Where a digest is, or would be put. The first place grows with the digest's low bits: a segment that grows is copied
// from its front to its end.
size_t DigestSet::SlotOf(const Segment& segment, const Digest& digest) {
  const std::vector<Digest>& slots = segment.slots;
  auto slot = static_cast<size_t>(((digest[0] & UINT32_MAX) * slots.size()) >> 32U);
  while (!IsEmpty(slots[slot]) && (slots[slot][0] != digest[0] || slots[slot][1] != digest[1])) {
    if (++slot == slots.size()) slot = 0;
  }
  return slot;
}

bool DigestSet::Has(const Digest& digest) const {
  if (segments_.empty()) return false;
  const Segment& segment = segments_[SegmentOf(digest)];
  return segment.count > 0 && !IsEmpty(segment.slots[SlotOf(segment, digest)]);
}

bool DigestSet::Add(const Digest& digest) {
  if (segments_.empty()) segments_.resize(1);
  if (count_ == kFew && segments_.size() == 1) Divide();
  if (!Put(segments_[SegmentOf(digest)], digest)) return false;
  ++count_;
  return true;
}

bool DigestSet::HasAllOf(const DigestSet& other) const {
  return std::ranges::all_of(other.segments_, [&](const Segment& segment) {
    return std::ranges::all_of(segment.slots, [&](const Digest& digest) { return IsEmpty(digest) || Has(digest); });
  });
}

// A segment is never fuller than four fifths and grows by a third.
bool DigestSet::Put(Segment& segment, const Digest& digest) {
  if (5 * (segment.count + 1) > 4 * segment.slots.size()) {
    std::vector<Digest> grown(std::max(kFirstSize, segment.slots.size() + segment.slots.size() / 3));
    std::swap(segment.slots, grown);
    for (const Digest& kept : grown) {
      if (!IsEmpty(kept)) segment.slots[SlotOf(segment, kept)] = kept;
    }
  }
  Digest& slot = segment.slots[SlotOf(segment, digest)];
  if (!IsEmpty(slot)) return false;
  slot = digest;
  ++segment.count;
  return true;
}

void DigestSet::Divide() {
  const std::vector<Segment> few = std::exchange(segments_, std::vector<Segment>(kSegments));
  for (const Digest& digest : few[0].slots) {
    if (!IsEmpty(digest)) Put(segments_[SegmentOf(digest)], digest);
  }
}

}  // namespace zevo
