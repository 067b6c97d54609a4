#include <zevo/platform/NameTable.h>

#include <zevo/Error.h>
#include <zevo/platform/Windows1252.h>

#include <algorithm>
#include <cstring>
#include <random>
#include <utility>

namespace zevo {
namespace {

// An odd number that nobody can know: names that all share one place could be made for one that is known, and a file
// of them would take hours to open.
uint64_t Secret() {
  static const uint64_t kSecret = [] {
    std::random_device random;
    return uint64_t{random()} << 32 | random() | 1U;
  }();
  return kSecret;
}

}  // namespace

NameTable::NameTable(std::span<const std::string_view> first)
    : secret_(Secret()), entries_(1, {{}, kNone, true, true}), slots_(512) {
  for (const std::string_view name : first) {
    const uint32_t number = Add(name);
    if (number == plain_ + 1 && Local(number) == number && IsAscii(number)) plain_ = number;
  }
}

// Eight bytes at a time, the last eight once more where they overlap: a name is looked up for nearly every element.
size_t NameTable::Hash(std::string_view text) const {
  uint64_t hash = text.size();
  const auto mix = [&hash, this](uint64_t word) {
    hash = (hash ^ word) * secret_;
    hash ^= hash >> 32;
  };
  uint64_t word = 0;
  if (text.size() < sizeof word) {
    for (const char c : text) word = word << 8 | static_cast<unsigned char>(c);
    mix(word);
  } else {
    for (size_t i = 0; i + sizeof word < text.size(); i += sizeof word) {
      std::memcpy(&word, text.data() + i, sizeof word);
      mix(word);
    }
    std::memcpy(&word, text.data() + text.size() - sizeof word, sizeof word);
    mix(word);
  }
  return static_cast<size_t>(hash);
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

uint32_t NameTable::AddParsedAt(Seen* places, const char* local, const char* prefix) {
  Seen* const end = places + kPlaces;
  const auto known =
      std::find_if(places, end, [&](const Seen& seen) { return seen.local == local && seen.prefix == prefix; });
  if (known != end) return known->name;
  const uint32_t name = prefix == nullptr ? Add(local) : Add(std::string(prefix).append(":").append(local));
  // The newest comes first, and the oldest goes.
  std::move_backward(places, end - 1, end);
  *places = {local, prefix, name};
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
