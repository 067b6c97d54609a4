// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/NameTable.h>

#include <zevo/Error.h>
#include <zevo/platform/ByteScan.h>
#include <zevo/platform/KeyedHash.h>
#include <zevo/platform/Windows1252.h>

#include <algorithm>

namespace zevo {
namespace {

// A quick hash for the cache of recent answers only. A file can be made whose names all have the same one, so no search
// may depend on it.
size_t QuickHash(std::string_view text) {
  uint64_t hash = text.size();
  ForEachWord(text, [&](uint64_t word) {
    hash = (hash ^ word) * uint64_t{0x9E3779B97F4A7C15};
    hash ^= hash >> 32;
  });
  return static_cast<size_t>(hash);
}

}  // namespace

NameTable::NameTable(std::span<const std::string_view> first)
    : entries_(1, {{}, kNone, true, true, false}), slots_(512) {
  for (const std::string_view name : first) {
    const uint32_t number = Add(name);
    if (number == plain_ + 1 && Local(number) == number && IsAscii(number)) plain_ = number;
  }
}

uint32_t NameTable::Find(std::string_view name) const {
  uint32_t& asked = asked_[QuickHash(name) % asked_.size()];
  if (entries_[asked].text != name) {
    const uint32_t found = slots_[SlotOf(name)];
    if (found == kNone) return kNone;
    asked = found;
  }
  return asked;
}

// Where the name is, or where it would go.
size_t NameTable::SlotOf(std::string_view name) const {
  const size_t mask = slots_.size() - 1;
  size_t slot = static_cast<size_t>(KeyedHash(name)) & mask;
  while (slots_[slot] != kNone && entries_[slots_[slot]].text != name) slot = (slot + 1) & mask;
  return slot;
}

uint32_t NameTable::Add(std::string_view name) {
  const uint32_t known = Find(name);
  return known != kNone ? known : Insert(name);
}

uint32_t NameTable::AddNewlyParsed(uint32_t number, const char* local, const char* prefix) {
  const uint32_t name = prefix == nullptr ? Add(local) : Add(std::string(prefix).append(":").append(local));
  if (number >= parsed_.size()) parsed_.resize(number + 1, kNone);
  return parsed_[number] = name;
}

uint32_t NameTable::Insert(std::string_view text) {
  if (entries_.size() > kMostNames) throw MakeRunTimeError(RunTimeError::kOutOfMemory);
  const size_t colon = text.find(':');
  const uint32_t local = colon == std::string_view::npos ? kNone : Add(text.substr(colon + 1));
  if (entries_.size() * 2 >= slots_.size()) Grow();
  std::string& kept = texts_.emplace_back(std::max(text.size(), kShort), '\0');
  text.copy(kept.data(), text.size());
  const bool ascii = std::ranges::none_of(text, [](char c) { return (c & 0x80) != 0; });
  const auto name = static_cast<uint32_t>(entries_.size());
  entries_.push_back({.text = std::string_view{kept}.substr(0, text.size()),
                      .local = local == kNone ? name : local,
                      .is_windows1252 = zevo::IsWindows1252(text),
                      .is_ascii = ascii,
                      .is_short = ascii && text.size() <= kShort});
  slots_[SlotOf(text)] = name;
  return name;
}

void NameTable::Grow() {
  // Made before anything changes: if memory runs out here, the old slots are still in place.
  std::vector<uint32_t> slots(slots_.size() * 2);
  slots_.swap(slots);
  for (uint32_t name = 1; name < entries_.size(); ++name) slots_[SlotOf(entries_[name].text)] = name;
}

}  // namespace zevo
