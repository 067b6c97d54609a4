// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_NAMENUMBERS_H_
#define ZEVO_PLATFORM_NAMENUMBERS_H_

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zevo {

/// Numbers names in the order in which they come: 1, 2 and so on. Equal names must be the same pointers; a prefix may
/// be null. The names themselves are never looked at.
class NameNumbers {
 public:
  NameNumbers();

  uint32_t Of(const char* local, const char* prefix = nullptr) {
    const Slot& slot = slots_[HomeOf(local, prefix)];
    return slot.local == local && slot.prefix == prefix ? slot.number : Search(local, prefix);
  }

 private:
  struct Slot {
    const char* local;
    const char* prefix;
    uint32_t number;  // 0 where there is none
  };

  // A file can influence the addresses of its names, but not the multiplier that mixes them.
  size_t HomeOf(const char* local, const char* prefix) const {
    const uint64_t both = reinterpret_cast<uintptr_t>(local) + uint64_t{31} * reinterpret_cast<uintptr_t>(prefix);
    return static_cast<size_t>(both * multiplier_ >> 32) & mask_;
  }
  uint32_t Search(const char* local, const char* prefix);
  Slot& SlotOf(const char* local, const char* prefix);

  uint64_t multiplier_;
  size_t mask_;
  uint32_t count_ = 0;
  std::vector<Slot> slots_;
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_NAMENUMBERS_H_
