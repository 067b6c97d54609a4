#include <zevo/platform/NameTable.h>

#include <zevo/Error.h>
#include <zevo/platform/Windows1252.h>

#include <algorithm>
#include <functional>
#include <utility>

namespace zevo {
namespace {

size_t Hash(std::string_view text) { return std::hash<std::string_view>{}(text); }

}  // namespace

NameTable::NameTable(std::span<const std::string_view> first) : entries_(1, {{}, kNone, true, true}), slots_(512) {
  for (const std::string_view name : first) Add(name);
}

uint32_t NameTable::Find(std::string_view name) const {
  for (size_t slot = Hash(name) & (slots_.size() - 1);; slot = (slot + 1) & (slots_.size() - 1)) {
    if (slots_[slot] == kNone || entries_[slots_[slot]].text == name) return slots_[slot];
  }
}

uint32_t NameTable::Add(std::string_view name) {
  const uint32_t known = Find(name);
  return known != kNone ? known : Insert(name);
}

uint32_t NameTable::AddParsed(const char* local, const char* prefix) {
  const uint64_t spread = reinterpret_cast<uintptr_t>(local) * uint64_t{0x9E3779B97F4A7C15};
  Seen& seen = seen_[static_cast<size_t>(spread >> 48) % seen_.size()];
  if (seen.local == local && seen.prefix == prefix && seen.name != kNone) return seen.name;
  const uint32_t name = prefix == nullptr ? Add(local) : Add(std::string(prefix).append(":").append(local));
  seen = {local, prefix, name};
  return name;
}

void NameTable::ForgetPointers() { seen_.fill({}); }

uint32_t NameTable::Insert(std::string_view text) {
  if (entries_.size() > kMostNames) throw MakeRunTimeError(RunTimeError::kOutOfMemory);
  const size_t colon = text.find(':');
  const uint32_t local = colon == std::string_view::npos ? kNone : Add(text.substr(colon + 1));
  if (entries_.size() * 2 >= slots_.size()) Grow();
  texts_.emplace_back(text);
  const bool ascii = std::ranges::none_of(text, [](char c) { return (c & 0x80) != 0; });
  const auto name = static_cast<uint32_t>(entries_.size());
  entries_.push_back({texts_.back(), local == kNone ? name : local, zevo::IsWindows1252(text), ascii});
  size_t slot = Hash(text) & (slots_.size() - 1);
  while (slots_[slot] != kNone) slot = (slot + 1) & (slots_.size() - 1);
  slots_[slot] = name;
  return name;
}

void NameTable::Grow() {
  std::vector<uint32_t> slots(slots_.size() * 2);
  for (uint32_t name = 1; name < entries_.size(); ++name) {
    size_t slot = Hash(entries_[name].text) & (slots.size() - 1);
    while (slots[slot] != kNone) slot = (slot + 1) & (slots.size() - 1);
    slots[slot] = name;
  }
  slots_ = std::move(slots);
}

}  // namespace zevo
