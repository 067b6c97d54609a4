// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/KeySet.h>

#include <zevo/check/NumberedOrder.h>

namespace zevo {
namespace {

constexpr size_t kRecent = 1024;
constexpr size_t kMostCompared = 64;

}  // namespace

bool KeySet::Add(std::string_view key) {
  const CompactKey added(key);
  if (key.size() <= kMostCompared && (keys_.empty() || IsNumberedBefore(highest_, key))) {
    highest_ = key;
  } else if (Find(added)) {
    return false;
  }
  keys_.push_back(added);
  return true;
}

// In order: what was found last once more, or the one behind it.
std::optional<uint32_t> KeySet::Find(const CompactKey& key) const {
  for (uint32_t near = last_; near < keys_.size() && near < last_ + 2; ++near) {
    if (keys_[near] == key) return last_ = near;
  }
  if (keys_.empty()) return std::nullopt;
  if (recent_.empty()) recent_.resize(kRecent);
  uint32_t& recent = recent_[key.QuickHash() % kRecent];
  if (keys_[recent] == key) return last_ = recent;
  while (slots_.Count() < keys_.size()) {
    slots_.Add(keys_[slots_.Count()].Hash(), [this](uint32_t number) { return keys_[number].Hash(); });
  }
  const auto found = slots_.Find(key.Hash(), [&](uint32_t number) { return keys_[number] == key; });
  if (found) last_ = recent = *found;
  return found;
}

}  // namespace zevo
