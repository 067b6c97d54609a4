// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/NameNumbers.h>

#include <zevo/platform/KeyedHash.h>

namespace zevo {

namespace {

constexpr size_t kFirstSlots = 1024;

}  // namespace

NameNumbers::NameNumbers() : multiplier_(KeyedHash("NameNumbers") | 1U), mask_(kFirstSlots - 1), slots_(kFirstSlots) {}

// Where the name is, or where it would go.
NameNumbers::Slot& NameNumbers::SlotOf(const char* local, const char* prefix) {
  size_t at = HomeOf(local, prefix);
  while (slots_[at].number != 0 && (slots_[at].local != local || slots_[at].prefix != prefix)) {
    at = (at + 1) & mask_;
  }
  return slots_[at];
}

uint32_t NameNumbers::Search(const char* local, const char* prefix) {
  Slot* slot = &SlotOf(local, prefix);
  if (slot->number != 0) return slot->number;
  if (size_t{count_} * 4 >= slots_.size()) {
    std::vector<Slot> slots(slots_.size() * 2);
    slots_.swap(slots);
    mask_ = slots_.size() - 1;
    for (const Slot& known : slots) {
      if (known.number != 0) SlotOf(known.local, known.prefix) = known;
    }
    slot = &SlotOf(local, prefix);
  }
  *slot = {local, prefix, ++count_};
  return count_;
}

}  // namespace zevo
