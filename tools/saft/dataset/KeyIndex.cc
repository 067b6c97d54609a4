// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/KeyIndex.h"

#include <zevo/TextHash.h>

#include <algorithm>
#include <string>
#include <utility>

namespace zevo::saft {

std::optional<uint32_t> KeyIndex::Add(std::string_view key, uint32_t row) {
  if ((used_ + 1) * 5 > entries_.size() * 4) Grow();
  const Hash hash = HashOf(key);
  Entry& entry = entries_[PlaceFor(hash, entries_)];
  if (entry.row != 0) return entry.row;
  entry = {hash, row};
  ++used_;
  return std::nullopt;
}

std::optional<uint32_t> KeyIndex::Find(std::string_view key) const {
  if (entries_.empty()) return std::nullopt;
  const Entry& entry = entries_[PlaceFor(HashOf(key), entries_)];
  return entry.row == 0 ? std::nullopt : std::optional(entry.row);
}

// Two hashes of different texts of which each tells the key.
KeyIndex::Hash KeyIndex::HashOf(std::string_view key) {
  constexpr uint64_t kHigh = 32;
  const uint64_t first = TextHash()(key);
  const uint64_t second = TextHash()(std::string(key).append("#"));
  return {static_cast<uint32_t>(first), static_cast<uint32_t>(first >> kHigh), static_cast<uint32_t>(second),
          static_cast<uint32_t>(second >> kHigh)};
}

// The place of the entry that has a hash, or of the free one for it; one in five is free.
size_t KeyIndex::PlaceFor(const Hash& hash, const std::vector<Entry>& entries) {
  constexpr uint64_t kRange = 32;
  size_t place = (hash[0] * static_cast<uint64_t>(entries.size())) >> kRange;
  while (entries[place].row != 0 && entries[place].hash != hash) place = place + 1 == entries.size() ? 0 : place + 1;
  return place;
}

void KeyIndex::Grow() {
  constexpr size_t kLeast = 16;
  std::vector<Entry> larger(entries_.size() + entries_.size() / 4 + kLeast);
  for (const Entry& entry : entries_) {
    if (entry.row != 0) larger[PlaceFor(entry.hash, larger)] = entry;
  }
  entries_ = std::move(larger);
}

}  // namespace zevo::saft
