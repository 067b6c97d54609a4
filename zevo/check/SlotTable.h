// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_SLOTTABLE_H_
#define ZEVO_CHECK_SLOTTABLE_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace zevo {

/// Finds things that are counted from 0 by hashes of them, which have to be keyed where files choose the things. Never
/// fuller than three quarters: 5 to 11 bytes for each thing.
class SlotTable {
 public:
  /// The first that was added with the hash and matches.
  template <class Matches>
  std::optional<uint32_t> Find(uint64_t hash, Matches matches) const {
    if (slots_.empty()) return std::nullopt;
    for (size_t slot = FirstOf(hash); slots_[slot] != 0; slot = (slot + 1) & Mask()) {
      if (matches(slots_[slot] - 1)) return slots_[slot] - 1;
    }
    return std::nullopt;
  }

  /// How many there are.
  uint32_t Count() const { return count_; }

  /// Adds the next thing. `hashOf` gives the hash of each that was added before.
  template <class HashOf>
  void Add(uint64_t hash, HashOf hashOf) {
    if (4 * (size_t{count_} + 1) > 3 * slots_.size()) {
      const size_t size = slots_.empty() ? kFirstSize : 2 * slots_.size();
      slots_ = {};  // not both at once
      slots_.resize(size);
      for (uint32_t i = 0; i < count_; ++i) Put(hashOf(i), i);
    }
    Put(hash, count_++);
  }

 private:
  static constexpr size_t kFirstSize = 16;

  size_t Mask() const { return slots_.size() - 1; }
  size_t FirstOf(uint64_t hash) const { return static_cast<size_t>(hash) & Mask(); }
  void Put(uint64_t hash, uint32_t thing) {
    size_t slot = FirstOf(hash);
    while (slots_[slot] != 0) slot = (slot + 1) & Mask();
    slots_[slot] = thing + 1;
  }

  std::vector<uint32_t> slots_;  // things from 1 on; 0 is empty. Their number is a power of two.
  uint32_t count_ = 0;
};

}  // namespace zevo

#endif  // ZEVO_CHECK_SLOTTABLE_H_
