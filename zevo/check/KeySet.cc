// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/KeySet.h>

#include <zevo/check/NumberedOrder.h>

namespace zevo {
namespace {

constexpr size_t kRecent = 4096;
constexpr size_t kMostCompared = 64;

}  // namespace

bool KeySet::Add(std::string_view key) {
  const CompactKey added(key);
  if (key.size() <= kMostCompared && (count_ == 0 || IsNumberedBefore(highest_, key))) {
    highest_ = key;
  } else if (Find(added)) {
    return false;
  }
  if (count_ % kChunk == 0) chunks_.push_back(std::make_unique<CompactKey[]>(kChunk));
  chunks_.back()[count_ % kChunk] = added;
  ++count_;
  return true;
}

std::optional<uint32_t> KeySet::Find(const CompactKey& key) const {
  const uint32_t next = last_ + 1;
  if (in_order_ && next < count_ && At(next) == key) return last_ = next;
  if (count_ == 0) return std::nullopt;
  if (recent_.empty()) recent_.resize(kRecent);
  uint32_t& recent = recent_[key.QuickHash() % kRecent];
  if (At(recent) != key) {
    const auto found = LookUp(key);
    if (!found) return std::nullopt;
    recent = *found;
  }
  in_order_ = recent == next;
  return last_ = recent;
}

std::optional<uint32_t> KeySet::LookUp(const CompactKey& key) const {
  while (slots_.Count() < count_) {
    slots_.Add(At(slots_.Count()).Hash(), [this](uint32_t number) { return At(number).Hash(); });
  }
  return slots_.Find(key.Hash(), [&](uint32_t number) { return At(number) == key; });
}

}  // namespace zevo
